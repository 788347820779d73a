// The controls of the wizard, and where they stand.

#include "dialogs/wizard/frmWizard.h"

#include "app/StringTable.h"
#include "dialogs/wizard/WizardButtons.h"
#include "platform/Platform.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"
#include "ui/Dpi.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <bit>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kHeadingPoints = 13;

struct PixelRect {
    int left;
    int top;
    int width;
    int height;
};

// Pixels at 100 %, which are 15 twips each. The program list's place and the tops of the source options are
// what the pages' texts count on.
constexpr int kClientWidth = 720;
constexpr int kClientHeight = 448;
constexpr PixelRect kHeading{16, 11, 688, 26};
constexpr PixelRect kImage{16, 52, 152, 344};
/// Forty kanji wide at every scaling, and never 43: so no text leaves just two for its last line.
constexpr PixelRect kTextFrame{184, 52, 514, 344};
constexpr PixelRect kNarrowFrame{16, 44, 232, 354};
constexpr PixelRect kProgramList{256, 88, 448, 308};
constexpr PixelRect kLowerLine{0, 406, kClientWidth, 2};
constexpr int kButtonTop = 415;
constexpr int kButtonWidth = 84;
constexpr int kButtonHeight = 24;
constexpr int kOptionHeight = 20;
constexpr int kOptionStep = 24;
constexpr int kSingleOptionsTop = 168;
constexpr int kSeveralOptionsTop = 16;
constexpr int kSlotTop = 94;
constexpr int kSlotStep = 25;
constexpr int kSlotLabelWidth = 84;
constexpr int kSlotHeight = 21;

struct Placement {
    int id;
    PixelRect place;
};

/// Controls in their frames; options and program boxes are placed by their numbers.
constexpr std::array kPlacements{
    Placement{IDC_lblMsgSelectButton1, {0, 0, kTextFrame.width, 80}},
    Placement{IDC_lblMsgSelectButton2, {0, 316, kTextFrame.width, 28}},
    Placement{IDC_lblMsgSelectLaunchMethod1, {0, 0, kTextFrame.width, 130}},
    Placement{IDC_lblMsgSelectLaunchMethod2, {0, 316, kTextFrame.width, 28}},
    Placement{IDC_lblMsgSelectMenu1, {0, 0, kTextFrame.width, 150}},
    Placement{IDC_lblMsgSelectMenu2, {0, 316, kTextFrame.width, 28}},
    Placement{IDC_lblMsgSelectProgramForSingle1, {0, 44, 232, 200}},
    Placement{IDC_lblMsgFinish1, {0, 0, kTextFrame.width, 200}},
    Placement{IDC_lblMsgFinish2, {0, 316, kTextFrame.width, 28}},
    Placement{IDC_lblMsgButtonName1, {0, 0, kTextFrame.width, 136}},
    Placement{IDC_txtButtonName, {0, 144, 300, 22}},
    Placement{IDC_lblmsgButtonName2, {0, 316, kTextFrame.width, 28}},
    Placement{IDC_lblMsgSomeProgram1, {0, 222, 232, 74}},
    Placement{IDC_lblMsgSomeProgram2, {0, 298, 232, 56}},
};

constexpr std::array kTextFrames{IDC_fraSelectButton, IDC_fraSelectLaunchMethod, IDC_fraSelectMenu,
                                 IDC_fraFinish, IDC_fraButtonName};

void Place(HWND control, const PixelRect& place, UINT dpi) {
    PlaceInRow(control, {Scaled(place.left, dpi), Scaled(place.top, dpi),
                         Scaled(place.left + place.width, dpi), Scaled(place.top + place.height, dpi)});
}

Bitmap LoadWizardImage() {
    return Bitmap(static_cast<HBITMAP>(LoadImageW(
        GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDB_WizardImage), IMAGE_BITMAP, 0, 0, LR_DEFAULTCOLOR)));
}

/// The picture at another size, smoothly.
Bitmap Stretched(HBITMAP source, SIZE size) {
    BITMAP info{};
    if (GetObjectW(source, sizeof info, &info) == 0) {
        return nullptr;
    }
    const MemoryDc from(CreateCompatibleDC(nullptr));
    const MemoryDc to(CreateCompatibleDC(nullptr));
    BITMAPINFO header{};
    header.bmiHeader.biSize = sizeof header.bmiHeader;
    header.bmiHeader.biWidth = size.cx;
    header.bmiHeader.biHeight = size.cy;
    header.bmiHeader.biPlanes = 1;
    header.bmiHeader.biBitCount = 24; // with an alpha channel the control would make a copy of its own
    void* bits = nullptr;
    Bitmap scaled(CreateDIBSection(nullptr, &header, DIB_RGB_COLORS, &bits, nullptr, 0));
    if (!from || !to || !scaled) {
        return nullptr;
    }
    const Selected fromSelected(from.get(), source);
    const Selected toSelected(to.get(), scaled.get());
    SetStretchBltMode(to.get(), HALFTONE);
    SetBrushOrgEx(to.get(), 0, 0, nullptr);
    StretchBlt(to.get(), 0, 0, size.cx, size.cy, from.get(), 0, 0, info.bmWidth, info.bmHeight, SRCCOPY);
    return scaled;
}

} // namespace

void frmWizard::OnCreate() {
    SetTextOf(Window(), texts_.ResText(kTextTitle) + L" " + texts_.ResText(kTextWizard));
    if (Globals().WizardForButton) {
        SetWindowLongPtrW(Window(), GWL_EXSTYLE, GetWindowLongPtrW(Window(), GWL_EXSTYLE) | WS_EX_APPWINDOW);
    }
    AddControl(Window(), {IDC_lblHeading, WC_STATICW, SS_LEFT | SS_NOPREFIX | WS_GROUP, {}});
    AddControl(Window(), {IDC_imgWizardImage, WC_STATICW, SS_BITMAP, {}});
    CreateFrames();
    CreateProgramFrames();
    CreateButtons();
    panes_.Load();
    flow_.emplace(panes_.Services(), Globals().WizardForButton);
}

void frmWizard::CreateFrames() {
    const auto label = [this](HWND frame, int id, int textOffset) {
        AddControl(frame, {id, WC_STATICW, SS_LEFT | SS_NOPREFIX | WS_GROUP, {}}, texts_.ResText(textOffset));
    };
    const auto options = [this](HWND frame, int firstId, int count, int firstText) {
        for (int i = 0; i < count; ++i) {
            const DWORD first = i == 0 ? WS_GROUP | WS_TABSTOP : 0;
            AddControl(frame, {firstId + i, WC_BUTTONW, BS_AUTORADIOBUTTON | first, {}},
                       WithoutAccessKeys(texts_.ResText(firstText + i)));
        }
    };
    HWND frame = AddFrame(IDC_fraSelectButton, texts_.ResText(kTextSelectButtonHeading));
    label(frame, IDC_lblMsgSelectButton1, kTextSelectButton);
    options(frame, IDC_optMFButton0, kWizardButtonOptions, kTextWizardButton1);
    label(frame, IDC_lblMsgSelectButton2, kTextClickNext);

    frame = AddFrame(IDC_fraSelectLaunchMethod, texts_.ResText(kTextLaunchMethodHeading));
    label(frame, IDC_lblMsgSelectLaunchMethod1, kTextLaunchMethod);
    options(frame, IDC_optSelectLaunchMethod0, 3, kTextLaunchMethod1);
    label(frame, IDC_lblMsgSelectLaunchMethod2, kTextClickNext);

    frame = AddFrame(IDC_fraSelectMenu, texts_.ResText(kTextSelectMenuHeading));
    label(frame, IDC_lblMsgSelectMenu1, kTextSelectMenu);
    AddSourceOptions(frame, IDC_optSelectMenuForSingle0);
    label(frame, IDC_lblMsgSelectMenu2, kTextClickNext);

    frame = AddFrame(IDC_fraFinish, texts_.ResText(kTextFinishHeading));
    label(frame, IDC_lblMsgFinish1, kTextFinishMessage);
    label(frame, IDC_lblMsgFinish2, kTextClickFinish);

    frame = AddFrame(IDC_fraButtonName, texts_.ResText(kTextButtonNameHeading));
    label(frame, IDC_lblMsgButtonName1, kTextTypeButtonName);
    const HWND name = AddControl(
        frame, {IDC_txtButtonName, WC_EDITW, ES_AUTOHSCROLL | WS_TABSTOP | WS_GROUP, {}, WS_EX_CLIENTEDGE});
    SendMessageW(name, EM_LIMITTEXT, kNameBoxLimit, 0);
    label(frame, IDC_lblmsgButtonName2, kTextClickNext);

    frame = AddFrame(IDC_fraSelectProgramForSingle, texts_.ResText(kTextSelectProgramHeading));
    label(frame, IDC_lblMsgSelectProgramForSingle1, kTextSelectProgram);
}

void frmWizard::AddSourceOptions(HWND frame, int firstId) {
    DWORD first = WS_GROUP | WS_TABSTOP;
    for (const ProgramSource source : kProgramSources) {
        AddControl(frame,
                   {firstId + static_cast<int>(source),
                    WC_BUTTONW,
                    BS_AUTORADIOBUTTON | std::exchange(first, 0),
                    {}},
                   panes_.OptionText(source));
    }
}

void frmWizard::CreateProgramFrames() {
    const HWND several = AddFrame(IDC_fraSomePrograms, texts_.ResText(kTextSomeProgramsHeading));
    AddSourceOptions(several, IDC_optSelectMenu0);
    for (int slot = 0; slot < kMaxPrograms; ++slot) {
        AddControl(several, {IDC_lblProgram0 + slot, WC_STATICW, SS_LEFT | SS_CENTERIMAGE | WS_GROUP, {}},
                   texts_.ResText(kTextWizardProgram) + DecimalText(slot + 1));
        AddControl(several, {IDC_txtProgram0 + slot,
                             WC_EDITW,
                             ES_READONLY | ES_AUTOHSCROLL | WS_GROUP,
                             {},
                             WS_EX_CLIENTEDGE});
    }
    AddControl(several, {IDC_lblMsgSomeProgram1, WC_STATICW, SS_LEFT | SS_NOPREFIX | WS_GROUP, {}},
               texts_.ResText(kTextSomePrograms));
    AddControl(several, {IDC_lblMsgSomeProgram2, WC_STATICW, SS_LEFT | SS_NOPREFIX | WS_GROUP, {}},
               texts_.ResText(kTextNoMorePrograms));
    const HWND list = AddFrame(IDC_fraProgramList, texts_.ResText(kTextProgramSources));
    panes_.CreateControls([this, list](const ControlRow& row) { return AddControl(list, row); }, Dpi());
}

void frmWizard::CreateButtons() {
    const auto button = [this](int id, int textOffset, DWORD kind = BS_PUSHBUTTON) {
        AddControl(Window(), {id, WC_BUTTONW, kind | WS_TABSTOP | WS_GROUP, {}}, texts_.ResText(textOffset));
    };
    button(IDC_cmdBack, kTextBack);
    button(IDC_cmdNext, kTextNext, BS_DEFPUSHBUTTON);
    button(IDC_cmdFinish, kTextFinish);
    button(IDC_cmdCancel, kTextWizardCancel);
    SendMessageW(Window(), DM_SETDEFID, IDC_cmdNext, 0);
    AddControl(Window(), {IDC_fraLine, WC_STATICW, SS_ETCHEDHORZ, {}});
}

void frmWizard::ShowButtonOptions() {
    const WizardButtons buttons = LoadWizardButtons(store_, texts_, buttonSet_, defaults_);
    shownButtons_ = buttons.shown;
    for (int option = 0; option < kWizardButtonOptions; ++option) {
        const HWND control = Control(IDC_optMFButton0 + option);
        SetTextOf(control, WithoutAccessKeys(buttons.captions.at(static_cast<std::size_t>(option))));
        ShowWindow(control, option < buttons.shown ? SW_SHOW : SW_HIDE);
    }
}

SIZE frmWizard::OnLayout() {
    const UINT dpi = Dpi();
    headingFont_ = CreateFontOfPoints(Globals().DialogFontName, kHeadingPoints, dpi);
    SendMessageW(Control(IDC_lblHeading), WM_SETFONT, std::bit_cast<WPARAM>(headingFont_.get()), TRUE);
    Place(Control(IDC_lblHeading), kHeading, dpi);
    Place(Control(IDC_fraLine), kLowerLine, dpi);
    Place(Control(IDC_imgWizardImage), kImage, dpi);
    const Bitmap source = LoadWizardImage();
    Bitmap image = Stretched(source.get(), {Scaled(kImage.width, dpi), Scaled(kImage.height, dpi)});
    SendMessageW(Control(IDC_imgWizardImage), STM_SETIMAGE, IMAGE_BITMAP, std::bit_cast<LPARAM>(image.get()));
    image_ = std::move(image); // only now: until here the control showed the old one

    for (const int frame : kTextFrames) {
        Place(Control(frame), kTextFrame, dpi);
    }
    Place(Control(IDC_fraSelectProgramForSingle), kNarrowFrame, dpi);
    Place(Control(IDC_fraSomePrograms), kNarrowFrame, dpi);
    Place(Control(IDC_fraProgramList), kProgramList, dpi);
    for (const Placement& placement : kPlacements) {
        Place(Control(placement.id), placement.place, dpi);
    }
    for (int i = 0; i < kWizardButtonOptions; ++i) {
        Place(Control(IDC_optMFButton0 + i), {0, 92 + i * kOptionStep, kTextFrame.width, kOptionHeight}, dpi);
    }
    for (int i = 0; i < 3; ++i) {
        Place(Control(IDC_optSelectLaunchMethod0 + i),
              {0, 142 + i * kOptionStep, kTextFrame.width, kOptionHeight}, dpi);
    }
    for (int slot = 0; slot < kMaxPrograms; ++slot) {
        const int top = kSlotTop + slot * kSlotStep;
        Place(Control(IDC_lblProgram0 + slot), {0, top, kSlotLabelWidth, kSlotHeight}, dpi);
        Place(Control(IDC_txtProgram0 + slot),
              {kSlotLabelWidth, top, kNarrowFrame.width - kSlotLabelWidth, kSlotHeight}, dpi);
    }
    StackOptions();
    panes_.Place({0, 0, Scaled(kProgramList.width, dpi), Scaled(kProgramList.height, dpi)});
    panes_.SetScaling(dpi);

    int left = kClientWidth - 16 - kButtonWidth;
    for (const int id : {IDC_cmdCancel, IDC_cmdFinish, IDC_cmdNext, IDC_cmdBack}) {
        Place(Control(id), {left, kButtonTop, kButtonWidth, kButtonHeight}, dpi);
        left -= kButtonWidth + (id == IDC_cmdNext ? 0 : 8); // Back and Next belong together
    }
    return {Scaled(kClientWidth, dpi), Scaled(kClientHeight, dpi)};
}

void frmWizard::StackOptions() {
    int single = 0;
    int several = 0;
    const auto stack = [this](int id, bool offered, PixelRect first, int& count) {
        ShowWindow(Control(id), offered ? SW_SHOW : SW_HIDE);
        if (offered) {
            first.top += count++ * kOptionStep;
            Place(Control(id), first, Dpi());
        }
    };
    constexpr PixelRect kFirstForSingle{0, kSingleOptionsTop, kTextFrame.width, kOptionHeight};
    constexpr PixelRect kFirstForSeveral{0, kSeveralOptionsTop, kNarrowFrame.width, kOptionHeight};
    const ProgramSources& sources = panes_.Sources();
    for (const ProgramSource source : kProgramSources) {
        const int i = static_cast<int>(source);
        stack(IDC_optSelectMenuForSingle0 + i, sources.Offers(source, SourceOffer::SingleProgram),
              kFirstForSingle, single);
        stack(IDC_optSelectMenu0 + i, sources.Offers(source, SourceOffer::SeveralPrograms), kFirstForSeveral,
              several);
    }
}

HBRUSH frmWizard::OnStaticColour(HWND control, HDC hdc) {
    const int slot = GetDlgCtrlID(control) - IDC_txtProgram0;
    if (slot < 0 || slot >= kMaxPrograms) {
        return nullptr;
    }
    // The box of the next program stands out from the form, which in high contrast has the window's colour.
    const bool marked = slot == flow_->MarkedSlot();
    const bool alike = GetSysColor(COLOR_WINDOW) == GetSysColor(COLOR_3DFACE);
    const int colour = !marked ? COLOR_3DFACE : alike ? COLOR_HIGHLIGHT : COLOR_WINDOW;
    const int text = !marked ? COLOR_BTNTEXT : alike ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT;
    SetTextColor(hdc, GetSysColor(text));
    SetBkColor(hdc, GetSysColor(colour));
    return GetSysColorBrush(colour);
}

// How the main dialog is put together: its controls and where they stand.

#include "app/StringTable.h"
#include "dialogs/main/ButtonLabels.h"
#include "dialogs/main/frmMain.h"
#include "resources/resource.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"

#include <commctrl.h>

#include <algorithm>
#include <bit>

namespace {

// Dialog units.
constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kButtonHeight = 14;
constexpr int kLabelHeight = 8;

constexpr int kColumnWidth = 60;
constexpr int kFrameInset = 4;
constexpr int kContentWidth = kDesktopButtons * kColumnWidth + 2 * kFrameInset;
constexpr int kPageWidth = kContentWidth + 2 * kMargin;
constexpr int kPageButtonWidth = 92;

constexpr int kFrameTop = kMargin + kButtonHeight + kGap;
constexpr int kPictureHeight = 36; ///< of its cell; the picture itself has whole pixels
constexpr int kRowFrameHeight = 80;
constexpr int kColumnRowHeight = 42;

constexpr int kDialogButtonWidth = 54;

constexpr DWORD kTabStop = WS_TABSTOP;
constexpr DWORD kGroup = WS_GROUP; ///< arrow keys stay within the control

/// Of the fuller page, and never less than the on-screen page's preview needs.
int FrameHeight(const MakerSwitches& switches) {
    if (switches.NR1t2 != 1) {
        return kRowFrameHeight;
    }
    const int notebookKeys = switches.ShowNTTab ? switches.ButtonCount() - kDesktopButtons : 0;
    const int buttons = std::max(switches.DesktopButtonCount(), notebookKeys);
    return std::max(buttons * kColumnRowHeight + 2 * kFrameInset, kRowFrameHeight);
}

/// Where one button's parts stand on its page.
struct ButtonPlaces {
    POINT pictureCentre{};
    DluRect label;
    DWORD labelAlignment = SS_LEFT;
    DluRect name;
};

/// The keyboard's buttons stand side by side, as their pictures do.
ButtonPlaces PlaceInRow(int index) {
    const int left = kMargin + kFrameInset + index * kColumnWidth;
    const int top = kFrameTop + kFrameInset + kGap;
    const int labelTop = top + kPictureHeight + kGap;
    constexpr int kInset = 1;
    return {{left + kColumnWidth / 2, top + kPictureHeight / 2},
            {left + kInset, labelTop, kColumnWidth - 2 * kInset, kLabelHeight},
            SS_CENTER,
            {left + 2 * kInset, labelTop + kLabelHeight + 2, kColumnWidth - 4 * kInset, kButtonHeight}};
}

ButtonPlaces PlaceInColumn(int index) {
    constexpr int kLabelWidth = 70;
    const int left = kMargin + kFrameInset + kGap;
    const int top = kFrameTop + kFrameInset + index * kColumnRowHeight;
    const int middle = top + kColumnRowHeight / 2;
    const int labelLeft = left + kPictureHeight + 2 * kGap;
    const int nameLeft = labelLeft + kLabelWidth;
    return {{left + kPictureHeight / 2, middle},
            {labelLeft, middle - kButtonHeight / 2, kLabelWidth - kGap, kButtonHeight},
            SS_LEFT | SS_CENTERIMAGE,
            {nameLeft, middle - kButtonHeight / 2, kMargin + kContentWidth - kFrameInset - kGap - nameLeft,
             kButtonHeight}};
}

} // namespace

int frmMain::PageHeight() const {
    return kFrameTop + FrameHeight(settings_.Switches()) + kMargin + kButtonHeight + kMargin;
}

void frmMain::OnCreate() {
    SetWindowLongPtrW(Window(), GWL_STYLE, GetWindowLongPtrW(Window(), GWL_STYLE) | WS_MINIMIZEBOX);
    SetTextOf(Window(), texts_.ResText(kTextTitle));
    labels_ = ButtonLabels(store_, texts_, settings_.Switches());
    imlResource_.Load(PictureNames(settings_.Switches()));

    pages_.push_back({MainPage::Desktop, nullptr});
    if (settings_.Switches().ShowNTTab) {
        pages_.push_back({MainPage::Notebook, nullptr});
    }
    pages_.push_back({MainPage::OnScreen, nullptr});
    CreateDialogButtons();
    // Nearly its size: a narrower one would make arrows to turn its tabs with.
    const HWND tab = AddControl(Window(), {IDC_tabContainer, WC_TABCONTROLW, kTabStop | WS_CLIPSIBLINGS, {}},
                                texts_.ResText(kTextPages),
                                TextFont().Pixels({kMargin, kMargin, kPageWidth, PageHeight()}));
    captions_ = PageCaptions(store_, texts_);
    for (const Page& page : pages_) {
        AddTab(tab, WithoutAccessKeys(captions_.at(static_cast<std::size_t>(page.kind))));
    }
}

HWND frmMain::CreatePage(MainPage kind) {
    const HWND page = AddPage(captions_.at(static_cast<std::size_t>(kind)), pageArea_);
    if (page == nullptr) {
        return nullptr;
    }
    if (kind == MainPage::OnScreen) {
        CreateOnScreenPage(page);
        onScreenPage_.FillLists();
        onScreenPage_.Refresh();
    } else {
        CreateButtonPage(page, kind);
        FillPatternBox(Control(IDC_cmbUserName0 + static_cast<int>(kind)));
        for (const int button : settings_.ButtonsOf(kind)) {
            ShowButton(button);
        }
    }
    return page;
}

void frmMain::CreateButtonPage(HWND page, MainPage kind) {
    const int index = static_cast<int>(kind);
    constexpr int kNameLabelWidth = 66;
    const int managerLeft = kPageWidth - kMargin - kPageButtonWidth;
    const int comboLeft = kMargin + kNameLabelWidth;
    AddControl(page,
               {IDC_lblUserName0 + index,
                WC_STATICW,
                SS_LEFT | SS_CENTERIMAGE,
                {kMargin, kMargin, kNameLabelWidth - kGap, kButtonHeight}},
               texts_.ResText(kTextPatternName));
    AddControl(page, {IDC_cmbUserName0 + index,
                      WC_COMBOBOXW,
                      CBS_DROPDOWNLIST | WS_VSCROLL | kTabStop | kGroup,
                      {comboLeft, kMargin, managerLeft - kGap - comboLeft, kButtonHeight}});
    AddPageButton(page, IDC_cmdUserManager0 + index, kTextSettingManager,
                  {managerLeft, kMargin, kPageButtonWidth, kButtonHeight}, true);

    int indexOnPage = 0;
    for (const int button : settings_.ButtonsOf(kind)) {
        AddButton(page, button, indexOnPage++, labels_.at(static_cast<std::size_t>(button) - 1));
    }
    // Behind its pictures in the order of windows, as the frame is drawn around them.
    AddControl(page, {IDC_fraButtonSet0 + index,
                      WC_BUTTONW,
                      BS_GROUPBOX,
                      {kMargin, kFrameTop, kContentWidth, FrameHeight(settings_.Switches())}});

    const int bottom = PageHeight() - kMargin - kButtonHeight;
    AddPageButton(page, IDC_cmdWizard0 + index, kTextWizardButton,
                  {kMargin, bottom, kPageButtonWidth, kButtonHeight}, true);
    AddPageButton(page, IDC_cmdDefault0 + index, kTextDefault,
                  {managerLeft, bottom, kPageButtonWidth, kButtonHeight}, true);
}

void frmMain::AddPageButton(HWND page, int id, int textOffset, const DluRect& place, bool enabled) {
    const HWND button = AddControl(page, {id, WC_BUTTONW, BS_PUSHBUTTON | kTabStop | kGroup, place},
                                   texts_.ResText(textOffset));
    EnableWindow(button, enabled ? TRUE : FALSE);
}

void frmMain::AddButton(HWND page, int button, int indexOnPage, const std::wstring& label) {
    const int index = button - 1;
    const ButtonPlaces places =
        settings_.Switches().NR1t2 == 1 ? PlaceInColumn(indexOnPage) : PlaceInRow(indexOnPage);
    const HWND picture = AddControl(
        page, {IDC_picButton0 + index, PictureButton::WindowClass(), BS_OWNERDRAW | kTabStop | kGroup, {}},
        WithoutAccessKeys(label), PicturePlace(places.pictureCentre));
    pictures_.push_back({button, places.pictureCentre,
                         std::make_unique<PictureButton>(
                             picture, imlResource_,
                             PictureButton::MouseEvents{[this, button] { EnterPicture(button); },
                                                        [this, button] { LeavePicture(button); }})});
    ShapePicture(pictures_.back());
    AddControl(page,
               {IDC_lblButtonName0 + index, WC_STATICW,
                places.labelAlignment | SS_NOPREFIX | SS_ENDELLIPSIS | kGroup, places.label},
               label);
    const HWND name = AddControl(page,
                                 {IDC_txtButtonName0 + index, WC_EDITW, ES_AUTOHSCROLL | kTabStop | kGroup,
                                  places.name, WS_EX_CLIENTEDGE},
                                 settings_.Slot(button).Name);
    SendMessageW(name, EM_LIMITTEXT, kNameBoxLimit, 0);
}

void frmMain::CreateOnScreenPage(HWND page) {
    constexpr int kCheckHeight = 10;
    constexpr int kInset = kFrameInset + kGap;
    constexpr int kFaceWidth = 130;
    constexpr int kSizeWidth = 70;
    constexpr int kSelectWidth = 66;
    constexpr int kRowFrame = 40;
    const int frameTop = kMargin + kCheckHeight + kGap;
    const int labelTop = frameTop + kFrameInset + kGap;
    const int boxTop = labelTop + kLabelHeight + 2;
    const int faceLeft = kMargin + kInset;
    const int sizeLeft = faceLeft + kFaceWidth + kInset;
    const int colorLeft = sizeLeft + kSizeWidth + kInset;
    const int previewLabelTop = frameTop + kRowFrame + kMargin;
    const int previewTop = previewLabelTop + kLabelHeight + 2;
    const int bottom = PageHeight() - kMargin - kButtonHeight;

    AddControl(page,
               {IDC_chkOnScreen,
                WC_BUTTONW,
                BS_AUTOCHECKBOX | kTabStop | kGroup,
                {kMargin, kMargin, kContentWidth, kCheckHeight}},
               texts_.ResText(kTextDisplayOnScreen));
    const auto addLabel = [&](int id, int textOffset, int left, int top, int width) {
        AddControl(page, {id, WC_STATICW, SS_LEFT | kGroup, {left, top, width, kLabelHeight}},
                   texts_.ResText(textOffset));
    };
    addLabel(IDC_lblFontName, kTextFont, faceLeft, labelTop, kFaceWidth);
    AddControl(page, {IDC_cmbFontName,
                      WC_COMBOBOXW,
                      CBS_DROPDOWNLIST | WS_VSCROLL | kTabStop | kGroup,
                      {faceLeft, boxTop, kFaceWidth, kButtonHeight}});
    addLabel(IDC_lblFontSize, kTextSize, sizeLeft, labelTop, kSizeWidth);
    AddControl(page, {IDC_cmbFontSize,
                      WC_COMBOBOXW,
                      CBS_DROPDOWNLIST | WS_VSCROLL | kTabStop | kGroup,
                      {sizeLeft, boxTop, kSizeWidth, kButtonHeight}});
    addLabel(IDC_lblFontColor, kTextColor, colorLeft, labelTop, kSelectWidth);
    AddPageButton(page, IDC_CmdFontColor, kTextSelect, {colorLeft, boxTop, kSelectWidth, kButtonHeight},
                  true);
    AddControl(page,
               {IDC_fraOnScreen, WC_BUTTONW, BS_GROUPBOX, {kMargin, frameTop, kContentWidth, kRowFrame}});

    addLabel(IDC_lblPreview, kTextPreview, kMargin, previewLabelTop, kContentWidth);
    AddControl(page, {IDC_picPreview,
                      WC_STATICW,
                      SS_OWNERDRAW,
                      {kMargin, previewTop, kContentWidth, bottom - kMargin - previewTop}});
    AddPageButton(page, IDC_cmdDefault2, kTextDefault,
                  {kPageWidth - kMargin - kPageButtonWidth, bottom, kPageButtonWidth, kButtonHeight}, true);
}

void frmMain::CreateDialogButtons() {
    const auto add = [this](int id, int textOffset, DWORD style) {
        return AddControl(Window(), {id, WC_BUTTONW, style | kTabStop | kGroup, {}},
                          texts_.ResText(textOffset));
    };
    add(IDC_cmdOK, kTextOk, BS_DEFPUSHBUTTON);
    add(IDC_cmdCancel, kTextCancel, BS_PUSHBUTTON);
    add(IDC_cmdApply, kTextApply, BS_PUSHBUTTON);
    add(IDC_cmdPrint, kTextPrint, BS_PUSHBUTTON);
    const HWND help = add(IDC_cmdHelp, kTextHelpButton, BS_PUSHBUTTON);
    EnableWindow(help, HasHelp() ? TRUE : FALSE);
}

SIZE frmMain::OnLayout() {
    tips_.Forget();
    const DialogFont& font = TextFont();
    const int margin = font.PixelsX(kMargin);
    const RECT page{0, 0, font.PixelsX(kPageWidth), font.PixelsY(PageHeight())};
    RECT tab = page;
    SendMessageW(Control(IDC_tabContainer), TCM_ADJUSTRECT, TRUE, std::bit_cast<LPARAM>(&tab));
    const SIZE tabSize{tab.right - tab.left, tab.bottom - tab.top};
    constexpr UINT kFlags = SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(Control(IDC_tabContainer), nullptr, margin, margin, tabSize.cx, tabSize.cy, kFlags);
    pageArea_ = {margin - tab.left, margin - tab.top, margin - tab.left + page.right,
                 margin - tab.top + page.bottom};
    for (const Page& each : pages_) {
        if (each.window != nullptr) {
            SetWindowPos(each.window, nullptr, pageArea_.left, pageArea_.top, page.right, page.bottom,
                         kFlags);
        }
    }
    PlacePictures();

    const int width = font.PixelsX(kDialogButtonWidth);
    const int height = font.PixelsY(kButtonHeight);
    const int step = width + font.PixelsX(kGap);
    const int top = margin + tabSize.cy + margin;
    const int right = margin + tabSize.cx;
    const auto place = [&](int id, int left) {
        SetWindowPos(Control(id), nullptr, left, top, width, height, kFlags);
    };
    place(IDC_cmdApply, right - width);
    place(IDC_cmdCancel, right - width - step);
    place(IDC_cmdOK, right - width - 2 * step);
    place(IDC_cmdHelp, margin);
    place(IDC_cmdPrint, margin + step);
    return {right + margin, top + height + margin};
}

RECT frmMain::PicturePlace(const POINT& centre) const {
    const int size = PictureButton::SizeFor(Dpi());
    const int left = TextFont().PixelsX(centre.x) - size / 2;
    const int top = TextFont().PixelsY(centre.y) - size / 2;
    return {left, top, left + size, top + size};
}

void frmMain::ShapePicture(const PlacedPicture& placed) {
    if (placed.button - 1 > LastRoundPicture(settings_.Switches())) {
        return;
    }
    // Twips of this form: 15 to a device pixel at every scaling, so that rounding never cuts a picture.
    constexpr double kTwipsPerPixel = 15;
    const HWND picture = Control(IDC_picButton0 + placed.button - 1);
    const int region = RoundRegionPixels(PictureButton::SizeFor(Dpi()) * kTwipsPerPixel, kTwipsPerPixel);
    Region ellipse(CreateEllipticRgn(0, 0, region, region));
    if (SetWindowRgn(picture, ellipse.get(), IsWindowVisible(picture)) != 0) {
        [[maybe_unused]] const HRGN owned = ellipse.release(); // the window owns it from here on
    }
}

void frmMain::PlacePictures() {
    imlResource_.ForgetSizes();
    for (const PlacedPicture& placed : pictures_) {
        const RECT place = PicturePlace(placed.centre);
        SetWindowPos(Control(IDC_picButton0 + placed.button - 1), nullptr, place.left, place.top,
                     place.right - place.left, place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        ShapePicture(placed);
    }
}

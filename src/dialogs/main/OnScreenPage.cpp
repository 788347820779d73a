#include "dialogs/main/OnScreenPage.h"

#include "app/StringTable.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/MainSettings.h"
#include "platform/windows/SystemLibrary.h"
#include "resources/resource.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"
#include "ui/DialogFont.h"
#include "ui/Form.h"

#include <commdlg.h>

namespace {

/// What the steps stand for in the preview, in points. The launcher sizes its own text.
constexpr std::array kStepPoints{10, 13, 16, 20, 26};
constexpr COLORREF kColorMask = 0x00FFFFFF;

COLORREF TextColor(const OnScreenSettings& settings) {
    return static_cast<COLORREF>(settings.Color) & kColorMask;
}

} // namespace

OnScreenPage::OnScreenPage(Form& form, MainSettings& settings, const FontList& fonts,
                           const StringTable& texts)
    : form_(form), settings_(settings), fonts_(fonts), texts_(texts) {
    customColors_.fill(RGB(255, 255, 255));
}

void OnScreenPage::FillLists() {
    const HWND faces = form_.Control(IDC_cmbFontName);
    for (const std::wstring& face : fonts_.Faces()) {
        ComboAdd(faces, face);
    }
    const HWND sizes = form_.Control(IDC_cmbFontSize);
    for (int step = kSmallestFontStep; step <= kLargestFontStep; ++step) {
        ComboAdd(sizes, texts_.ResText(kTextFontStep1 + step - kSmallestFontStep));
        SendMessageW(sizes, CB_SETITEMDATA, static_cast<WPARAM>(step - kSmallestFontStep), step);
    }
}

void OnScreenPage::Refresh() {
    const OnScreenSettings& settings = settings_.OnScreen();
    SendMessageW(form_.Control(IDC_chkOnScreen), BM_SETCHECK,
                 settings.OnScreen != 0 ? BST_CHECKED : BST_UNCHECKED, 0);
    SelectEntries();
    EnableChoices();
    RefreshPreview();
}

void OnScreenPage::EnableChoices() {
    const BOOL enabled = settings_.OnScreen().OnScreen != 0 ? TRUE : FALSE;
    for (const int id : {IDC_lblFontName, IDC_cmbFontName, IDC_lblFontSize, IDC_cmbFontSize, IDC_lblFontColor,
                         IDC_CmdFontColor, IDC_lblPreview, IDC_picPreview}) {
        EnableWindow(form_.Control(id), enabled);
    }
}

bool OnScreenPage::OnCommand(int id, int notification) {
    OnScreenSettings settings = settings_.OnScreen();
    switch (id) {
    case IDC_chkOnScreen:
        settings.OnScreen = SendMessageW(form_.Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED ? 1 : 0;
        settings_.SetOnScreen(settings);
        EnableChoices();
        return true;
    case IDC_cmbFontName:
    case IDC_cmbFontSize:
        OnChoice(form_.Control(id), id, notification);
        return true;
    case IDC_CmdFontColor:
        ChooseTextColor();
        return true;
    default:
        return false;
    }
}

void OnScreenPage::OnChoice(HWND combo, int id, int notification) {
    const ComboEvent event = ComboEventOf(combo, notification);
    if (event == ComboEvent::Cancelled) {
        SelectEntries();
    }
    const int entry = ComboSelection(combo);
    if (event != ComboEvent::Chosen || entry < 0) {
        return;
    }
    OnScreenSettings settings = settings_.OnScreen();
    // Entries that another program put into the list mean nothing here.
    if (id == IDC_cmbFontName && static_cast<std::size_t>(entry) < fonts_.Faces().size()) {
        settings.FontName = fonts_.Faces()[static_cast<std::size_t>(entry)];
    } else if (id == IDC_cmbFontSize && entry <= kLargestFontStep - kSmallestFontStep) {
        settings.FontSize =
            static_cast<std::uint8_t>(SendMessageW(combo, CB_GETITEMDATA, static_cast<WPARAM>(entry), 0));
    }
    settings_.SetOnScreen(settings);
    RefreshPreview();
}

void OnScreenPage::SelectEntries() {
    const OnScreenSettings& settings = settings_.OnScreen();
    ComboSelect(form_.Control(IDC_cmbFontName), fonts_.IndexOf(settings.FontName));
    ComboSelect(form_.Control(IDC_cmbFontSize), settings.FontSize - kSmallestFontStep);
}

void OnScreenPage::ChooseTextColor() {
    OnScreenSettings settings = settings_.OnScreen();
    CHOOSECOLORW choice{};
    choice.lStructSize = sizeof choice;
    choice.rgbResult = TextColor(settings);
    choice.lpCustColors = customColors_.data();
    choice.Flags = CC_RGBINIT | CC_ANYCOLOR;
    static const auto kChooseColor = SystemProcedure<decltype(ChooseColorW)>(L"comdlg32.dll", "ChooseColorW");
    const auto choose = [&](HWND owner) {
        choice.hwndOwner = owner;
        return kChooseColor(&choice);
    };
    if (kChooseColor != nullptr && form_.RunOver(choose) != FALSE) {
        settings.Color = static_cast<std::int32_t>(choice.rgbResult);
        settings_.SetOnScreen(settings);
        RefreshPreview();
    }
}

void OnScreenPage::RefreshPreview() {
    std::wstring sample = TrimBlanks(settings_.Slot(1).Name);
    if (sample.empty()) {
        sample = texts_.ResText(kTextPreview);
    }
    const HWND preview = form_.Control(IDC_picPreview);
    SetTextOf(preview, sample);
    InvalidateRect(preview, nullptr, FALSE);
}

void OnScreenPage::DrawPreview(const DRAWITEMSTRUCT& item) const {
    const OnScreenSettings& settings = settings_.OnScreen();
    const int points = kStepPoints.at(static_cast<std::size_t>(settings.FontSize - kSmallestFontStep));
    const Font font = CreateFontOfPoints(settings.FontName, points, GetDpiForWindow(item.hwndItem));
    const int saved = SaveDC(item.hDC);
    SelectObject(item.hDC, font.get());
    RECT area = item.rcItem;
    const bool off = (item.itemState & ODS_DISABLED) != 0;
    FillRect(item.hDC, &area, GetSysColorBrush(off ? COLOR_3DFACE : COLOR_DESKTOP));
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, off ? GetSysColor(COLOR_GRAYTEXT) : TextColor(settings));
    DrawTextW(item.hDC, TextOf(item.hwndItem).c_str(), -1, &area,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    RestoreDC(item.hDC, saved);
}

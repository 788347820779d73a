#include "ColourDialog.h"

#include <string>

namespace UiDriver {
namespace {

// The ids of the system's own template, the same since the first one.
constexpr int kRedField = 706;
constexpr int kGreenField = 707;
constexpr int kBlueField = 708;
constexpr int kDefineCustomButton = 719;

std::optional<Window> FindDialog(const Process& process) {
    for (const Window& window : FindWindows({process.Id(), L"#32770", std::nullopt})) {
        if (window.HasControl(kRedField) && window.HasControl(kDefineCustomButton)) {
            return window;
        }
    }
    return std::nullopt;
}

BYTE FieldValue(const Control& field) {
    const std::wstring text = field.Text();
    wchar_t* end = nullptr;
    const unsigned long value = wcstoul(text.c_str(), &end, 10);
    if (text.empty() || *end != L'\0' || value > 255) {
        Fail(L"the colour dialog shows \"" + text + L"\" where a number up to 255 belongs");
    }
    return static_cast<BYTE>(value);
}

} // namespace

ColourDialog ColourDialog::Wait(const Process& process, Milliseconds timeout) {
    const Window window =
        WaitForValue([&] { return FindDialog(process); },
                     L"the colour dialog of process " + std::to_wstring(process.Id()), timeout);
    window.WaitUntilAnswers();
    return ColourDialog(window);
}

bool ColourDialog::IsOpen(const Process& process) {
    return FindDialog(process).has_value();
}

void ColourDialog::OpenCustomHalf() const {
    const Control button = window_.Control(kDefineCustomButton);
    if (button.Enabled()) {
        button.Press();
        WaitUntil([&] { return window_.Control(kRedField).Visible(); },
                  L"the colour dialog to show its fields");
    }
}

void ColourDialog::Enter(COLORREF colour) const {
    OpenCustomHalf();
    window_.Control(kRedField).SetText(std::to_wstring(GetRValue(colour)));
    window_.Control(kGreenField).SetText(std::to_wstring(GetGValue(colour)));
    window_.Control(kBlueField).SetText(std::to_wstring(GetBValue(colour)));
}

COLORREF ColourDialog::Entered() const {
    return RGB(FieldValue(window_.Control(kRedField)), FieldValue(window_.Control(kGreenField)),
               FieldValue(window_.Control(kBlueField)));
}

void ColourDialog::Ok() const {
    window_.Control(IDOK).Press();
    window_.WaitUntilGone();
}

void ColourDialog::Cancel() const {
    window_.Control(IDCANCEL).Press();
    window_.WaitUntilGone();
}

} // namespace UiDriver

#include "LayoutUse.h"

#include "Texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

using UiDriver::Control;

struct Shown {
    HWND hwnd;
    std::wstring className;
    std::wstring text;
    LONG style;
    RECT rect;

    bool operator==(const Shown& other) const {
        return hwnd == other.hwnd && text == other.text && EqualRect(&rect, &other.rect) != FALSE;
    }
    [[nodiscard]] LONG Width() const { return rect.right - rect.left; }
    [[nodiscard]] LONG Height() const { return rect.bottom - rect.top; }
};

std::vector<Shown> Look(const UiDriver::Window& form) {
    std::vector<Shown> all;
    for (const Control& control : form.Controls()) {
        if (control.Visible()) {
            all.push_back(
                {control.Hwnd(), control.ClassName(), control.Text(), control.Style(), control.Rect()});
        }
    }
    return all;
}

/// A form scrolls to what has the keyboard once no message waits.
std::vector<Shown> LookWhenStill(const UiDriver::Window& form) {
    std::vector<Shown> last = Look(form);
    UiDriver::WaitUntil(
        [&] {
            std::vector<Shown> now = Look(form);
            std::swap(now, last);
            return now == last;
        },
        L"the form to stand still");
    return last;
}

bool IsButtonOf(const Shown& control, std::initializer_list<LONG> types) {
    return control.className == L"Button" &&
           std::ranges::find(types, control.style & BS_TYPEMASK) != types.end();
}

/// What holds other controls, or lies under them.
bool IsFrame(const std::vector<Shown>& all, const Shown& control) {
    return IsButtonOf(control, {BS_GROUPBOX}) || control.className == L"SysTabControl32" ||
           std::ranges::any_of(all,
                               [&](const Shown& other) { return GetParent(other.hwnd) == control.hwnd; });
}

bool HasText(const Shown& control) {
    const LONG kind = control.style & SS_TYPEMASK;
    return !control.text.empty() && (IsButtonOf(control, {BS_PUSHBUTTON, BS_DEFPUSHBUTTON, BS_AUTOCHECKBOX,
                                                          BS_AUTORADIOBUTTON, BS_RADIOBUTTON}) ||
                                     (control.className == L"Static" && kind <= SS_RIGHT));
}

struct DeleteFont {
    void operator()(HFONT font) const { DeleteObject(font); }
};

/// The size that the text takes in a control of this width, in the forms' font.
SIZE SizeOfText(const std::wstring& text, LONG width, bool lines, UINT dpi) {
    LOGFONTW wanted{};
    wanted.lfHeight = -MulDiv(Japanese() ? 9 : 8, static_cast<int>(dpi), 72);
    wanted.lfCharSet = DEFAULT_CHARSET;
    Text(kDialogFontText).copy(wanted.lfFaceName, LF_FACESIZE - 1);
    const std::unique_ptr<std::remove_pointer_t<HFONT>, DeleteFont> font(CreateFontIndirectW(&wanted));
    HDC const screen = GetDC(nullptr);
    HGDIOBJ const former = SelectObject(screen, font.get());
    RECT place{0, 0, width, 0};
    DrawTextW(screen, text.c_str(), -1, &place,
              DT_CALCRECT | DT_EXPANDTABS | (lines ? DT_WORDBREAK : DT_SINGLELINE));
    SelectObject(screen, former);
    ReleaseDC(nullptr, screen);
    return {place.right, place.bottom};
}

std::string Describe(const Shown& control) {
    return UiDriver::ToUtf8(control.className + L" " + std::to_wstring(GetDlgCtrlID(control.hwnd)) + L" \"" +
                            control.text + L"\" at " + std::to_wstring(control.rect.left) + L"," +
                            std::to_wstring(control.rect.top) + L" of " + std::to_wstring(control.Width()) +
                            L"x" + std::to_wstring(control.Height()));
}

} // namespace

void ExpectGoodLayout(const UiDriver::Window& form, UINT dpi) {
    const std::vector<Shown> all = LookWhenStill(form);
    ASSERT_FALSE(all.empty());
    const bool scrolls = (GetWindowLongW(form.Hwnd(), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL)) != 0;
    EXPECT_TRUE(!scrolls || dpi > 144) << "up to 150 % each form fits the tests' screen";
    const RECT view = form.ClientRect();
    std::vector<Shown> leaves;
    for (const Shown& control : all) {
        RECT both{};
        UnionRect(&both, &view, &control.rect);
        EXPECT_TRUE(scrolls || EqualRect(&both, &view)) << Describe(control) << " is not in the form";
        if (HasText(control)) {
            const bool isStatic = control.className == L"Static";
            const LONG mark = IsButtonOf(control, {BS_AUTOCHECKBOX, BS_AUTORADIOBUTTON, BS_RADIOBUTTON})
                                  ? MulDiv(16, static_cast<int>(dpi), 96)
                                  : 0;
            const SIZE needed = SizeOfText(control.text, control.Width() - mark, isStatic, dpi);
            EXPECT_LE(needed.cx + mark, control.Width()) << Describe(control);
            EXPECT_LE(needed.cy, control.Height()) << Describe(control);
        }
        if (!IsFrame(all, control) && control.Width() > 0 && control.Height() > 0) {
            leaves.push_back(control);
        }
    }
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        for (std::size_t k = i + 1; k < leaves.size(); ++k) {
            RECT both{};
            EXPECT_FALSE(IntersectRect(&both, &leaves[i].rect, &leaves[k].rect))
                << Describe(leaves[i]) << " lies over " << Describe(leaves[k]);
        }
    }
}

void ExpectOneRow(const UiDriver::Window& form, std::initializer_list<int> ids) {
    const auto centre = [&](int id) { return form.Control(id).Centre().y; };
    for (const int id : ids) {
        EXPECT_NEAR(centre(id), centre(*ids.begin()), 1) << "control " << id;
    }
}

#include "Accessible.h"

#include "Message.h"
#include "Wait.h"

#include <objbase.h>
#include <oleacc.h>

#include <array>
#include <memory>

namespace UiDriver {
namespace {

/// The linker takes the header's from oleacc.dll, which has none.
constexpr IID kAccessible{0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0, 0xAA, 0, 0x38, 0x9B, 0x71}};

struct ComDeleter {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Object = std::unique_ptr<IAccessible, ComDeleter>;

/// COM for this thread until the process ends.
void EnterApartment() {
    static thread_local const HRESULT kEntered = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    (void)kEntered;
}

Object ObjectOf(HWND hwnd) {
    EnterApartment();
    void* object = nullptr;
    if (FAILED(AccessibleObjectFromWindow(hwnd, static_cast<DWORD>(OBJID_CLIENT), kAccessible, &object))) {
        Fail(L"a screen reader is told nothing of " + Describe(hwnd));
    }
    return Object(static_cast<IAccessible*>(object));
}

VARIANT Self() {
    VARIANT self{};
    self.vt = VT_I4;
    self.lVal = CHILDID_SELF;
    return self;
}

/// Frees the text.
std::wstring Taken(BSTR text) {
    const std::wstring copy(text == nullptr ? L"" : text, SysStringLen(text));
    SysFreeString(text);
    return copy;
}

/// The system names these by the label before them; what Wine takes is their content.
bool IsNamedByLabel(HWND hwnd) {
    const std::wstring name = ClassNameOf(hwnd);
    for (const wchar_t* each : std::array{L"ComboBox", L"ListBox", L"SysTreeView32"}) {
        if (SameClass(name, each)) {
            return true;
        }
    }
    return false;
}

/// Where the system looks for it: an unseen label counts, other unseen windows are passed over, and a control
/// that takes part in the tab order ends the search.
std::wstring LabelBefore(HWND hwnd) {
    for (HWND each = GetWindow(hwnd, GW_HWNDPREV); each != nullptr; each = GetWindow(each, GW_HWNDPREV)) {
        if ((Send(each, WM_GETDLGCODE) & DLGC_STATIC) != 0) {
            std::wstring label = TextOf(each);
            std::erase(label, L'&'); // the mark of the access key
            return label;
        }
        const LONG_PTR style = GetWindowLongPtrW(each, GWL_STYLE);
        if ((style & WS_VISIBLE) != 0 && (style & (WS_GROUP | WS_TABSTOP)) != 0) {
            break;
        }
    }
    return {};
}

} // namespace

Accessible Accessible::Of(HWND hwnd) {
    const Object object = ObjectOf(hwnd);
    Accessible told;
    BSTR text = nullptr;
    if (object->get_accName(Self(), &text) == S_OK) {
        told.name = Taken(text);
    }
    if (IsNamedByLabel(hwnd)) {
        told.name = LabelBefore(hwnd);
    }
    text = nullptr;
    if (object->get_accDescription(Self(), &text) == S_OK) {
        told.description = Taken(text);
    }
    VARIANT number{};
    if (SUCCEEDED(object->get_accRole(Self(), &number)) && number.vt == VT_I4) {
        told.role = number.lVal;
    }
    number = {};
    if (SUCCEEDED(object->get_accState(Self(), &number)) && number.vt == VT_I4) {
        told.state = number.lVal;
    }
    return told;
}

void DoDefaultAction(HWND hwnd) {
    if (ObjectOf(hwnd)->accDoDefaultAction(Self()) != S_OK) {
        Fail(L"a screen reader can do nothing with " + Describe(hwnd));
    }
}

std::wstring RoleText(LONG role) {
    std::array<wchar_t, 80> text{};
    GetRoleTextW(static_cast<DWORD>(role), text.data(), static_cast<UINT>(text.size()));
    return text.data();
}

std::wstring StateText(LONG state) {
    std::wstring all;
    for (DWORD bit = 1; bit != 0; bit <<= 1) {
        if ((static_cast<DWORD>(state) & bit) != 0) {
            std::array<wchar_t, 80> text{};
            GetStateTextW(bit, text.data(), static_cast<UINT>(text.size()));
            all += (all.empty() ? L"" : L", ") + std::wstring(text.data());
        }
    }
    return all;
}

} // namespace UiDriver

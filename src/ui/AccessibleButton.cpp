#include "ui/AccessibleButton.h"

#include "platform/windows/Com.h"
#include "platform/windows/SystemLibrary.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"

#include <oleacc.h>

#include <bit>
#include <string_view>
#include <utility>

namespace {

// Looked up here rather than linked: most runs of the program meet no screen reader.
constexpr const wchar_t* kLibrary = L"oleacc.dll";

constexpr IID kUnknown{0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kDispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kAccessible{0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0, 0xAA, 0, 0x38, 0x9B, 0x71}};

BSTR AllocateText(std::wstring_view text) {
    static const auto kAllocate =
        SystemProcedure<decltype(SysAllocStringLen)>(L"oleaut32.dll", "SysAllocStringLen");
    return kAllocate == nullptr ? nullptr : kAllocate(text.data(), static_cast<UINT>(text.size()));
}

/// What the system itself says of the button.
ComObject<IAccessible> StandardObject(HWND button) {
    static const auto kCreate =
        SystemProcedure<decltype(CreateStdAccessibleObject)>(kLibrary, "CreateStdAccessibleObject");
    void* object = nullptr;
    if (kCreate == nullptr || FAILED(kCreate(button, OBJID_CLIENT, kAccessible, &object))) {
        return nullptr;
    }
    return ComObject<IAccessible>(static_cast<IAccessible*>(object));
}

// COM's interfaces have no virtual destructors: their objects end themselves.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor)
class AccessibleButton final : public IAccessible {
public:
    AccessibleButton(HWND button, ComObject<IAccessible> standard, std::wstring (*descriptionOf)(HWND))
        : button_(button), standard_(std::move(standard)), descriptionOf_(descriptionOf) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (iid != kUnknown && iid != kDispatch && iid != kAccessible) {
            return E_NOINTERFACE;
        }
        *object = static_cast<IAccessible*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) {
            delete this;
        }
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE get_accName(VARIANT /*child*/, BSTR* name) override {
        return !Lives() ? CO_E_OBJNOTCONNECTED : Give(WithoutMnemonic(TextOf(button_)), name);
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT /*child*/, BSTR* description) override {
        return !Lives() ? CO_E_OBJNOTCONNECTED : Give(descriptionOf_(button_), description);
    }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT /*child*/, VARIANT* role) override {
        return !Lives() ? CO_E_OBJNOTCONNECTED : Give(ROLE_SYSTEM_PUSHBUTTON, role);
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) override {
        if (!Lives()) {
            return CO_E_OBJNOTCONNECTED;
        }
        const HRESULT result = standard_->get_accState(child, state);
        if (SUCCEEDED(result) && state->vt == VT_I4) {
            const LRESULT look = SendMessageW(button_, BM_GETSTATE, 0, 0);
            state->lVal |= (look & BST_PUSHED) != 0 ? STATE_SYSTEM_PRESSED : 0;
            state->lVal |= (state->lVal & STATE_SYSTEM_FOCUSED) != 0 ? STATE_SYSTEM_DEFAULT : 0;
        }
        return result;
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT /*child*/) override {
        if (!Lives() || IsWindowEnabled(GetAncestor(button_, GA_ROOT)) == FALSE) {
            return E_FAIL; // another dialog stands over the button's
        }
        // Not now: the dialog that opens would keep the screen reader waiting.
        return PostMessageW(button_, BM_CLICK, 0, 0) != FALSE ? S_OK : E_FAIL;
    }

    // The rest is as with any button.
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) override {
        return standard_->get_accParent(parent);
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) override {
        return standard_->get_accChildCount(count);
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** object) override {
        return standard_->get_accChild(child, object);
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) override {
        return standard_->get_accValue(child, value);
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* help) override {
        return standard_->get_accHelp(child, help);
    }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override {
        return standard_->get_accHelpTopic(file, child, topic);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override {
        return standard_->get_accKeyboardShortcut(child, shortcut);
    }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* focus) override { return standard_->get_accFocus(focus); }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* selection) override {
        return standard_->get_accSelection(selection);
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) override {
        return standard_->get_accDefaultAction(child, action);
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) override {
        return standard_->accSelect(flags, child);
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) override {
        return standard_->accLocation(left, top, width, height, child);
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) override {
        return standard_->accNavigate(direction, start, end);
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG left, LONG top, VARIANT* child) override {
        return standard_->accHitTest(left, top, child);
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT /*child*/, BSTR /*name*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT /*child*/, BSTR /*value*/) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        return standard_->GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return standard_->GetTypeInfo(index, locale, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override {
        return standard_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID /*member*/, REFIID /*iid*/, LCID /*locale*/, WORD /*flags*/,
                                     DISPPARAMS* /*parameters*/, VARIANT* /*result*/,
                                     EXCEPINFO* /*exception*/, UINT* /*argument*/) override {
        return E_NOTIMPL; // the standard object would answer for itself, without the description
    }

private:
    ~AccessibleButton() = default;

    /// A client may keep this longer than the window, whose handle may then be another program's.
    [[nodiscard]] bool Lives() const {
        DWORD process = 0;
        return GetWindowThreadProcessId(button_, &process) != 0 && process == GetCurrentProcessId();
    }

    static HRESULT Give(const std::wstring& text, BSTR* target) {
        if (target == nullptr) {
            return E_POINTER;
        }
        *target = text.empty() ? nullptr : AllocateText(text);
        return *target != nullptr ? S_OK : S_FALSE;
    }
    static HRESULT Give(LONG number, VARIANT* target) {
        if (target == nullptr) {
            return E_POINTER;
        }
        target->vt = VT_I4;
        target->lVal = number;
        return S_OK;
    }

    LONG references_ = 1;
    HWND button_;
    ComObject<IAccessible> standard_;
    std::wstring (*descriptionOf_)(HWND);
};
#pragma GCC diagnostic pop

} // namespace

LRESULT AnswerScreenReader(HWND button, WPARAM wParam, LPARAM lParam,
                           std::wstring (*descriptionOf)(HWND button)) {
    if (static_cast<LONG>(lParam) != OBJID_CLIENT) {
        return 0;
    }
    static const auto kToLresult =
        SystemProcedure<decltype(LresultFromObject)>(kLibrary, "LresultFromObject");
    auto standard = StandardObject(button);
    if (kToLresult == nullptr || !standard) {
        return 0;
    }
    const ComObject<IAccessible> answer(new AccessibleButton(button, std::move(standard), descriptionOf));
    const LRESULT result = kToLresult(kAccessible, wParam, answer.get());
    return result > 0 ? result : 0; // less is a failure
}

void TellDescriptionChanged(HWND button) {
    NotifyWinEvent(EVENT_OBJECT_DESCRIPTIONCHANGE, button, OBJID_CLIENT, CHILDID_SELF);
}

#include "platform/windows/AutomationObject.h"

#include "platform/windows/SystemLibrary.h"

#include <oleauto.h>

#include <utility>

namespace {

constexpr IID kDispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kNull{};

template <class Procedure> Procedure* AutomationProcedure(const char* name) {
    return SystemProcedure<Procedure>(L"oleaut32.dll", name);
}

/// A VARIANT that frees what it holds.
class Variant {
public:
    Variant() = default;
    explicit Variant(const std::wstring& text) {
        static const auto kAllocate = AutomationProcedure<decltype(SysAllocStringLen)>("SysAllocStringLen");
        if (kAllocate != nullptr) {
            variant_.vt = VT_BSTR;
            variant_.bstrVal = kAllocate(text.data(), static_cast<UINT>(text.size()));
        }
    }
    ~Variant() {
        static const auto kClear = AutomationProcedure<decltype(VariantClear)>("VariantClear");
        if (kClear != nullptr) {
            kClear(&variant_);
        }
    }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    [[nodiscard]] VARIANT* Get() { return &variant_; }

    /// Null when it holds no object.
    [[nodiscard]] ComObject<IDispatch> Object() const {
        return variant_.vt == VT_DISPATCH && variant_.pdispVal != nullptr
                   ? QueryComObject<IDispatch>(*variant_.pdispVal, kDispatch)
                   : nullptr;
    }
    [[nodiscard]] std::optional<std::wstring> Text() const {
        static const auto kLength = AutomationProcedure<decltype(SysStringLen)>("SysStringLen");
        if (variant_.vt != VT_BSTR || kLength == nullptr) {
            return std::nullopt;
        }
        return std::wstring(variant_.bstrVal, variant_.bstrVal == nullptr ? 0 : kLength(variant_.bstrVal));
    }

private:
    VARIANT variant_{}; // VT_EMPTY
};

bool Invoke(IDispatch& object, const wchar_t* name, WORD kind, Variant* argument, Variant& result) {
    std::wstring memberName = name;
    LPOLESTR names = memberName.data();
    DISPID member = 0;
    if (FAILED(object.GetIDsOfNames(kNull, &names, 1, LOCALE_USER_DEFAULT, &member))) {
        return false;
    }
    DISPPARAMS parameters{};
    if (argument != nullptr) {
        parameters.rgvarg = argument->Get();
        parameters.cArgs = 1;
    }
    return SUCCEEDED(
        object.Invoke(member, kNull, LOCALE_USER_DEFAULT, kind, &parameters, result.Get(), nullptr, nullptr));
}

} // namespace

std::optional<AutomationObject> AutomationObject::Create(const wchar_t* name) {
    static const auto kClassFromName =
        SystemProcedure<decltype(CLSIDFromProgID)>(L"ole32.dll", "CLSIDFromProgID");
    CLSID classId{};
    if (kClassFromName == nullptr || FAILED(kClassFromName(name, &classId))) {
        return std::nullopt;
    }
    auto object = CreateComObject<IDispatch>(classId, kDispatch);
    return object ? std::optional(AutomationObject(std::move(object))) : std::nullopt;
}

std::optional<AutomationObject> AutomationObject::CallForObject(const wchar_t* method,
                                                                const std::wstring& argument) const {
    Variant file(argument);
    Variant result;
    if (!Invoke(*object_, method, DISPATCH_METHOD, &file, result)) {
        return std::nullopt;
    }
    auto object = result.Object();
    return object ? std::optional(AutomationObject(std::move(object))) : std::nullopt;
}

std::optional<std::wstring> AutomationObject::GetText(const wchar_t* property) const {
    Variant result;
    return Invoke(*object_, property, DISPATCH_PROPERTYGET, nullptr, result) ? result.Text() : std::nullopt;
}

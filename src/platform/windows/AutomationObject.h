#pragma once

#include "platform/windows/Com.h"

#include <oaidl.h>

#include <optional>
#include <string>

/// An object that is called by names (IDispatch).
class AutomationObject {
public:
    /// By its registered name, such as "WScript.Shell". Nothing when it is missing.
    [[nodiscard]] static std::optional<AutomationObject> Create(const wchar_t* name);

    /// Calls a method that takes a text and answers an object. Nothing when it fails.
    [[nodiscard]] std::optional<AutomationObject> CallForObject(const wchar_t* method,
                                                                const std::wstring& argument) const;
    /// A property that holds a text. Nothing when it fails, or holds something else.
    [[nodiscard]] std::optional<std::wstring> GetText(const wchar_t* property) const;

private:
    explicit AutomationObject(ComObject<IDispatch> object) : object_(std::move(object)) {}

    ComObject<IDispatch> object_;
};

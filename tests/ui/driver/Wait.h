#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace UiDriver {

using Milliseconds = std::chrono::milliseconds;

inline constexpr Milliseconds kDefaultTimeout{30000};

/// Every failure of the driver is a std::runtime_error with `message` in UTF-8.
[[noreturn]] void Fail(std::wstring_view message);

/// As Fail, with the system's number of the last error.
[[noreturn]] void FailLastError(std::wstring_view action);

std::string ToUtf8(std::wstring_view text);
std::wstring FromUtf8(std::string_view text);

void Pause(Milliseconds duration);

/// Polls until `condition` holds; fails naming `awaited` when it does not in time.
void WaitUntil(const std::function<bool()>& condition, std::wstring_view awaited,
               Milliseconds timeout = kDefaultTimeout);

/// Whether `condition` holds at every look during the whole of `duration`: for what must not happen.
bool HoldsFor(const std::function<bool()>& condition, Milliseconds duration);

/// Polls until `find` answers a value, and returns it.
template <class Finder>
auto WaitForValue(const Finder& find, std::wstring_view awaited, Milliseconds timeout = kDefaultTimeout) {
    auto found = find();
    if (!found) {
        const auto look = [&] {
            found = find();
            return found.has_value();
        };
        WaitUntil(look, awaited, timeout);
    }
    return std::move(*found);
}

} // namespace UiDriver

#include "Wait.h"

#include "Win32.h"

#include <stdexcept>

namespace UiDriver {
namespace {

using Clock = std::chrono::steady_clock;

constexpr Milliseconds kPollInterval{10};

} // namespace

void Fail(std::wstring_view message) {
    throw std::runtime_error(ToUtf8(message));
}

void FailLastError(std::wstring_view action) {
    const DWORD error = GetLastError();
    Fail(std::wstring(action) + L" failed with system error " + std::to_wstring(error));
}

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::wstring FromUtf8(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int needed = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), needed);
    return wide;
}

void Pause(Milliseconds duration) {
    Sleep(static_cast<DWORD>(duration.count()));
}

void WaitUntil(const std::function<bool()>& condition, std::wstring_view awaited, Milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    for (;;) {
        // The deadline is read before the look: a slow machine still gets one look after it.
        const bool last = Clock::now() >= deadline;
        if (condition()) {
            return;
        }
        if (last) {
            Fail(L"timed out after " + std::to_wstring(timeout.count()) + L" ms waiting for " +
                 std::wstring(awaited));
        }
        Pause(kPollInterval);
    }
}

bool HoldsFor(const std::function<bool()>& condition, Milliseconds duration) {
    const auto deadline = Clock::now() + duration;
    for (;;) {
        const bool last = Clock::now() >= deadline;
        if (!condition()) {
            return false;
        }
        if (last) {
            return true;
        }
        Pause(kPollInterval);
    }
}

} // namespace UiDriver

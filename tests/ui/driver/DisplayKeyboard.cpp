#include "DisplayKeyboard.h"

#include "TextFile.h"
#include "UnixPath.h"
#include "Wait.h"

#include <cstdint>
#include <cstdlib>

namespace UiDriver::DisplayKeyboard {
namespace {

/// Wine's own name for the window that the display has for one of its.
constexpr wchar_t kDisplayWindow[] = L"__wine_x11_whole_window";

std::string OutputOfXdotool(const std::string& arguments) {
    const std::wstring output = OwnDirectory() + L"\\xdotool-" + std::to_wstring(GetCurrentProcessId());
    const std::string path = UnixPath(OwnDirectory()) + "/xdotool-" + std::to_string(GetCurrentProcessId());
    // Nothing tells when a program of the system below Wine has ended.
    const std::string command =
        "xdotool " + arguments + " >'" + path + ".part'; mv '" + path + ".part' '" + path + "'";
    const std::wstring shell = OnDriveZ("/bin/sh");
    std::wstring line = L"sh -c \"" + FromUtf8(command) + L'"';
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(shell.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &started)) {
        FailLastError(L"starting " + line);
    }
    const std::string text =
        WaitForValue([&] { return ReadBytes(output); }, L"the end of xdotool " + FromUtf8(arguments));
    RemoveFile(output);
    return text;
}

} // namespace

void Press(const std::string& keys) {
    OutputOfXdotool("key " + keys);
}

bool IsWith(const Window& window) {
    const auto shown = reinterpret_cast<std::uintptr_t>(GetPropW(window.Hwnd(), kDisplayWindow));
    return shown != 0 && shown == std::strtoull(OutputOfXdotool("getwindowfocus").c_str(), nullptr, 10);
}

void AwaitWith(const Window& window) {
    WaitUntil([&] { return IsWith(window); },
              L"the display's keyboard to be with \"" + window.Title() + L'"');
}

} // namespace UiDriver::DisplayKeyboard

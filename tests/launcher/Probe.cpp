// What tests let the launcher start: it reports how it was started, and then does what its command line says:
// "/late:MS" waits before anything else, "/window" shows a window and stays, "/linger:MS" ends that much later.

#include <windows.h>

#include <array>
#include <string>

namespace {

std::string Utf8(const std::wstring& text) {
    std::string bytes(text.size() * 4, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                           bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

std::wstring OwnFile() {
    std::array<wchar_t, 1024> path{};
    return {path.data(), GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()))};
}

std::wstring Directory() {
    std::array<wchar_t, 1024> path{};
    return {path.data(), GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data())};
}

/// One line, by one write, so that programs that start together do not mix theirs.
void Report(const std::wstring& event) {
    std::array<wchar_t, 1024> folder{};
    GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    LARGE_INTEGER time{};
    QueryPerformanceCounter(&time);
    const std::wstring line = event + L'\t' + OwnFile() + L'\t' + GetCommandLineW() + L'\t' + Directory() +
                              L'\t' + std::to_wstring(time.QuadPart) + L'\n';
    const HANDLE file = CreateFileW((std::wstring(folder.data()) + L"qlbprobe.log").c_str(), FILE_APPEND_DATA,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        const std::string bytes = Utf8(line);
        DWORD written = 0;
        WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
        CloseHandle(file);
    }
}

DWORD Option(const std::wstring& line, const std::wstring& name) {
    const std::size_t pos = line.find(name);
    return pos == std::wstring::npos ? 0 : static_cast<DWORD>(_wtol(line.c_str() + pos + name.size()));
}

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, wchar_t* line, int show) {
    Report(L"started");
    Sleep(Option(line, L"/late:"));
    if (std::wstring(line).find(L"/window") != std::wstring::npos) {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = WindowProc;
        windowClass.hInstance = instance;
        windowClass.lpszClassName = L"QLBProbe";
        windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
        RegisterClassW(&windowClass);
        ShowWindow(CreateWindowExW(0, L"QLBProbe", line, WS_OVERLAPPEDWINDOW, 100, 100, 400, 200, nullptr,
                                   nullptr, instance, nullptr),
                   show);
        Report(L"shown");
        MSG message{};
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }
    Sleep(Option(line, L"/linger:"));
    Report(L"ended");
    return 0;
}

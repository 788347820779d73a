// Tells the benchmark when its first instruction ran.

#include <windows.h>

int WINAPI wWinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, wchar_t* /*line*/, int /*show*/) {
    LARGE_INTEGER now{};
    QueryPerformanceCounter(&now);
    const HANDLE memory = OpenFileMappingW(FILE_MAP_WRITE, FALSE, L"QLBLauncherBench");
    auto* const time = static_cast<LONGLONG*>(MapViewOfFile(memory, FILE_MAP_WRITE, 0, 0, sizeof(LONGLONG)));
    if (time == nullptr) {
        return 1;
    }
    *time = now.QuadPart;
    SetEvent(OpenEventW(EVENT_MODIFY_STATE, FALSE, L"QLBLauncherBenchStarted"));
    return 0;
}

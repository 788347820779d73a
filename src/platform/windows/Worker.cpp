#include "platform/windows/Worker.h"

#include "platform/windows/KernelHandle.h"

#include <windows.h>

#include <atomic>
#include <memory>
#include <utility>

namespace {

using Work = std::function<void()>;

std::atomic<int>& RunningWorkers() {
    static std::atomic<int> running = 0;
    return running;
}

DWORD WINAPI RunWork(void* parameter) noexcept {
    {
        const std::unique_ptr<Work> work(static_cast<Work*>(parameter));
        (*work)();
    }
    --RunningWorkers();
    return 0;
}

} // namespace

bool StartWorker(Work work) {
    auto owned = std::make_unique<Work>(std::move(work));
    ++RunningWorkers();
    const KernelHandle thread(CreateThread(nullptr, 0, RunWork, owned.get(), 0, nullptr));
    if (!thread) {
        --RunningWorkers();
        return false;
    }
    (void)owned.release(); // the thread's now
    return true;
}

bool WorkersRun() {
    return RunningWorkers() != 0;
}

#pragma once

#include <functional>

/// Runs `work` on a thread of its own, which nothing waits for: the work owns whatever it touches. False when
/// no thread could be started.
bool StartWorker(std::function<void()> work);

/// Whether a worker has not come to its end. The process then ends without taking anything apart that it may
/// still use.
[[nodiscard]] bool WorkersRun();

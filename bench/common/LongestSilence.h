#pragma once

#include <windows.h>

#include <functional>

/// Does the work while another thread sends the window one message after the other, then answers messages until
/// `done`. Returns the milliseconds that the slowest answer took. `idle` is called when no message waits; false
/// when it had nothing to do.
double LongestSilence(HWND window, const std::function<void()>& work, const std::function<bool()>& done,
                      const std::function<bool()>& idle);

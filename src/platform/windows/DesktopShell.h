#pragma once

#include "platform/ProgramStarter.h"

/// Whether this program is elevated and its user's desktop is not. Asked anew each time: the desktop may come late.
[[nodiscard]] bool HasMoreRightsThanDesktop();

/// How its window is to be shown (SW_...).
[[nodiscard]] int ShowCommand(const StartRequest& request);

/// Has the desktop start it, with the desktop's own rights. False when the desktop can't be reached; what it makes
/// of the request it does not say.
[[nodiscard]] bool StartByDesktop(const StartRequest& request);

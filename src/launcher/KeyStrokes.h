#pragma once

#include "platform/KeyCode.h"
#include "platform/KeySender.h"

#include <vector>

/// The strokes that press a key with just its own modifiers while `held` ones are down, which are let go before
/// and pressed again behind it. A lone Alt or Windows key would open a menu when it is let go; a key that means
/// nothing keeps it from being alone.
[[nodiscard]] std::vector<KeyStroke> StrokesFor(const KeyCode& key, const std::vector<KeyStroke>& held);

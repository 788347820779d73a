#pragma once

#include "Picture.h"

#include <optional>

namespace UiDriver {

/// What a message box shows beside its text.
enum class BoxIcon { None, Stop, Question, Warning, Information };

/// The icon of the system that a picture shows on an even ground; nullopt when it shows none of them.
std::optional<BoxIcon> RecogniseIcon(const Picture& shown);

} // namespace UiDriver

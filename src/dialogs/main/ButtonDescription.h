#pragma once

#include "settings/Pattern.h"

#include <string>

class StringTable;

/// What a screen reader says of a button besides its label: how it starts how many programs, as its picture
/// shows it.
[[nodiscard]] std::wstring ButtonDescription(ButtonPicture picture, const ButtonSlot& slot,
                                             const StringTable& texts);

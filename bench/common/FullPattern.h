#pragma once

#include "settings/Pattern.h"

/// A Pattern whose every field holds something; another `seed` gives other texts.
inline Pattern FullPattern(int seed) {
    const std::wstring number = std::to_wstring(seed);
    Pattern pattern;
    pattern.UserName = L"Pattern " + number;
    for (int button = 1; button <= kMaxButtons; ++button) {
        ButtonSlot& slot = pattern.Btn(button);
        slot.Name = L"Button " + std::to_wstring(button) + L" of " + number;
        slot.Exec = L"S";
        slot.NumAP = kMaxPrograms;
        for (int k = 1; k <= kMaxPrograms; ++k) {
            const std::wstring program = L"Program " + std::to_wstring(k) + L" of " + number;
            slot.Program(k).AP = L"C:\\Program Files\\Somewhere\\" + program + L".exe";
            slot.Program(k).Param = L"/open \"C:\\Users\\Somebody\\Documents\\" + program + L".txt\"";
            slot.Program(k).Title = program;
        }
    }
    return pattern;
}

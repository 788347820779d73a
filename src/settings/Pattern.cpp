#include "settings/Pattern.h"

#include "settings/StdModule.h"

namespace {

bool SlotsEqual(const ButtonSlot& a, const ButtonSlot& b) {
    if (a.Name != b.Name || !EqualsIgnoreCase(a.Exec, b.Exec) || a.NumAP != b.NumAP) {
        return false;
    }
    for (int k = 1; k <= kMaxPrograms; ++k) {
        const ProgramEntry& one = a.Program(k);
        const ProgramEntry& other = b.Program(k);
        if (!EqualsIgnoreCase(one.AP, other.AP) || !EqualsIgnoreCase(one.Param, other.Param)) {
            return false;
        }
    }
    return true;
}

bool ReplaceUnknownMethod(ButtonSlot& slot) {
    if (LaunchMethodFromText(slot.Exec) != LaunchMethod::Unknown) {
        return false;
    }
    slot.Exec = L"M";
    return true;
}

} // namespace

LaunchMethod LaunchMethodFromText(std::wstring_view exec) {
    if (EqualsIgnoreCase(exec, L"M")) {
        return LaunchMethod::Single;
    }
    if (EqualsIgnoreCase(exec, L"K")) {
        return LaunchMethod::ShortcutKey;
    }
    if (EqualsIgnoreCase(exec, L"S")) {
        return LaunchMethod::Sequential;
    }
    if (EqualsIgnoreCase(exec, L"P")) {
        return LaunchMethod::Simultaneous;
    }
    return LaunchMethod::Unknown;
}

bool PatternsEqual(const Pattern& a, const Pattern& b, int buttonCount) {
    for (int number = 1; number <= buttonCount; ++number) {
        if (!SlotsEqual(a.Btn(number), b.Btn(number))) {
            return false;
        }
    }
    return true;
}

ButtonPicture ButtonPictureIndex(Pattern& working, Pattern& unchanged, int number) {
    ButtonSlot& slot = working.Btn(number);
    ReplaceUnknownMethod(unchanged.Btn(number));
    if (ReplaceUnknownMethod(slot) || slot.NumAP == 0) {
        return kPictureNoApp;
    }
    switch (LaunchMethodFromText(slot.Exec)) {
    case LaunchMethod::Sequential:
        return kPictureSequence;
    case LaunchMethod::Simultaneous:
        return kPictureSimul;
    default:
        return kPictureSingle;
    }
}

#include "dialogs/main/ButtonDescription.h"

#include "app/StringTable.h"
#include "settings/StdModule.h"

#include <algorithm>

namespace {

std::wstring MethodName(ButtonPicture picture, const StringTable& texts) {
    switch (picture) {
    case kPictureSequence:
        return texts.ResText(kTextSequential);
    case kPictureSimul:
        return texts.ResText(kTextSimultaneous);
    default:
        return texts.ResText(kTextSingle);
    }
}

std::wstring CountOfPrograms(int count, const StringTable& texts) {
    if (count == 1) {
        return texts.ResText(kTextOneProgram);
    }
    std::wstring text = texts.ResText(kTextSomeNumberOfPrograms);
    constexpr std::wstring_view kPlace = L"%d";
    if (const std::size_t place = text.find(kPlace); place != std::wstring::npos) {
        text.replace(place, kPlace.size(), DecimalText(count));
    }
    return text;
}

} // namespace

std::wstring ButtonDescription(ButtonPicture picture, const ButtonSlot& slot, const StringTable& texts) {
    if (picture == kPictureNoApp) {
        return texts.ResText(kTextNoProgram);
    }
    if (LaunchMethodFromText(slot.Exec) == LaunchMethod::ShortcutKey) {
        return texts.ResText(kTextShortcutKey);
    }
    const int count = picture == kPictureSingle ? 1 : std::clamp<int>(slot.NumAP, 1, kMaxPrograms);
    return MethodName(picture, texts) + texts.ResText(kTextListSeparator) + CountOfPrograms(count, texts);
}

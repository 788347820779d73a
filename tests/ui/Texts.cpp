#include "Texts.h"

#include "driver/Driver.h"

#include <map>

namespace {

std::map<int, std::wstring> LoadTexts(bool japaneseTexts) {
    std::map<int, std::wstring> texts;
#define QLB_STRING(id, english, japanese) texts[id] = japaneseTexts ? L##japanese : L##english;
#include "resources/LauncherTexts.inc"
#include "resources/OwnTexts.inc"
#include "resources/StringTable.inc"
#undef QLB_STRING
    return texts;
}

} // namespace

bool Japanese() {
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE;
}

std::wstring Text(int id) {
    static const std::map<int, std::wstring> kTexts = LoadTexts(Japanese());
    const auto found = kTexts.find(id);
    if (found == kTexts.end()) {
        UiDriver::Fail(L"the string table has no id " + std::to_wstring(id));
    }
    return found->second;
}

std::wstring Local(const wchar_t* english, const wchar_t* japanese) {
    return Japanese() ? japanese : english;
}

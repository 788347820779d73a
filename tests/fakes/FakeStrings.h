#pragma once

#include "platform/StringSource.h"

#include <map>

enum class Language { English, Japanese };

/// The program's own string table, in a language of the test's choice.
class FakeStrings final : public StringSource {
public:
    explicit FakeStrings(Language language = Language::English) {
        const bool japanese = language == Language::Japanese;
#define QLB_STRING(id, english, japaneseText) texts_[id] = japanese ? L##japaneseText : L##english;
#include "resources/LauncherTexts.inc"
#include "resources/OwnTexts.inc"
#include "resources/StringTable.inc"
#undef QLB_STRING
    }

    [[nodiscard]] std::wstring Load(int id) const override {
        const auto found = texts_.find(id);
        return found == texts_.end() ? std::wstring() : found->second;
    }

private:
    std::map<int, std::wstring> texts_;
};

#include "exchange/Settings.h"

#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <algorithm>
#include <span>

namespace {

std::vector<std::wstring> NamesOf(std::span<const StoredName> names) {
    std::vector<std::wstring> keys;
    for (const StoredName& name : names) {
        keys.emplace_back(name.iniName);
    }
    return keys;
}

std::optional<std::wstring> NamedAlike(const std::vector<std::wstring>& names, std::wstring_view name) {
    const auto found =
        std::ranges::find_if(names, [&](const std::wstring& each) { return EqualsIgnoreCase(each, name); });
    return found == names.end() ? std::nullopt : std::optional(*found);
}

} // namespace

const std::vector<std::wstring>& LayoutSections() {
    static const std::vector<std::wstring> kSections = [] {
        std::vector<std::wstring> sections{kProgramSection, kOnScreenSection};
        for (int number = 1; number <= kMaxPatterns; ++number) {
            sections.push_back(PatternSection(number));
        }
        return sections;
    }();
    return kSections;
}

const std::vector<std::wstring>& LayoutKeys(const std::wstring& section) {
    static const std::vector<std::wstring> kProgram = NamesOf(kProgramNames);
    static const std::vector<std::wstring> kOnScreen = NamesOf(kOnScreenNames);
    static const std::vector<std::wstring> kPattern = [] {
        std::vector<std::wstring> keys;
        for (const PatternEntry& entry : PatternEntries(kMaxButtons)) {
            keys.push_back(entry.key);
        }
        return keys;
    }();
    return section == kProgramSection ? kProgram : section == kOnScreenSection ? kOnScreen : kPattern;
}

std::optional<std::wstring> KnownSection(std::wstring_view section) {
    return NamedAlike(LayoutSections(), section);
}

std::optional<std::wstring> KnownKey(const std::wstring& knownSection, std::wstring_view key) {
    return NamedAlike(LayoutKeys(knownSection), key);
}

int PatternNumber(const std::wstring& section) {
    const auto& sections = LayoutSections();
    const auto found = std::ranges::find(sections, section);
    const auto others = static_cast<int>(sections.size()) - kMaxPatterns;
    return found == sections.end() ? 0 : std::max(0, static_cast<int>(found - sections.begin()) - others + 1);
}

void EraseSection(Settings& settings, const std::wstring& section) {
    std::erase_if(settings, [&](const auto& entry) { return entry.first.section == section; });
}

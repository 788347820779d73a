#include "exchange/Changes.h"

#include "exchange/StoredSettings.h"
#include "settings/RegIniFunc.h"

#include <algorithm>
#include <vector>

namespace {

struct Change {
    EntryName name;
    std::optional<RegistryValue> from; ///< nothing: not there
    std::optional<RegistryValue> to;
};

std::optional<RegistryValue> Find(const Settings& settings, const EntryName& name) {
    const auto found = settings.find(name);
    return found == settings.end() ? std::nullopt : std::optional(found->second);
}

/// The Patterns first, then the numbers that say which of them count.
std::vector<Change> Differences(const Settings& from, const Settings& to) {
    std::vector<Change> changes;
    const auto add = [&](const std::wstring& section) {
        for (const std::wstring& key : LayoutKeys(section)) {
            const EntryName name{section, key};
            Change change{name, Find(from, name), Find(to, name)};
            if (change.from != change.to) {
                changes.push_back(std::move(change));
            }
        }
    };
    const auto& sections = LayoutSections();
    std::for_each(sections.rbegin(), sections.rend(), add);
    return changes;
}

bool Put(StoredSettings& store, const EntryName& name, const std::optional<RegistryValue>& value) {
    return value ? store.Write(name, *value) : store.Remove(name);
}

} // namespace

std::optional<Refusal> Apply(StoredSettings& store, const Settings& from, const Settings& to) {
    const std::vector<Change> changes = Differences(from, to);
    auto refused = changes.begin();
    while (refused != changes.end() && Put(store, refused->name, refused->to)) {
        ++refused;
    }
    if (refused == changes.end()) {
        const Settings stored = store.Read();
        if (stored == to) {
            store.RemoveEmptyKeys();
            return std::nullopt;
        }
        const std::vector<Change> wrong = Differences(stored, to);
        refused = std::ranges::find(changes, wrong.front().name, &Change::name);
    }
    const EntryName name = refused == changes.end() ? EntryName{} : refused->name;
    // Also the refused one: it may have got half its way.
    for (const Change& change : Differences(store.Read(), from)) {
        (void)Put(store, change.name, change.to); // whether it worked, the look below tells
    }
    return Refusal{name, store.Read() == from};
}

Settings WithKeyboardOf(Settings settings, const Settings& stored) {
    const EntryName keyboard{kProgramSection, L"QLBKeyboard"};
    if (const auto value = Find(stored, keyboard); value && !settings.contains(keyboard)) {
        settings[keyboard] = *value;
    }
    return settings;
}

#include "launcher/LauncherKeys.h"

#include "launcher/KeyCodes.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <string>

namespace {

constexpr const wchar_t* kLaunchKeyName = L"LaunchKey";
constexpr const wchar_t* kCombinationName = L"Key";
constexpr int kProbeId = 100;

bool IsLaunchKey(const KeyCode& key) {
    return std::ranges::any_of(
        LaunchKeys(), [&](const LaunchKey& launchKey) { return key == KeyCode{.key = launchKey.key}; });
}

KeyCode LoadKey(const RegIniFunc& store, const std::wstring& name, const KeyCode& fallback,
                bool (*isValid)(const KeyCode&)) {
    constexpr std::int32_t kMissing = -1;
    const std::int32_t number = store.RegGetDword(RegistryHive::CurrentUser, kLauncherKey, name, kMissing);
    const KeyCode key = KeyFromNumber(number);
    if (number == 0) {
        return {};
    }
    return number > 0 && isValid(key) ? key : fallback;
}

/// Launch keys first, then combinations.
std::vector<KeyCode> InPlaces(const AllKeys& keys) {
    std::vector<KeyCode> places;
    for (int button = 1; button <= kMaxButtons; ++button) {
        places.push_back(keys(button).launchKey);
    }
    for (int button = 1; button <= kMaxButtons; ++button) {
        places.push_back(keys(button).combination);
    }
    return places;
}

} // namespace

AllKeys DefaultKeys() {
    AllKeys keys;
    for (int button = 1; button <= kMaxButtons; ++button) {
        if (button <= kDesktopButtons) {
            keys(button).launchKey.key = LaunchKeys().at(static_cast<std::size_t>(button) - 1).key;
        }
        KeyCode& combination = keys(button).combination;
        combination.key = static_cast<std::uint8_t>('0' + button);
        combination.ctrl = true;
        combination.alt = true;
    }
    return keys;
}

AllKeys LoadKeys(const RegIniFunc& store) {
    AllKeys keys = DefaultKeys();
    for (int button = 1; button <= kMaxButtons; ++button) {
        ButtonKeys& both = keys(button);
        both.launchKey = LoadKey(store, kLaunchKeyName + DecimalText(button), both.launchKey, IsLaunchKey);
        both.combination =
            LoadKey(store, kCombinationName + DecimalText(button), both.combination, CanBeHotKey);
    }
    return keys;
}

void SaveKeys(RegIniFunc& store, const AllKeys& keys) {
    const auto write = [&](const wchar_t* name, int button, const KeyCode& key) {
        store.RegSetDword(RegistryHive::CurrentUser, kLauncherKey, name + DecimalText(button),
                          NumberOfKey(key));
    };
    for (int button = 1; button <= kMaxButtons; ++button) {
        write(kLaunchKeyName, button, keys(button).launchKey);
        write(kCombinationName, button, keys(button).combination);
    }
}

std::vector<KeyProblem> KeyProblems(const AllKeys& keys, const std::function<bool(const KeyCode&)>& isTaken) {
    const std::vector<KeyCode> places = InPlaces(keys);
    std::vector<KeyProblem> problems;
    for (const KeyCode& key : places) {
        const auto isThisOne = [&](const KeyCode& other) { return SameHotKey(key, other); };
        KeyProblem problem = KeyProblem::None;
        if (key.key == 0) {
            problem = KeyProblem::None;
        } else if (!CanBeHotKey(key)) {
            problem = KeyProblem::ForTyping;
        } else if (std::ranges::count_if(places, isThisOne) > 1) {
            problem = KeyProblem::Twice;
        } else if (isTaken(key)) {
            problem = KeyProblem::Taken;
        }
        problems.push_back(problem);
    }
    return problems;
}

std::vector<KeyCode> LauncherKeys::Take(const AllKeys& keys, const std::vector<int>& buttons) {
    std::vector<Taken> wanted;
    for (const int button : buttons) {
        int id = 2 * button;
        for (const KeyCode& key : {keys(button).launchKey, keys(button).combination}) {
            if (key.key != 0) {
                wanted.push_back({id, button, key});
            }
            ++id;
        }
    }
    std::erase_if(taken_, [&](const Taken& taken) {
        const bool stays = std::ranges::find(wanted, taken) != wanted.end();
        if (!stays) {
            hotKeys_.Unregister(taken.id);
        }
        return !stays;
    });
    std::vector<KeyCode> ofOthers;
    for (const Taken& each : wanted) {
        if (std::ranges::find(taken_, each) != taken_.end()) {
            continue;
        }
        if (hotKeys_.Register(each.id, each.key) == HotKeyAnswer::Registered) {
            taken_.push_back(each);
        } else {
            ofOthers.push_back(each.key);
        }
    }
    return ofOthers;
}

void LauncherKeys::LetGo() {
    for (const Taken& taken : taken_) {
        hotKeys_.Unregister(taken.id);
    }
    taken_.clear();
}

std::optional<int> LauncherKeys::OnHotKey(int id) {
    const auto taken = std::ranges::find(taken_, id, &Taken::id);
    if (taken == taken_.end() || !held_.insert(taken->key.key).second) {
        return std::nullopt;
    }
    return taken->button;
}

bool LauncherKeys::AnyHeld() {
    std::erase_if(held_, [&](std::uint8_t key) { return !hotKeys_.IsDown(key); });
    return !held_.empty();
}

bool LauncherKeys::IsTakenByOther(const KeyCode& key) {
    const HotKeyAnswer answer = hotKeys_.Register(kProbeId, key);
    if (answer == HotKeyAnswer::Registered) {
        hotKeys_.Unregister(kProbeId);
    }
    return answer == HotKeyAnswer::Taken;
}

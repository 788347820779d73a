#pragma once

#include "platform/HotKeys.h"
#include "settings/Pattern.h"

#include <functional>
#include <optional>
#include <set>
#include <vector>

class RegIniFunc;

/// The two keys of a button; either may be none.
struct ButtonKeys {
    KeyCode launchKey;   ///< one of the keyboard's own for starting something
    KeyCode combination; ///< any other

    bool operator==(const ButtonKeys&) const = default;
};
using AllKeys = NumberedFrom1<ButtonKeys, kMaxButtons>;

[[nodiscard]] AllKeys DefaultKeys();
/// HKCU "Launcher": "LaunchKey" and "Key" + button. What is missing, or may be no hot key, is as by default.
[[nodiscard]] AllKeys LoadKeys(const RegIniFunc& store);
void SaveKeys(RegIniFunc& store, const AllKeys& keys);

enum class KeyProblem { None, ForTyping, Twice, Taken };

/// The problem of the key in each place: launch keys of buttons 1...8, then their combinations. `isTaken`:
/// whether another program has a key.
[[nodiscard]] std::vector<KeyProblem> KeyProblems(const AllKeys& keys,
                                                  const std::function<bool(const KeyCode&)>& isTaken);

/// The keys that are registered with the system, and those of them that are still held.
class LauncherKeys {
public:
    explicit LauncherKeys(HotKeys& hotKeys) : hotKeys_(hotKeys) {}
    ~LauncherKeys() { LetGo(); }
    LauncherKeys(const LauncherKeys&) = delete;
    LauncherKeys& operator=(const LauncherKeys&) = delete;

    /// Takes the keys of these buttons, and no others; what is ours already stays, so that no press gets lost.
    /// Returns those that another program has.
    std::vector<KeyCode> Take(const AllKeys& keys, const std::vector<int>& buttons);
    /// No key is ours.
    void LetGo();

    /// The button of a reported key. Nothing while the key is held since it was reported before: some systems
    /// report a held key again and again.
    [[nodiscard]] std::optional<int> OnHotKey(int id);
    /// Whether a key is still held: if so, someone should ask again soon.
    [[nodiscard]] bool AnyHeld();

    [[nodiscard]] bool IsTakenByOther(const KeyCode& key);

private:
    struct Taken {
        int id = 0;
        int button = 0;
        KeyCode key;

        bool operator==(const Taken&) const = default;
    };

    HotKeys& hotKeys_;
    std::vector<Taken> taken_;
    std::set<std::uint8_t> held_;
};

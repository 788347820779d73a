#include "launcher/KeyCodes.h"

#include "app/StringTable.h"
#include "launcher/LauncherTexts.h"
#include "platform/HotKeys.h"
#include "settings/StdModule.h"

namespace {

constexpr std::uint32_t kKeyMask = 0xFF;
constexpr std::uint32_t kShift = 0x100;
constexpr std::uint32_t kCtrl = 0x200;
constexpr std::uint32_t kAlt = 0x400;
constexpr std::uint32_t kExtended = 0x800;

constexpr std::uint8_t kPause = 0x13;
constexpr std::uint8_t kFirstFunctionKey = 0x70; ///< F1
constexpr std::uint8_t kLastFunctionKey = 0x87;  ///< F24
constexpr std::uint8_t kFirstBrowserKey = 0xA6;  ///< and behind it the keys for sound, media and programs
constexpr std::uint8_t kLastLaunchKey = 0xB7;

bool IsFunctionKey(std::uint8_t key) {
    return key >= kFirstFunctionKey && key <= kLastFunctionKey;
}

std::wstring NameOfKey(const KeyCode& key, const StringTable& texts, const HotKeys& keys) {
    for (const LaunchKey& launchKey : LaunchKeys()) {
        if (launchKey.key == key.key) {
            return texts.ResText(launchKey.text);
        }
    }
    if ((key.key >= '0' && key.key <= '9') || (key.key >= 'A' && key.key <= 'Z')) {
        return std::wstring(1, static_cast<wchar_t>(key.key));
    }
    if (IsFunctionKey(key.key)) {
        return L"F" + DecimalText(key.key - kFirstFunctionKey + 1);
    }
    const std::wstring name = keys.NameOf(key);
    return name.empty() ? DecimalText(key.key) : name;
}

} // namespace

const std::array<LaunchKey, kLaunchKeys>& LaunchKeys() {
    static constexpr std::array<LaunchKey, kLaunchKeys> kKeys{{{0xB4, kTextKeyMail},
                                                               {0xAC, kTextKeyHome},
                                                               {0xB5, kTextKeyMedia},
                                                               {0xB6, kTextKeyApplication1},
                                                               {0xB7, kTextKeyApplication2},
                                                               {0xAA, kTextKeySearch},
                                                               {0xAB, kTextKeyFavorites}}};
    return kKeys;
}

KeyCode KeyFromNumber(std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    KeyCode key;
    key.key = static_cast<std::uint8_t>(bits & kKeyMask);
    key.shift = (bits & kShift) != 0;
    key.ctrl = (bits & kCtrl) != 0;
    key.alt = (bits & kAlt) != 0;
    key.extended = (bits & kExtended) != 0;
    return key;
}

std::int32_t NumberOfKey(const KeyCode& key) {
    return static_cast<std::int32_t>(key.key | (key.shift ? kShift : 0) | (key.ctrl ? kCtrl : 0) |
                                     (key.alt ? kAlt : 0) | (key.extended ? kExtended : 0));
}

std::wstring KeyText(const KeyCode& key, const StringTable& texts, const HotKeys& keys) {
    std::wstring text;
    text += key.ctrl ? L"Ctrl + " : L"";
    text += key.shift ? L"Shift + " : L"";
    text += key.alt ? L"Alt + " : L"";
    return text + NameOfKey(key, texts, keys);
}

bool CanBeHotKey(const KeyCode& key) {
    constexpr std::uint8_t kLastMouseButton = 6;
    constexpr std::uint8_t kFirstModifier = 0x10;
    constexpr std::uint8_t kLastModifier = 0x12;
    if (key.key <= kLastMouseButton || key.key == 0xFF ||
        (key.key >= kFirstModifier && key.key <= kLastModifier)) {
        return false;
    }
    return key.ctrl || key.alt || key.key == kPause || IsFunctionKey(key.key) ||
           (key.key >= kFirstBrowserKey && key.key <= kLastLaunchKey);
}

bool SameHotKey(const KeyCode& a, const KeyCode& b) {
    KeyCode other = b;
    other.extended = a.extended;
    return a == other;
}

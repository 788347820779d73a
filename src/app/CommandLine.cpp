#include "app/CommandLine.h"

#include "app/SingleInstance.h"
#include "settings/GlobalValue.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <optional>
#include <string>

namespace {

constexpr std::size_t kOptionLength = 4; ///< "/t:" or "/w:" and one digit
constexpr int kPages = 3;

/// The digit of a line such as "/t:1"; nothing when the line is not of that form, -1 when the digit is not
/// one of 0...count-1.
std::optional<int> OptionDigit(const std::wstring& line, std::wstring_view option, int count) {
    if (line.size() != kOptionLength || !EqualsIgnoreCase(line.substr(0, option.size()), option)) {
        return std::nullopt;
    }
    return NumberInRangeOr(line.substr(option.size()), 0, count - 1, -1);
}

} // namespace

bool HasKeyboard(const RegIniFunc& store) {
    const auto isNone = [](const std::wstring& text) { return text == L"0" || text == L" 0"; };
    std::wstring keyboard = store.IniGetString(kProgramSection, L"QLBKeyboard", L"0", store.OwnIniFile());
    if (isNone(keyboard)) {
        keyboard = DecimalText(store.RegGetDword(RegistryHive::LocalMachine, kProductKey, L"QLBB"));
    }
    return !isNone(keyboard);
}

bool StartUp::ParseCommandLine(std::wstring_view commandLine, RegIniFunc& store, InstanceGuard& guard,
                               TopLevelWindows& windows, const StringTable& texts) {
    *this = StartUp{};
    std::wstring line = TrimBlanks(commandLine);
    std::wstring request;
    const std::size_t wizardPos = FindIgnoreCase(line, L"/w:");
    const std::size_t requestPos = FindIgnoreCase(line, L"/ap");
    if (requestPos != std::wstring::npos && wizardPos < requestPos) {
        request = TrimBlanks(line.substr(requestPos));
        line = TrimBlanks(line.substr(wizardPos, requestPos));
    }
    store.IniFileExist = store.RegGetDword(RegistryHive::LocalMachine, kProductKey, L"QLBINI") != 0;
    // Before the keyboard is asked for: a second start brings the open dialog forward even when the keyboard
    // was unplugged meanwhile.
    if (YieldToOtherInstance(guard, windows, texts) || !HasKeyboard(store)) {
        return false;
    }
    return ParseOption(line, request);
}

bool StartUp::ParseOption(const std::wstring& line, const std::wstring& request) {
    if (EqualsIgnoreCase(line, L"/k")) {
        return true;
    }
    if (const auto page = OptionDigit(line, L"/t:", kPages)) {
        InitialPage = *page;
        return *page >= 0;
    }
    const auto button = OptionDigit(line, L"/w:", kMaxButtons);
    if (!button || *button < 0) {
        return false;
    }
    Globals().WizardForButton = true;
    WizardButton = *button;
    ButtonRequest = EqualsIgnoreCase(request, L"/ap");
    return request.empty() || ButtonRequest;
}

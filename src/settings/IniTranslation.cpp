#include "settings/IniTranslation.h"

#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

namespace {

std::wstring ProductValueName(const std::wstring& key) {
    if (key == L"QLBKeyboard") {
        return L"QLBB";
    }
    if (key == L"CurrUser") {
        return L"CurrSetting";
    }
    if (key == L"NumUser") {
        return L"NumSetting";
    }
    return key;
}

RegistryPlace OnScreenPlace(const std::wstring& key) {
    const std::wstring path = std::wstring(kProductKey) + L"\\OnScreen";
    constexpr const wchar_t* kFace = L"FontFace";
    if (key == L"FontName") {
        return {path, kFace, false};
    }
    if (key == L"FontSize") {
        return {path, L"size", true};
    }
    if (key == L"DelayTime") {
        return {path, L"Time", true};
    }
    return {path, key, !EqualsIgnoreCase(key, kFace)};
}

/// Button and program numbers are one character each in the ini-style names.
std::wstring DigitText(const std::wstring& key, std::size_t pos) {
    return DecimalText(pos < key.size() ? LeadingNumber(key.substr(pos, 1)) : 0);
}

RegistryPlace PatternPlace(const std::wstring& section, const std::wstring& key) {
    constexpr std::size_t kNumberPos = 4;
    constexpr std::size_t kButtonPos = 3;
    constexpr std::size_t kUsualPath = 64;
    const std::int32_t pattern = section.size() > kNumberPos ? LeadingNumber(section.substr(kNumberPos)) : 0;
    RegistryPlace place;
    place.path.reserve(kUsualPath);
    place.path.append(kProductKey).append(L"\\Setting\\Set").append(DecimalText(pattern));
    if (key == L"UserName") {
        place.name = L"SetName";
        return place;
    }
    const std::wstring folded = FoldCase(key);
    const auto has = [&folded](std::wstring_view part) { return folded.find(part) != std::wstring::npos; };
    if (!has(L"btn")) {
        return place;
    }
    place.path.append(L"\\AppKey").append(DigitText(key, kButtonPos));
    const std::wstring program = DigitText(key, key.size() - 1);
    if (has(L"_name")) {
        place.name = L"DispTitle";
    } else if (has(L"_exec")) {
        place.name = L"Execute";
    } else if (has(L"_numap")) {
        place.name = L"NumAP";
        place.isNumber = true;
    } else if (has(L"_ap")) {
        place.name = L"AP" + program;
    } else if (has(L"_title")) {
        place.name = L"ProgName" + program;
    }
    return place;
}

} // namespace

std::optional<RegistryPlace> TranslateIniName(const std::wstring& section, const std::wstring& key) {
    if (section == kProgramSection) {
        return RegistryPlace{kProductKey, ProductValueName(key), true};
    }
    if (section == L"ONSCREEN") {
        return OnScreenPlace(key);
    }
    if (ContainsIgnoreCase(section, L"USER")) {
        return PatternPlace(section, key);
    }
    return std::nullopt;
}

#include "Fuzz.h"
#include "FuzzStore.h"
#include "dialogs/main/EnumFont.h"
#include "fakes/FakeFonts.h"
#include "settings/MakerSwitches.h"
#include "settings/OnScreenSettings.h"
#include "settings/Pattern.h"

namespace {

constexpr std::size_t kLongest = 2048;

void CheckText(const FuzzStore& settings, std::string_view bytes) {
    const std::wstring text =
        settings.store.RegGetString(RegistryHive::CurrentUser, kProductKey, L"CurrSetting", L"fallback");
    const std::string whole(bytes.substr(0, bytes.find('\0')));
    Require(text.find(L'\0') == std::wstring::npos, "a NUL in a text");
    Require(settings.ansiText.Encode(text).size() <= kLongest, "longer than a text can be");
    const std::wstring decoded = settings.ansiText.Decode(whole);
    Require(decoded.starts_with(text), "another text than what is stored");
    Require(text == decoded || settings.ansiText.Encode(decoded).size() > kLongest, "cut for no reason");
}

void CheckNumber(const FuzzStore& settings, std::string_view bytes) {
    const std::int32_t number =
        settings.store.RegGetDword(RegistryHive::CurrentUser, kProductKey, L"CurrSetting", -77);
    std::uint32_t expected = 0;
    for (std::size_t i = 0; i < std::min<std::size_t>(bytes.size(), 4); ++i) {
        expected |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(bytes[i])) << (8 * i);
    }
    Require(number == (bytes.size() <= 4 ? static_cast<std::int32_t>(expected) : -77), "the number");
}

void CheckSettings(const FuzzStore& settings) {
    const std::int32_t current = settings.store.ReadCurrentPatternNumber();
    const std::int32_t count = settings.store.ReadPatternCount();
    Require(current >= 1 && current <= kMaxPatterns, "a Pattern that can't be");
    Require(count >= 1 && count <= kMaxPatterns, "a number of Patterns that can't be");

    const MakerSwitches switches = LoadMakerSwitches(settings.store);
    Require(switches.ButtonCount() > kDesktopButtons && switches.ButtonCount() <= kMaxButtons, "buttons");
    Require(switches.DesktopButtonCount() >= 1 && switches.DesktopButtonCount() <= kDesktopButtons,
            "desktop buttons");

    FakeFonts installed;
    installed.Add(L"Arial");
    FontList fonts(L"Arial");
    fonts.EnumerateFonts(installed);
    const OnScreenSettings defaults = LoadDefaultOnScreen(settings.store, fonts);
    for (const OnScreenSettings& screen : {defaults, LoadOnScreen(settings.store, fonts, defaults)}) {
        Require(screen.OnScreen <= 1, "shown or not");
        Require(screen.FontSize >= kSmallestFontStep && screen.FontSize <= kLargestFontStep, "the size");
        Require(screen.FontName == L"Arial", "a face that is not installed");
    }
}

} // namespace

/// A byte of type and code page; the rest lies in every value that the program reads as a number or a face.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::uint8_t kind = input.Byte();
    FuzzStore settings(FuzzStore::CodePage((kind & 0x80U) != 0));
    const auto put = [&](RegistryHive hive, const std::wstring& subkey,
                         std::initializer_list<const wchar_t*> names) {
        for (const wchar_t* const name : names) {
            settings.registry.PutRaw(hive, FuzzStore::Path(subkey), name, kind & 0x0FU, input.Rest());
        }
    };
    put(RegistryHive::CurrentUser, L"", {L"CurrSetting", L"NumSetting", L"QLBB"});
    put(RegistryHive::CurrentUser, L"OnScreen", {L"OnScreen", L"FontFace", L"size", L"Color"});
    put(RegistryHive::LocalMachine, L"", {L"QSTART", L"BtnImage", L"NTNumAPBtn", L"DTNumAPBtn", L"NR1t2"});
    put(RegistryHive::LocalMachine, L"Default\\OnScreen", {L"OnScreen", L"FontFace", L"Size", L"Color"});
    CheckText(settings, input.Rest());
    CheckNumber(settings, input.Rest());
    CheckSettings(settings);
    return 0;
}

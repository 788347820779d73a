#include "exchange/SettingsFile.h"
#include "exchange/StoredSettings.h"

#include "Fuzz.h"
#include "FuzzStore.h"

namespace {

/// The first byte chooses back end and code page, the rest is the file.
void Check(std::uint8_t kind, std::string_view bytes) {
    FuzzStore fuzz(FuzzStore::CodePage((kind & 1U) != 0));
    const bool iniFile = (kind & 2U) != 0;
    const StoredSettings store(fuzz.registry, fuzz.files, fuzz.ansiText, iniFile ? FuzzStore::kOwnFile : L"");
    const SettingsFile file = ReadSettingsFile(bytes, store);
    for (const Finding& finding : file.errors) {
        Require(!Said(Tongue::Japanese, finding.what, finding.parts).empty(), "an error without words");
        Require(finding.line >= 0 && static_cast<std::size_t>(finding.line) <= bytes.size() + 1,
                "an error on a line that is not there");
    }
    if (!file.errors.empty()) {
        return;
    }
    for (const auto& [name, value] : file.settings) {
        Require(KnownSection(name.section) == name.section && KnownKey(name.section, name.key) == name.key,
                "an entry that is not of the layout");
        Require(store.ReadingOf(name, value).find(L'\0') == std::wstring::npos, "a text with a NUL");
    }
    // What was read is written, and read alike; and so is what is written of that.
    const std::string written = WriteSettingsFile(file.settings, store);
    const SettingsFile again = ReadSettingsFile(written, store);
    Require(again.errors.empty() && again.notes.empty(), "what is written is wrong");
    Require(again.settings == file.settings, "what is written says something else");
    Require(WriteSettingsFile(again.settings, store) == written, "it is written in two ways");
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 0) {
        Check(data[0], {reinterpret_cast<const char*>(data) + 1, size - 1});
    }
    return 0;
}

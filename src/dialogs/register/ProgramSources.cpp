#include "dialogs/register/ProgramSources.h"

#include "browse/Paths.h"
#include "dialogs/register/DataFile.h"
#include "platform/Shell.h"
#include "settings/GlobalValue.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr const wchar_t* kProgramGroupKey = L"SOFTWARE\\Korvo\\KORVOQLB\\UTLSetting\\ProgramGroup";
constexpr const wchar_t* kShortcutKeyKey = L"Software\\Korvo\\KORVOQLB\\Shortcut\\Key";
constexpr const wchar_t* kShellFoldersKey =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

} // namespace

ProgramSources::ProgramSources(const RegIniFunc& store, const FileSystem& files, const Shell& shell,
                               const AnsiText& ansiText)
    : store_(store), files_(files), shell_(shell), ansiText_(ansiText) {}

void ProgramSources::AddShortcutKey(const std::wstring& name, const std::wstring& binding,
                                    const std::wstring& code) {
    shortcutKeys_.push_back({name + L" " + binding, name, LeadingNumber(code)});
}

void ProgramSources::LoadShortcutKeys() {
    shortcutKeys_.clear();
    const bool anyRecord = ReadDataFiles(files_, ansiText_, shell_.ProgramDirectory(),
                                         Globals().CommandListFileName, [this](const DataRecord& record) {
                                             AddShortcutKey(record[2], record[0], record[1]);
                                             return true;
                                         });
    if (!anyRecord) {
        LoadShortcutKeysFromRegistry();
    }
}

void ProgramSources::LoadShortcutKeysFromRegistry() {
    for (std::int32_t i = 0;; ++i) {
        const std::wstring key = kShortcutKeyKey + DecimalText(i);
        const auto value = [&](const wchar_t* name) {
            return store_.RegGetString(RegistryHive::LocalMachine, key, name);
        };
        const std::wstring name = value(L"KeyName");
        if (name.empty()) {
            return;
        }
        AddShortcutKey(name, value(L"KeyBind"), value(L"KeyCode"));
    }
}

void ProgramSources::LoadMediaCenter() {
    mediaCenterTable_.clear();
    if (store_.RegGetDword(RegistryHive::LocalMachine, kProgramGroupKey, L"MCMenu") != 1) {
        return;
    }
    ReadDataFiles(files_, ansiText_, shell_.ProgramDirectory(), Globals().MenuFileName,
                  [this](const DataRecord& record) {
                      if (mediaCenterTable_.size() == kMaxMediaCenterRows) {
                          return false;
                      }
                      mediaCenterTable_.push_back({record[0], record[1], record[2]});
                      return true;
                  });
}

void ProgramSources::LoadIeFavorites() {
    ieMenu_ = store_.RegGetDword(RegistryHive::LocalMachine, kProgramGroupKey, L"IEMenu") == 1;
    favoritesFolder_.clear();
    if (ieMenu_) {
        favoritesFolder_ =
            WithoutTrailingBackslash(CutAtNul(shell_.SpecialFolderPath(kFolderFavorites).value_or(L"")));
    }
}

void ProgramSources::LoadStartMenu() {
    startMenuFolder_ = store_.RegGetString(RegistryHive::CurrentUser, kShellFoldersKey, L"Start Menu");
}

bool ProgramSources::Offers(ProgramSource source, SourceOffer offer) const {
    switch (source) {
    case ProgramSource::MediaCenter: // always a single program, as a shortcut key is
        return !mediaCenterTable_.empty() && offer != SourceOffer::SeveralPrograms;
    case ProgramSource::IeFavorites:
        return ieMenu_ && (offer == SourceOffer::Tabs || !favoritesFolder_.empty());
    case ProgramSource::ShortcutKey:
        return offer == SourceOffer::Tabs || (offer == SourceOffer::SingleProgram && !shortcutKeys_.empty());
    default:
        return true;
    }
}

std::vector<ProgramSource> ProgramSources::Offered(SourceOffer offer) const {
    std::vector<ProgramSource> offered;
    std::copy_if(kProgramSources.begin(), kProgramSources.end(), std::back_inserter(offered),
                 [&](ProgramSource source) { return Offers(source, offer); });
    return offered;
}

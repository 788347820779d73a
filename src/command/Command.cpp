#include "command/Command.h"

#include "app/LauncherNotification.h"
#include "platform/Console.h"
#include "platform/InstanceGuard.h"
#include "platform/WholeFiles.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <algorithm>

namespace {

constexpr const wchar_t* kIniFile = L"KORVOQLB.INI";

bool UsesIniFile(Registry& registry, ProfileFiles& profileFiles, const AnsiText& ansiText) {
    const RegIniFunc machine(registry, profileFiles, ansiText, kIniFile);
    return machine.RegGetDword(RegistryHive::LocalMachine, kProductKey, L"QLBINI") != 0;
}

std::wstring DefaultName(const RegIniFunc& store) {
    const std::wstring section = PatternSection(1);
    const std::wstring key = FieldOf(&Pattern::UserName).IniKey();
    return store.IniFileExist
               ? store.RegGetString(RegistryHive::LocalMachine, kDefaultKey + (L'\\' + section), key)
               : store.RegGetText(RegistryHive::LocalMachine, *TranslateIniName(section, key, kDefaultKey));
}

} // namespace

Command::Command(const CommandSystem& asked)
    : system(asked), store(system.registry, system.profileFiles, system.ansiText, kIniFile),
      settings(system.registry, system.profileFiles, system.ansiText,
               UsesIniFile(system.registry, system.profileFiles, system.ansiText) ? kIniFile : L"") {
    store.IniFileExist = settings.IsIniFile();
}

void Command::Tell(Say what, const std::vector<std::wstring>& parts) const {
    system.console.Error(L"qlb: " + Word(what, parts) + L"\r\n");
}

void Command::Tell(const std::vector<Finding>& findings, const std::wstring& file) const {
    for (const Finding& finding : findings) {
        std::wstring where = file.empty() ? L"" : file + L": ";
        if (finding.line != 0) {
            where += Word(Say::kLine, {DecimalText(finding.line)}) + L": ";
        }
        system.console.Error(where + Word(finding.what, finding.parts) + L"\r\n");
    }
}

int Command::Out(std::wstring_view text) const {
    return system.console.Out(text) ? kExitDone : kExitFile;
}

int Command::WriteFile(const Arguments& arguments, const std::wstring& text) const {
    if (arguments.file == L"-") {
        return Out(text);
    }
    switch (system.files.Write(arguments.file, ToUtf8(text), arguments.force)) {
    case FileWriting::Done:
        return kExitDone;
    case FileWriting::AlreadyThere:
        Tell(Say::kFileThere, {arguments.file});
        return kExitUsage;
    default:
        Tell(Say::kFileNotWritten, {arguments.file});
        return kExitFile;
    }
}

std::vector<Choice> Command::Patterns() const {
    const std::wstring fallback = DefaultName(store);
    const std::wstring key = FieldOf(&Pattern::UserName).IniKey();
    std::vector<Choice> patterns;
    const int count = store.ReadPatternCount();
    for (int number = 1; number <= count; ++number) {
        patterns.push_back(
            {number, store.IniGetString(PatternSection(number), key, fallback, store.OwnIniFile())});
    }
    return patterns;
}

std::optional<Choice> Command::ChooseFrom(const std::vector<Choice>& choices, const std::wstring& wanted,
                                          Say none) const {
    const auto found = Choose(choices, wanted);
    if (const auto* const choice = std::get_if<Choice>(&found)) {
        return *choice;
    }
    const auto& doubt = std::get<Doubt>(found);
    Tell(doubt.empty() ? none : Say::kSeveralFit, {wanted});
    for (const Choice& choice : doubt.empty() ? choices : doubt) {
        system.console.Error(L"  " + DecimalText(choice.number) + L"  " + choice.name + L"\r\n");
    }
    return std::nullopt;
}

std::optional<std::vector<Choice>> Command::ChoosePatterns(const std::vector<Choice>& choices,
                                                           const std::vector<std::wstring>& wanted) const {
    if (wanted.empty()) {
        return choices;
    }
    std::vector<Choice> chosen;
    for (const std::wstring& each : wanted) {
        const auto choice = ChooseFrom(choices, each, Say::kNoPattern);
        if (!choice) {
            return std::nullopt;
        }
        if (std::ranges::find(chosen, *choice) == chosen.end()) {
            chosen.push_back(*choice);
        }
    }
    return chosen;
}

bool Command::HasStoreForItself() const {
    if (system.guard.AnotherInstanceRuns()) {
        Tell(Say::kDialogOpen);
        return false;
    }
    return true;
}

void Command::TellLauncher() const {
    LauncherNotification(system.windows).NotifyLauncher();
}

void Command::TellRefusal(const EntryName& name, bool putBack, const std::wstring& backup) const {
    Tell(Say::kRefused, {L"[" + name.section + L"] " + name.key});
    if (putBack) {
        Tell(Say::kPutBack);
    } else if (backup.empty()) {
        Tell(Say::kNotPutBack);
    } else {
        Tell(Say::kNotPutBackUse, {backup});
    }
}

#include "command/Command.h"
#include "exchange/Changes.h"
#include "exchange/Importing.h"
#include "exchange/SettingsFile.h"
#include "platform/WholeFiles.h"
#include "settings/StdModule.h"

namespace {

NameClash ClashOf(const Arguments& arguments) {
    return arguments.replace ? NameClash::Replace : arguments.rename ? NameClash::Rename : NameClash::Refuse;
}

void TellPlan(const Command& command, const ImportPlan& plan, bool done) {
    for (const ImportedPattern& pattern : plan.patterns) {
        const std::vector<std::wstring> parts{pattern.name, DecimalText(pattern.number), pattern.storedName};
        if (pattern.replaces) {
            command.Tell(done ? Say::kReplaced : Say::kWouldReplace, parts);
        } else if (pattern.storedName != pattern.name) {
            command.Tell(done ? Say::kAddedAs : Say::kWouldAddAs, parts);
        } else {
            command.Tell(done ? Say::kAdded : Say::kWouldAdd, parts);
        }
    }
}

int Carry(Command& command, const Settings& before, const ImportPlan& plan) {
    Backups backups(command.settings, command.system.files, command.system.clock);
    const Backups::Taken backup = backups.TakeIfChanged();
    if (backup.path.empty()) {
        command.Tell(Say::kNoBackup, {backups.Folder()});
        return kExitFile;
    }
    command.Tell(Say::kBackupIs, {backup.path});
    if (const auto refusal = Apply(command.settings, before, plan.settings)) {
        command.TellRefusal(refusal->name, refusal->putBack, backup.path);
        return kExitRefused;
    }
    command.TellLauncher();
    TellPlan(command, plan, true);
    return kExitDone;
}

} // namespace

int RunImport(Command& command, const Arguments& arguments) {
    if (!arguments.dryRun && !command.HasStoreForItself()) {
        return kExitDialogOpen;
    }
    const auto bytes = command.system.files.Read(arguments.file, kLongestSettingsFile);
    if (!bytes) {
        command.Tell(Say::kFileUnreadable, {arguments.file});
        return kExitFile;
    }
    const SettingsFile file = ReadSettingsFile(*bytes, command.settings);
    command.Tell(file.notes, arguments.file);
    if (!file.errors.empty()) {
        command.Tell(file.errors, arguments.file);
        return kExitFile;
    }
    const std::vector<Choice> inFile = PatternsOf(file.settings, command.settings);
    if (inFile.empty()) {
        command.Tell(Say::kFileNoPatterns, {arguments.file});
        return kExitFile;
    }
    const auto chosen = command.ChoosePatterns(inFile, arguments.names);
    if (!chosen) {
        return kExitUsage;
    }
    std::vector<int> numbers;
    for (const Choice& choice : *chosen) {
        numbers.push_back(choice.number);
    }
    const Settings before = command.settings.Read();
    const ImportPlan plan =
        PlanImport(command.settings, before, command.Patterns(), file.settings, numbers, ClashOf(arguments));
    if (arguments.dryRun) {
        TellPlan(command, plan, false);
        command.Tell(plan.errors, arguments.file);
        return plan.errors.empty() && file.notes.empty() ? kExitDone : kExitFound;
    }
    if (!plan.errors.empty()) {
        command.Tell(plan.errors, arguments.file);
        return kExitUsage;
    }
    return Carry(command, before, plan);
}

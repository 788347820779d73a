#include "command/Command.h"
#include "platform/WholeFiles.h"
#include "settings/StdModule.h"

namespace {

/// The newest without an argument; one by its number; else the file.
std::optional<std::wstring> PathOf(const Command& command, const Backups& backups,
                                   const std::wstring& wanted) {
    const auto number = wanted.empty() ? std::optional(1) : NumberFromText(wanted);
    if (!number) {
        return wanted;
    }
    const std::vector<std::wstring> paths = backups.List();
    if (!wanted.empty() && command.system.files.Exists(wanted)) {
        command.Tell(Say::kFileOrNumber, {wanted});
        return std::nullopt;
    }
    if (*number < 1 || *number > static_cast<int>(paths.size())) {
        command.Tell(Say::kNoSuchBackup, {DecimalText(*number), DecimalText(paths.size())});
        return std::nullopt;
    }
    return paths[static_cast<std::size_t>(*number) - 1];
}

int CodeOf(Restored::Outcome outcome) {
    switch (outcome) {
    case Restored::Outcome::Done:
    case Restored::Outcome::Unchanged:
        return kExitDone;
    case Restored::Outcome::Refused:
        return kExitRefused;
    default:
        return kExitFile;
    }
}

} // namespace

int RunRestore(Command& command, const Arguments& arguments) {
    if (!command.HasStoreForItself()) {
        return kExitDialogOpen;
    }
    Backups backups(command.settings, command.system.files, command.system.clock);
    const auto path = PathOf(command, backups, arguments.file);
    if (!path) {
        return kExitUsage;
    }
    const Restored result =
        Restore(command.settings, command.system.files, backups, *path,
                [&](const Backups::Taken& backup) { command.Tell(Say::kBackupIs, {backup.path}); });
    command.Tell(result.notes, *path);
    command.Tell(result.errors, *path);
    switch (result.outcome) {
    case Restored::Outcome::Done:
        command.TellLauncher();
        command.Tell(Say::kRestored, {*path});
        break;
    case Restored::Outcome::Unchanged:
        command.Tell(Say::kUnchanged, {*path});
        break;
    case Restored::Outcome::Unreadable:
        command.Tell(Say::kFileUnreadable, {*path});
        break;
    case Restored::Outcome::NoBackup:
        command.Tell(Say::kNoBackup, {backups.Folder()});
        break;
    case Restored::Outcome::Refused:
        command.TellRefusal(result.refused, result.putBack, result.backup.path);
        break;
    case Restored::Outcome::Wrong:
        break;
    }
    return CodeOf(result.outcome);
}

#include "command/Command.h"

int RunBackup(Command& command, const Arguments& /*arguments*/) {
    Backups backups(command.settings, command.system.files, command.system.clock);
    const Backups::Taken taken = backups.TakeIfChanged();
    if (taken.path.empty()) {
        command.Tell(Say::kNoBackup, {backups.Folder()});
        return kExitFile;
    }
    command.Tell(taken.isNew ? Say::kBackupTaken : Say::kBackupThere);
    return command.Out(taken.path + L"\r\n");
}

#include "command/Command.h"
#include "exchange/Changes.h"
#include "settings/StdModule.h"

int RunUse(Command& command, const Arguments& arguments) {
    if (!command.HasStoreForItself()) {
        return kExitDialogOpen;
    }
    const auto choice = command.ChooseFrom(command.Patterns(), arguments.names.front(), Say::kNoPattern);
    if (!choice) {
        return kExitUsage;
    }
    const EntryName current{kProgramSection, L"CurrUser"};
    const Settings before = command.settings.Read();
    Settings after = before;
    after[current] = command.settings.ValueOf(current, DecimalText(choice->number));
    if (const auto refusal = Apply(command.settings, before, after)) {
        command.TellRefusal(refusal->name, refusal->putBack, {});
        return kExitRefused;
    }
    command.TellLauncher();
    command.Tell(Say::kUsed, {DecimalText(choice->number), choice->name});
    return kExitDone;
}

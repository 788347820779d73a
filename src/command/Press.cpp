#include "app/LauncherNotification.h"
#include "command/Command.h"
#include "settings/StdModule.h"

int RunPress(Command& command, const Arguments& arguments) {
    const PatternView view(command);
    const Pattern pattern = view.Load(command.store.ReadCurrentPatternNumber());
    std::vector<Choice> buttons;
    for (int button = 1; button <= view.ButtonCount(); ++button) {
        const std::wstring name = TrimBlanks(pattern.Btn(button).Name);
        buttons.push_back({button, name.empty() ? view.Label(button) : name});
    }
    const auto choice = command.ChooseFrom(buttons, arguments.names.front(), Say::kNoButton);
    if (!choice) {
        return kExitUsage;
    }
    if (!LauncherNotification(command.system.windows).PostButton(choice->number - 1)) {
        command.Tell(Say::kNoLauncher);
        return kExitNoLauncher;
    }
    return kExitDone;
}

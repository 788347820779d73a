#include "command/Command.h"
#include "settings/StdModule.h"

int RunBackups(Command& command, const Arguments& /*arguments*/) {
    const std::vector<std::wstring> paths =
        Backups(command.settings, command.system.files, command.system.clock).List();
    const std::size_t width = DecimalText(paths.size()).size();
    std::wstring text;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const std::wstring number = DecimalText(i + 1);
        text += std::wstring(width - number.size(), L' ') + number + L"  " + paths[i] + L"\r\n";
    }
    return command.Out(text);
}

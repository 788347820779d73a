#include "browse/Paths.h"
#include "command/Command.h"
#include "exchange/Checking.h"
#include "platform/FileSystem.h"
#include "platform/Shell.h"
#include "platform/WholeFiles.h"

#include <iterator>

int RunCheck(Command& command, const Arguments& /*arguments*/) {
    const PatternView view(command);
    std::vector<Finding> findings = CheckEntries(command.settings);
    const auto add = [&](std::vector<Finding> more) {
        findings.insert(findings.end(), std::make_move_iterator(more.begin()),
                        std::make_move_iterator(more.end()));
    };
    std::vector<CheckedPattern> patterns;
    for (const Choice& choice : command.Patterns()) {
        patterns.push_back({choice, view.Load(choice.number)});
    }
    add(CheckPrograms(patterns, view.Buttons(), [&](const std::wstring& path) {
        if (!command.system.files.Exists(path)) {
            return PathKind::Missing;
        }
        const std::uint32_t attributes = command.system.dataFiles.Attributes(path);
        return attributes != kAttributesUnknown && (attributes & kAttributeDirectory) != 0 ? PathKind::Folder
                                                                                           : PathKind::File;
    }));
    add(CheckPlaces(view.Buttons(), [&](int button) { return view.StorageSlot(button); }));
    for (const wchar_t* const name : {L"QLBCODE.DAT", L"QLBMCMNU.DAT"}) {
        add(CheckDataFile(command.system.dataFiles, command.system.ansiText,
                          JoinPath(command.system.shell.ProgramDirectory(), name)));
    }
    std::wstring text;
    for (const Finding& finding : findings) {
        text += command.Word(finding.what, finding.parts) + L"\r\n";
    }
    if (findings.empty()) {
        command.Tell(Say::kCheckNothing);
        return kExitDone;
    }
    const int code = command.Out(text);
    return code == kExitDone ? kExitFound : code;
}

#include "command/Command.h"
#include "exchange/ValueText.h"
#include "settings/StdModule.h"

namespace {

/// The method as the store has it, in any case.
std::wstring Letter(const ButtonSlot& slot) {
    switch (LaunchMethodFromText(slot.Exec)) {
    case LaunchMethod::ShortcutKey:
        return L"K";
    case LaunchMethod::Sequential:
        return L"S";
    case LaunchMethod::Simultaneous:
        return L"P";
    default:
        return L"M";
    }
}

std::wstring AsJson(const PatternView& view, const Choice& choice, const Pattern& pattern) {
    std::wstring text = L"{\"number\": " + DecimalText(choice.number) + L", \"name\": " +
                        JsonText(pattern.UserName) + L", \"buttons\": [";
    std::wstring_view comma;
    for (const int button : view.Buttons()) {
        const ButtonSlot& slot = pattern.Btn(button);
        text += comma;
        text += L"\r\n  {\"button\": " + DecimalText(button) + L", \"label\": " +
                JsonText(view.Label(button)) + L", \"name\": " + JsonText(slot.Name) + L", \"method\": " +
                JsonText(Letter(slot)) + L", \"programs\": [";
        std::wstring_view inner;
        for (const ProgramEntry& program : ProgramsOf(slot)) {
            text += inner;
            text += L"\r\n    {\"command\": " + JsonText(program.AP) + L", \"parameters\": " +
                    JsonText(program.Param) + L", \"title\": " + JsonText(program.Title) + L"}";
            inner = L",";
        }
        text += L"]}";
        comma = L",";
    }
    return text + L"\r\n]}\r\n";
}

std::wstring AsText(const Command& command, const PatternView& view, const Choice& choice,
                    const Pattern& pattern) {
    std::wstring text = DecimalText(choice.number) + L"  " + pattern.UserName + L"\r\n";
    for (const int button : view.Buttons()) {
        const ButtonSlot& slot = pattern.Btn(button);
        text += L"\r\n" + DecimalText(button) + L"  " + view.Label(button) + L": " + TrimBlanks(slot.Name) +
                L" (" + command.Word(MethodName(slot)) + L")\r\n";
        for (const ProgramEntry& program : ProgramsOf(slot)) {
            text += L"   " + program.AP;
            if (!TrimBlanks(program.Param).empty()) {
                text += L" | " + program.Param;
            }
            if (!program.Title.empty()) {
                text += L"  [" + program.Title + L"]";
            }
            text += L"\r\n";
        }
    }
    return text;
}

} // namespace

int RunShow(Command& command, const Arguments& arguments) {
    const std::vector<Choice> patterns = command.Patterns();
    std::optional<Choice> choice;
    if (arguments.names.empty()) {
        choice = Choice{command.store.ReadCurrentPatternNumber(), {}};
    } else {
        choice = command.ChooseFrom(patterns, arguments.names.front(), Say::kNoPattern);
    }
    if (!choice) {
        return kExitUsage;
    }
    const PatternView view(command);
    const Pattern pattern = view.Load(choice->number);
    return command.Out(arguments.json ? AsJson(view, *choice, pattern)
                                      : AsText(command, view, *choice, pattern));
}

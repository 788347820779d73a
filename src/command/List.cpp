#include "command/Command.h"
#include "exchange/ValueText.h"
#include "settings/StdModule.h"

namespace {

std::wstring AsJson(const std::vector<Choice>& patterns, int current) {
    std::wstring text = L"{\"current\": " + DecimalText(current) + L", \"patterns\": [";
    for (const Choice& pattern : patterns) {
        text += pattern.number == 1 ? L"\r\n" : L",\r\n";
        text += L"  {\"number\": " + DecimalText(pattern.number) + L", \"name\": " + JsonText(pattern.name) +
                L", \"current\": " + (pattern.number == current ? L"true" : L"false") + L"}";
    }
    return text + L"\r\n]}\r\n";
}

} // namespace

int RunList(Command& command, const Arguments& arguments) {
    const std::vector<Choice> patterns = command.Patterns();
    const int current = command.store.ReadCurrentPatternNumber();
    if (arguments.json) {
        return command.Out(AsJson(patterns, current));
    }
    std::wstring text;
    for (const Choice& pattern : patterns) {
        const std::wstring number = DecimalText(pattern.number);
        text += pattern.number == current ? L"* " : L"  ";
        text += std::wstring(number.size() < 2 ? 1 : 0, L' ') + number + L"  " + pattern.name + L"\r\n";
    }
    return command.Out(text);
}

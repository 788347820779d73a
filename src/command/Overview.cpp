#include "command/Command.h"
#include "settings/StdModule.h"

namespace {

struct Picture {
    const wchar_t* id;
    const wchar_t* symbol; ///< its SVG
};

constexpr Picture kPictures[]{
#include "OverviewPictures.inc"
};

constexpr const wchar_t* kStyle = LR"css(
:root { color-scheme: light dark; }
body { font: 1rem/1.5 "Segoe UI", "Yu Gothic UI", Meiryo, "Noto Sans", "Noto Sans CJK JP", sans-serif;
  color: #1b1f24; background: #fff; max-width: 60rem; margin: 2rem auto; padding: 0 1rem; }
table { border-collapse: collapse; width: 100%; margin: 0 0 2.5rem; table-layout: fixed; }
caption { text-align: start; font-size: 1.3rem; font-weight: 600; padding: .4rem 0; }
th, td { border: 1px solid #b6bec7; padding: .45rem .6rem; text-align: start; vertical-align: top;
  overflow-wrap: anywhere; }
thead th { background: #eef1f4; }
.b { width: 18%; } .n { width: 15%; } .m { width: 14%; }
tbody th { font-weight: 600; }
svg.p { width: 2.25rem; height: 2.25rem; vertical-align: middle; margin-inline-end: .5rem; }
ol, ul { margin: 0; padding-inline-start: 1.3rem; }
ul { list-style: none; padding: 0; }
.a { display: block; color: #59636e; font-size: .9rem; }
.current { font-size: .9rem; font-weight: 400; }
@media (prefers-color-scheme: dark) {
  body { color: #e6e9ec; background: #16191d; }
  th, td { border-color: #4a525b; }
  thead th { background: #262b31; }
  .a { color: #a7b0ba; }
}
@media print {
  :root { color-scheme: light; }
  body { color: #000; background: #fff; font-size: 10pt; margin: 0; padding: 0; max-width: none; }
  th, td { border-color: #777; } thead th { background: none; } .a { color: #333; }
  tr { break-inside: avoid; } caption, thead { break-after: avoid; }
  section + section { break-before: page; }
  svg { print-color-adjust: exact; -webkit-print-color-adjust: exact; }
}
@page { margin: 15mm; }
)css";

/// As text of an element or of an attribute. What a page may not hold becomes a picture of it, or nothing.
std::wstring Html(std::wstring_view text) {
    std::wstring html;
    for (const wchar_t c : text) {
        switch (c) {
        case L'&':
            html += L"&amp;";
            break;
        case L'<':
            html += L"&lt;";
            break;
        case L'>':
            html += L"&gt;";
            break;
        case L'"':
            html += L"&quot;";
            break;
        case L'\t':
        case L'\n':
            html += c;
            break;
        default:
            html += c < L' ' || (c >= 0x7F && c < 0xA0) || (c & 0xFFFE) == 0xFFFE ? L'\xFFFD' : c;
        }
    }
    return html;
}

const wchar_t* PictureOf(const ButtonSlot& slot) {
    switch (MethodName(slot)) {
    case Say::kMethodNone:
        return L"NO_APP";
    case Say::kMethodSequential:
        return L"RUN_SEQUENCE";
    case Say::kMethodSimultaneous:
        return L"RUN_SIMUL";
    default:
        return L"RUN_SINGLE";
    }
}

class Page {
public:
    Page(Command& command, const PatternView& view) : command_(command), view_(view) {}

    std::wstring Of(const std::vector<Choice>& patterns) {
        const std::wstring title = Word(Say::kOverviewTitle);
        html_ = L"<!DOCTYPE html>\n<html lang=\"" + Word(Say::kLanguageCode) +
                L"\">\n<head>\n<meta charset=\"utf-8\">\n"
                L"<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>" +
                Html(title) + L"</title>\n<style>" + kStyle + L"</style>\n</head>\n<body>\n";
        html_ += L"<svg width=\"0\" height=\"0\" style=\"position:absolute\" aria-hidden=\"true\">\n";
        for (const Picture& picture : kPictures) {
            html_ += picture.symbol;
        }
        html_ += L"</svg>\n<main>\n<h1>" + Html(title) + L"</h1>\n";
        for (const Choice& pattern : patterns) {
            AddPattern(pattern);
        }
        html_ += L"</main>\n</body>\n</html>\n";
        return std::move(html_);
    }

private:
    [[nodiscard]] std::wstring Word(Say what) const { return command_.Word(what); }

    void AddPattern(const Choice& choice) {
        const Pattern pattern = view_.Load(choice.number);
        html_ += L"<section>\n<table>\n<caption>" + DecimalText(choice.number) + L". " + Html(choice.name);
        if (choice.number == command_.store.ReadCurrentPatternNumber()) {
            html_ += L" <span class=\"current\">(" + Word(Say::kOverviewCurrent) + L")</span>";
        }
        html_ += L"</caption>\n<thead>\n<tr>";
        AddHeading(L"b", Say::kOverviewButton);
        AddHeading(L"n", Say::kOverviewName);
        AddHeading(L"m", Say::kOverviewMethod);
        AddHeading(L"", Say::kOverviewPrograms);
        html_ += L"</tr>\n</thead>\n<tbody>\n";
        for (const int button : view_.Buttons()) {
            AddButton(button, pattern.Btn(button));
        }
        html_ += L"</tbody>\n</table>\n</section>\n";
    }

    void AddHeading(const std::wstring& kind, Say what) {
        html_ += L"<th scope=\"col\"" + (kind.empty() ? L"" : L" class=\"" + kind + L"\"") + L">" +
                 Html(Word(what)) + L"</th>";
    }

    void AddButton(int button, const ButtonSlot& slot) {
        html_ += L"<tr><th scope=\"row\"><svg class=\"p\" viewBox=\"0 0 144 144\" aria-hidden=\"true\"><use "
                 L"href=\"#";
        html_ += PictureOf(slot);
        html_ += L"\"/></svg>" + Html(view_.Label(button)) + L"</th><td>" + Html(slot.Name) + L"</td><td>" +
                 Html(Word(MethodName(slot))) + L"</td><td>";
        const std::vector<ProgramEntry> programs = ProgramsOf(slot);
        const std::wstring list = programs.size() > 1 ? L"ol" : L"ul";
        for (std::size_t k = 0; k < programs.size(); ++k) {
            html_ += k == 0 ? L"<" + list + L">" : L"";
            AddProgram(programs[k], MethodName(slot) == Say::kMethodKey);
            html_ += k + 1 == programs.size() ? L"</" + list + L">" : L"";
        }
        html_ += L"</td></tr>\n";
    }

    void AddProgram(const ProgramEntry& program, bool isKey) {
        std::wstring command = isKey ? command_.Word(Say::kOverviewKey, {program.AP}) : program.AP;
        html_ += L"<li>";
        if (!program.Title.empty()) {
            html_ += Html(program.Title) + L"<span class=\"a\">" + Html(command) + L"</span>";
        } else {
            html_ += Html(command);
        }
        if (!TrimBlanks(program.Param).empty()) {
            html_ += L"<span class=\"a\">" + Html(Word(Say::kOverviewParameters)) + L" " +
                     Html(program.Param) + L"</span>";
        }
        html_ += L"</li>";
    }

    Command& command_;
    const PatternView& view_;
    std::wstring html_;
};

} // namespace

int RunOverview(Command& command, const Arguments& arguments) {
    const auto patterns = command.ChoosePatterns(command.Patterns(), arguments.names);
    if (!patterns) {
        return kExitUsage;
    }
    const PatternView view(command);
    return command.WriteFile(arguments, Page(command, view).Of(*patterns));
}

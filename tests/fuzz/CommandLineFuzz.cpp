#include "app/CommandLine.h"

#include "Fuzz.h"
#include "FuzzStore.h"
#include "app/StringTable.h"
#include "fakes/FakeInstanceGuard.h"
#include "fakes/FakeStrings.h"
#include "fakes/FakeWindows.h"
#include "settings/GlobalValue.h"

namespace {

struct Outcome {
    bool starts = false;
    int page = -1;
    int button = 0;
    bool request = false;
    bool wizard = false;

    bool operator==(const Outcome&) const = default;
};

Outcome Start(const std::wstring& line, bool keyboard, bool anotherRuns) {
    static const FakeStrings strings;
    FuzzStore settings(FuzzStore::CodePage(false));
    settings.registry.PutDword(RegistryHive::LocalMachine, kProductKey, L"QLBB", keyboard ? 1 : 0);
    FakeSession session;
    session.claims = anotherRuns ? 1 : 0;
    FakeInstanceGuard guard(session);
    FakeWindows windows;
    ResetGlobals(strings);
    StartUp startUp;
    Outcome outcome;
    outcome.starts = startUp.ParseCommandLine(line, settings.store, guard, windows, StringTable(strings));
    outcome.page = startUp.InitialPage;
    outcome.button = startUp.WizardButton;
    outcome.request = startUp.ButtonRequest;
    outcome.wizard = Globals().WizardForButton;
    Require(settings.registry.Writes().empty() && settings.files.Writes().empty(), "a start wrote");
    Require(windows.Events().empty(), "a start spoke to a window that is not there");
    return outcome;
}

std::wstring Trimmed(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L' ');
    return first == std::wstring::npos ? std::wstring()
                                       : text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

/// The digit of the fourth and last character; -1 when the text is no such option.
int Digit(const std::wstring& text, const wchar_t* option, int count) {
    if (text.size() != 4 || text.substr(0, 3) != option) {
        return -1;
    }
    const int digit = text[3] - L'0';
    return digit >= 0 && digit < count ? digit : -1;
}

/// What the table of options says, said once more.
Outcome Expected(const std::wstring& line) {
    const std::wstring text = LoweredAscii(Trimmed(line));
    if (text == L"/k") {
        return {true};
    }
    if (const int page = Digit(text, L"/t:", 3); page >= 0) {
        return {true, page};
    }
    const std::size_t request = text.starts_with(L"/w:") ? text.find(L"/ap") : std::wstring::npos;
    const bool asks = request != std::wstring::npos;
    const int button = Digit(asks ? Trimmed(text.substr(0, request)) : text, L"/w:", 8);
    const bool refused = button < 0 || (asks && Trimmed(text.substr(request)) != L"/ap");
    return refused ? Outcome{} : Outcome{true, -1, button, asks, true};
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring line = Widened({reinterpret_cast<const char*>(data), size});
    const Outcome outcome = Start(line, true, false);
    const Outcome expected = Expected(line);
    Require(outcome.starts == expected.starts, "the wrong lines start the program");
    if (outcome.starts) {
        Require(outcome == expected, "a line is taken for another option");
    }
    Require(outcome.page >= -1 && outcome.page <= 2, "a page that is none");
    Require(outcome.button >= 0 && outcome.button <= 7, "a button that is none");
    Require(Start(L"  " + line + L" ", true, false) == outcome, "blanks around the line count");
    Require(!Start(line, false, false).starts, "it starts without a keyboard");
    Require(!Start(line, true, true).starts, "it starts twice");
    return 0;
}

#pragma once

#include "TestStore.h"
#include "command/Command.h"
#include "fakes/FakeClock.h"
#include "fakes/FakeConsole.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeInstanceGuard.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeWholeFiles.h"
#include "fakes/FakeWindows.h"

/// A back end and a code page.
struct StoreKind {
    bool iniFile;
    unsigned codePage;
};
inline void PrintTo(const StoreKind& kind, std::ostream* stream) {
    *stream << (kind.iniFile ? "ini file, " : "registry, ") << kind.codePage;
}
[[nodiscard]] inline std::string KindName(const testing::TestParamInfo<StoreKind>& kind) {
    return (kind.param.iniFile ? "IniFile" : "Registry") + std::to_string(kind.param.codePage);
}
[[nodiscard]] inline auto EveryKind() {
    return testing::Values(StoreKind{false, FakeAnsiText::kWestern},
                           StoreKind{false, FakeAnsiText::kJapanese}, StoreKind{true, FakeAnsiText::kWestern},
                           StoreKind{true, FakeAnsiText::kJapanese});
}

/// A user's computer, and qlb on it.
struct CommandRig : TestStore {
    explicit CommandRig(StoreKind kind = {false, FakeAnsiText::kWestern});

    /// Starts qlb; `console` has what it says this time. The exit code.
    int Qlb(const std::vector<std::wstring>& arguments);

    /// A Pattern with that name under that number, and the count of Patterns.
    void PutPattern(int number, const char* name, int count);
    void RememberNoCalls() { registry.remembersCalls = files.remembersCalls = false; }
    [[nodiscard]] StoredSettings Stored();
    [[nodiscard]] std::vector<std::wstring> BackupNames() const;

    bool iniFile;
    Tongue tongue = Tongue::English;
    FakeWholeFiles wholeFiles;
    FakeFileSystem dataFiles;
    FakeShell shell;
    FakeClock clock;
    FakeConsole console;
    FakeSession session;
    FakeWindows windows;
};

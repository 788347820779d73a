#pragma once

#include "exchange/Backups.h"
#include "exchange/NameChoice.h"
#include "exchange/StoredSettings.h"
#include "exchange/Words.h"
#include "settings/MakerSwitches.h"
#include "settings/Pattern.h"
#include "settings/RegIniFunc.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class AnsiText;
class Clock;
class Console;
class FileSystem;
class InstanceGuard;
class ProfileFiles;
class Registry;
class Shell;
class TopLevelWindows;
class WholeFiles;

/// What qlb asks of the system.
struct CommandSystem {
    Registry& registry;
    ProfileFiles& profileFiles;
    const AnsiText& ansiText;
    WholeFiles& files;
    const FileSystem& dataFiles;
    const Shell& shell;
    const Clock& clock;
    Console& console;
    InstanceGuard& guard;
    TopLevelWindows& windows;
    Tongue tongue;
};

enum ExitCode : int {
    kExitDone = 0,
    kExitFound = 1, ///< check and --dry-run
    kExitUsage = 2, ///< nothing that can be done
    kExitDialogOpen = 3,
    kExitFile = 4,    ///< can't be read, is wrong, or can't be written
    kExitRefused = 5, ///< by the store
    kExitNoLauncher = 6,
};

/// What stands on the command line behind the command.
struct Arguments {
    bool json = false;
    bool force = false;
    bool replace = false;
    bool rename = false;
    bool dryRun = false;
    std::wstring file;
    std::vector<std::wstring> names; ///< of Patterns or of a button
};

/// What the commands have in common: the store as the dialog sees it, and words.
class Command {
public:
    explicit Command(const CommandSystem& asked);
    ~Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    const CommandSystem&
        system; // NOLINT(cppcoreguidelines-avoid-const-or-ref-data-members): it is not copied
    RegIniFunc store;
    StoredSettings settings;

    /// Words on standard error, a line.
    void Tell(Say what, const std::vector<std::wstring>& parts = {}) const;
    void Tell(const std::vector<Finding>& findings, const std::wstring& file = {}) const;
    [[nodiscard]] std::wstring Word(Say what, const std::vector<std::wstring>& parts = {}) const {
        return Said(system.tongue, what, parts);
    }
    /// Data on standard output. The exit code.
    [[nodiscard]] int Out(std::wstring_view text) const;

    /// Under the name that was asked for, or "-" for standard output. The exit code.
    [[nodiscard]] int WriteFile(const Arguments& arguments, const std::wstring& text) const;

    /// The user's Patterns by their numbers.
    [[nodiscard]] std::vector<Choice> Patterns() const;
    /// The one that PATTERN on the command line means. Nothing after it has told why.
    [[nodiscard]] std::optional<Choice> ChooseFrom(const std::vector<Choice>& choices,
                                                   const std::wstring& wanted, Say none) const;
    /// Several; all for none. Nothing after it has told why.
    [[nodiscard]] std::optional<std::vector<Choice>> ChoosePatterns(
        const std::vector<Choice>& choices, const std::vector<std::wstring>& wanted) const;

    /// False after it has told that the dialog is open.
    [[nodiscard]] bool HasStoreForItself() const;
    void TellLauncher() const;
    void TellRefusal(const EntryName& name, bool putBack, const std::wstring& backup) const;
};

/// Button names, methods and programs as the dialog would show them.
class PatternView {
public:
    explicit PatternView(Command& command);

    [[nodiscard]] Pattern Load(int number) const;
    [[nodiscard]] int ButtonCount() const { return switches_.ButtonCount(); }
    [[nodiscard]] std::vector<int> Buttons() const;
    /// "Button 1", or what the maker calls it.
    [[nodiscard]] const std::wstring& Label(int button) const { return labels_(button); }
    [[nodiscard]] int StorageSlot(int button) const;

private:
    Command& command_;
    MakerSwitches switches_;
    NumberedFrom1<std::wstring, kMaxButtons> labels_;
};

/// What the method is called; "no program" for a button that starts none.
[[nodiscard]] Say MethodName(const ButtonSlot& slot);
/// The programs that count: as many as the button says, one for a single program.
[[nodiscard]] std::vector<ProgramEntry> ProgramsOf(const ButtonSlot& slot);

int RunList(Command& command, const Arguments& arguments);
int RunShow(Command& command, const Arguments& arguments);
int RunUse(Command& command, const Arguments& arguments);
int RunExport(Command& command, const Arguments& arguments);
int RunImport(Command& command, const Arguments& arguments);
int RunBackup(Command& command, const Arguments& arguments);
int RunBackups(Command& command, const Arguments& arguments);
int RunRestore(Command& command, const Arguments& arguments);
int RunCheck(Command& command, const Arguments& arguments);
int RunOverview(Command& command, const Arguments& arguments);
int RunPress(Command& command, const Arguments& arguments);

/// The whole program. `arguments`: without its own name.
int RunCommandLine(const std::vector<std::wstring>& arguments, const CommandSystem& system);

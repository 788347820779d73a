#include "command/Command.h"
#include "platform/Console.h"
#include "settings/StdModule.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace {

/// What stands behind the command, beside its options.
enum class Operands { None, MaybeFile, FileAndPatterns, Pattern, MaybePattern, Button };

enum Option : unsigned { kJson = 1, kForce = 2, kReplace = 4, kRename = 8, kDryRun = 16 };

struct CommandRow {
    const char* name;
    Say help;
    Operands operands;
    unsigned options;
    int (*run)(Command&, const Arguments&);
};

// clang-format off
constexpr std::array kCommands{
    CommandRow{"list",     Say::kHelpList,     Operands::None,            kJson,                       RunList},
    CommandRow{"show",     Say::kHelpShow,     Operands::MaybePattern,    kJson,                       RunShow},
    CommandRow{"use",      Say::kHelpUse,      Operands::Pattern,         0,                           RunUse},
    CommandRow{"export",   Say::kHelpExport,   Operands::FileAndPatterns, kForce,                      RunExport},
    CommandRow{"import",   Say::kHelpImport,   Operands::FileAndPatterns, kReplace | kRename | kDryRun, RunImport},
    CommandRow{"backup",   Say::kHelpBackup,   Operands::None,            0,                           RunBackup},
    CommandRow{"backups",  Say::kHelpBackups,  Operands::None,            0,                           RunBackups},
    CommandRow{"restore",  Say::kHelpRestore,  Operands::MaybeFile,       0,                           RunRestore},
    CommandRow{"check",    Say::kHelpCheck,    Operands::None,            0,                           RunCheck},
    CommandRow{"overview", Say::kHelpOverview, Operands::FileAndPatterns, kForce,                      RunOverview},
    CommandRow{"press",    Say::kHelpPress,    Operands::Button,          0,                           RunPress},
};

struct FlagRow {
    Option option;
    const char* name;
    bool Arguments::*member;
    Say help;
};
constexpr std::array kFlags{
    FlagRow{kJson,    "--json",    &Arguments::json,    Say::kHelpJson},
    FlagRow{kForce,   "--force",   &Arguments::force,   Say::kHelpForce},
    FlagRow{kReplace, "--replace", &Arguments::replace, Say::kHelpReplace},
    FlagRow{kRename,  "--rename",  &Arguments::rename,  Say::kHelpRename},
    FlagRow{kDryRun,  "--dry-run", &Arguments::dryRun,  Say::kHelpDryRun},
};
// clang-format on

/// Arguments as CLI11 takes and gives them.
struct TakenArguments {
    Arguments arguments;
    std::string file;
    std::vector<std::string> names;
};

/// In front of a "[", or the library would take "[a,b]" apart.
constexpr const char* kMark = "\x01";

std::wstring Unmarked(const std::string& argument) {
    return FromUtf8(argument.starts_with(kMark) ? argument.substr(1) : argument);
}

class Parser {
public:
    explicit Parser(Tongue tongue) : tongue_(tongue), app_(Utf8(Say::kHelpProgram), "qlb") {
        SetUp(app_);
        app_.require_subcommand(1);
        app_.footer(Utf8(Say::kHelpExitCodes));
        for (const CommandRow& row : kCommands) {
            CLI::App& sub = *app_.add_subcommand(row.name, Utf8(row.help));
            SetUp(sub);
            AddOperands(sub, row.operands);
            for (const FlagRow& flag : kFlags) {
                if ((row.options & flag.option) != 0) {
                    sub.add_flag(flag.name, taken_.arguments.*flag.member, Utf8(flag.help));
                }
            }
            sub.group(Utf8(Say::kHelpCommands));
        }
    }

    /// Nothing when the command line is no command; then `told` has what to say, and whether it was asked for.
    const CommandRow* Parse(const std::vector<std::wstring>& arguments, std::wstring& told, bool& isHelp) {
        std::vector<std::string> backwards;
        for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
            backwards.push_back((argument->starts_with(L'[') ? kMark : "") + ToUtf8(*argument));
        }
        isHelp = arguments.empty();
        if (isHelp) {
            told = FromUtf8(app_.help());
            return nullptr;
        }
        if (std::ranges::find(arguments, L"") != arguments.end()) {
            told = Said(tongue_, Say::kUsageWrong, {L"qlb"}); // a script's variable that is not set
            return nullptr;
        }
        try {
            app_.parse(std::move(backwards));
        } catch (const CLI::CallForHelp&) {
            isHelp = true;
            told = FromUtf8(app_.help()); // of the command, where there is one
            return nullptr;
        } catch (const CLI::ParseError& error) {
            told = Complaint(error);
            return nullptr;
        }
        if (taken_.arguments.replace && taken_.arguments.rename) {
            told = Said(tongue_, Say::kUsageBoth, {L"qlb import"});
            return nullptr;
        }
        return Chosen();
    }

    [[nodiscard]] Arguments Taken() const {
        Arguments arguments = taken_.arguments;
        arguments.file = Unmarked(taken_.file);
        for (const std::string& name : taken_.names) {
            arguments.names.push_back(Unmarked(name));
        }
        return arguments;
    }

private:
    [[nodiscard]] std::string Utf8(Say what) const { return ToUtf8(Said(tongue_, what)); }

    void SetUp(CLI::App& app) const {
        app.set_help_flag("-h,--help", Utf8(Say::kHelpHelp));
        app.allow_windows_style_options(false); // a name may begin with "/"
        const auto formatter = std::make_shared<CLI::Formatter>();
        formatter->label("Usage", Utf8(Say::kHelpUsage));
        formatter->label("OPTIONS", Utf8(Say::kHelpOptionsPlace));
        formatter->label("Options", Utf8(Say::kHelpOptions));
        formatter->label("Positionals", Utf8(Say::kHelpPositionals));
        formatter->label("SUBCOMMAND", Utf8(Say::kHelpCommandPlace));
        formatter->label("REQUIRED", "");
        formatter->label("TEXT", "");
        app.formatter(formatter);
    }

    void AddFile(CLI::App& app, Say help, bool required) {
        app.add_option("FILE", taken_.file, Utf8(help))->required(required)->type_name("");
    }
    void AddNames(CLI::App& app, const char* what, Say help, bool required, int most) {
        app.add_option(what, taken_.names, Utf8(help))
            ->required(required)
            ->expected(1, most)
            ->allow_extra_args(most > 1)
            ->type_name("");
    }
    void AddOperands(CLI::App& app, Operands operands) {
        constexpr int kMany = CLI::detail::expected_max_vector_size;
        switch (operands) {
        case Operands::None:
            break;
        case Operands::MaybeFile:
            AddFile(app, Say::kHelpBackupFile, false);
            break;
        case Operands::FileAndPatterns:
            AddFile(app, Say::kHelpFile, true);
            AddNames(app, "PATTERN", Say::kHelpPatterns, false, kMany);
            break;
        case Operands::Pattern:
            AddNames(app, "PATTERN", Say::kHelpPattern, true, 1);
            break;
        case Operands::MaybePattern:
            AddNames(app, "PATTERN", Say::kHelpPattern, false, 1);
            break;
        case Operands::Button:
            AddNames(app, "BUTTON", Say::kHelpButton, true, 1);
            break;
        }
    }

    [[nodiscard]] const CommandRow* Chosen() const {
        const std::string name = app_.get_subcommands().front()->get_name();
        return std::ranges::find_if(kCommands, [&](const CommandRow& row) { return row.name == name; });
    }

    [[nodiscard]] std::wstring Complaint(const CLI::ParseError& error) const {
        const bool missing = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr;
        const auto chosen = app_.get_subcommands();
        const std::wstring command = chosen.empty() ? L"qlb" : L"qlb " + FromUtf8(chosen.front()->get_name());
        const auto extras = app_.remaining(true);
        if (!extras.empty()) {
            return Said(tongue_, Say::kUsageUnknown, {Unmarked(extras.front()), command});
        }
        return Said(tongue_, missing ? Say::kUsageMissing : Say::kUsageWrong, {command});
    }

    Tongue tongue_;
    CLI::App app_;
    TakenArguments taken_;
};

} // namespace

int RunCommandLine(const std::vector<std::wstring>& arguments, const CommandSystem& system) {
    Parser parser(system.tongue);
    std::wstring told;
    bool isHelp = false;
    const CommandRow* const row = parser.Parse(arguments, told, isHelp);
    if (row == nullptr) {
        if (isHelp) {
            std::wstring lines;
            for (const wchar_t c : told) {
                lines.append(c == L'\n' ? 1 : 0, L'\r').append(1, c);
            }
            const bool asked = !arguments.empty();
            if (!asked) {
                system.console.Error(lines);
                return kExitUsage;
            }
            return system.console.Out(lines) ? kExitDone : kExitFile;
        }
        system.console.Error(L"qlb: " + told + L"\r\n");
        return kExitUsage;
    }
    Command command(system);
    return row->run(command, parser.Taken());
}

#include "exchange/Checking.h"

#include "dialogs/patterns/NameRules.h"
#include "dialogs/register/DataFile.h"
#include "exchange/StoredSettings.h"
#include "platform/AnsiText.h"
#include "platform/FileSystem.h"
#include "settings/OnScreenSettings.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <algorithm>

namespace {

class EntryCheck {
public:
    explicit EntryCheck(const StoredSettings& store) : store_(store), settings_(store.Read()) {}

    std::vector<Finding> Run() {
        for (const auto& [name, value] : settings_) {
            CheckValue(name, value);
        }
        Number({kOnScreenSection, L"OnScreen"}, 0, 1);
        Number({kOnScreenSection, L"FontSize"}, kSmallestFontStep, kLargestFontStep);
        const int count = Number({kProgramSection, L"NumUser"}, 1, kMaxPatterns);
        Number({kProgramSection, L"CurrUser"}, 1, count);
        CheckNames(count);
        return std::move(findings_);
    }

private:
    static std::wstring Told(const EntryName& name) { return L"[" + name.section + L"] " + name.key; }

    void Find(Say what, std::vector<std::wstring> parts) { findings_.push_back({what, std::move(parts)}); }

    void CheckValue(const EntryName& name, const RegistryValue& value) {
        const std::wstring text = store_.ReadingOf(name, value);
        const TextProblem problem = store_.Judge(name, text);
        if (store_.Inexact().contains(name) || problem == TextProblem::NotInCodePage ||
            (problem == TextProblem::None && !IsKept(value) &&
             store_.ValueOf(name, text).type == value.type)) {
            Find(Say::kCheckCodePage, {Told(name), text});
        } else if (problem == TextProblem::ProgramCount) {
            Find(Say::kCheckRange, {Told(name), text, L"0", DecimalText(kMaxPrograms)});
        } else if (problem == TextProblem::TooLong) {
            Find(Say::kCheckTooLong, {Told(name), DecimalText(store_.LongestText())});
        } else if (problem == TextProblem::NoNumber) {
            Find(Say::kCheckNoNumber, {Told(name), text});
        } else if (store_.ValueOf(name, text).type != value.type) {
            Find(Say::kCheckKind, {Told(name)});
        }
    }

    /// The code page reads the bytes as a text that is these bytes again.
    [[nodiscard]] bool IsKept(const RegistryValue& value) const {
        if (value.type != kRegistryString) {
            return true;
        }
        const std::string bytes = value.bytes.substr(0, value.bytes.find('\0'));
        return store_.CodePage().Encode(store_.CodePage().Decode(bytes)) == bytes;
    }

    /// The number that counts: `min` for one that is missing or out of range.
    int Number(const EntryName& name, int min, int max) {
        const auto stored = settings_.find(name);
        if (stored == settings_.end()) {
            return min;
        }
        const std::wstring text = store_.ReadingOf(name, stored->second);
        if (!IsNumericInRange(text, min, max)) {
            Find(Say::kCheckRange, {Told(name), text, DecimalText(min), DecimalText(max)});
        }
        return NumberInRangeOr(text, min, max, min);
    }

    void CheckNames(int count) {
        std::vector<std::wstring> used;
        for (int number = 1; number <= count; ++number) {
            const EntryName name{PatternSection(number), FieldOf(&Pattern::UserName).IniKey()};
            const auto stored = settings_.find(name);
            if (stored == settings_.end()) {
                continue;
            }
            const std::wstring text = store_.ReadingOf(name, stored->second);
            const NameProblem problem = CheckPatternName(text, used, store_.CodePage());
            if (problem == NameProblem::Empty) {
                Find(Say::kCheckNameEmpty, {DecimalText(number)});
            } else if (problem == NameProblem::Used) {
                Find(Say::kCheckNameTwice, {DecimalText(number), text});
            } else if (problem == NameProblem::TooLong) {
                Find(Say::kCheckNameTooLong, {DecimalText(number), text, DecimalText(kLongestPatternName)});
            }
            used.push_back(text);
        }
    }

    const StoredSettings& store_;
    Settings settings_;
    std::vector<Finding> findings_;
};

/// Without the quotes around a command, and what stands behind them.
std::wstring PathIn(const std::wstring& command) {
    const std::wstring text = TrimBlanks(command);
    return text.starts_with(L'"') ? text.substr(1, text.find(L'"', 1) - 1) : text;
}

bool IsLetter(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

bool IsOnDrive(const std::wstring& path) {
    return path.size() > 2 && IsLetter(path[0]) && path[1] == L':' && path[2] == L'\\';
}

/// The system, too, looks for the end of a program's name at each blank.
bool StartsAnything(const std::wstring& command, const PathQuestion& kindOf) {
    for (std::size_t end = command.find(L' '); end != std::wstring::npos; end = command.find(L' ', end + 1)) {
        if (kindOf(command.substr(0, end)) == PathKind::File) {
            return true;
        }
    }
    return kindOf(command) != PathKind::Missing;
}

void CheckButton(const CheckedPattern& checked, int button, std::vector<Finding>& findings,
                 const PathQuestion& kindOf) {
    const ButtonSlot& slot = checked.pattern.Btn(button);
    const std::wstring pattern = checked.choice.name;
    const std::wstring number = DecimalText(button);
    const LaunchMethod method = LaunchMethodFromText(slot.Exec);
    if (method == LaunchMethod::Unknown && !slot.Exec.empty()) {
        findings.push_back({Say::kCheckMethod, {pattern, number, slot.Exec}});
    }
    if (method == LaunchMethod::ShortcutKey) {
        if (slot.NumAP > 0 && NumberFromText(slot.Program(1).AP).value_or(0) < 1) {
            findings.push_back({Say::kCheckKeyCode, {pattern, number, slot.Program(1).AP}});
        }
        return;
    }
    for (int k = 1; k <= slot.NumAP; ++k) {
        const std::wstring path = PathIn(slot.Program(k).AP);
        if (path.empty()) {
            findings.push_back({Say::kCheckNoProgram, {pattern, number, DecimalText(k)}});
        } else if (path.find(L'?') != std::wstring::npos && IsOnDrive(path)) {
            findings.push_back({Say::kCheckQuestionMark, {pattern, number, path}});
        } else if (IsOnDrive(path) && !StartsAnything(path, kindOf)) {
            findings.push_back({Say::kCheckGone, {pattern, number, path}});
        }
    }
}

} // namespace

std::vector<Finding> CheckEntries(const StoredSettings& store) {
    return EntryCheck(store).Run();
}

std::vector<Finding> CheckPrograms(const std::vector<CheckedPattern>& patterns,
                                   const std::vector<int>& buttons, const PathQuestion& kindOf) {
    std::vector<Finding> findings;
    for (const CheckedPattern& pattern : patterns) {
        for (const int button : buttons) {
            CheckButton(pattern, button, findings, kindOf);
        }
    }
    return findings;
}

std::vector<Finding> CheckPlaces(const std::vector<int>& buttons, const std::function<int(int)>& slotOf) {
    std::vector<Finding> findings;
    for (auto one = buttons.begin(); one != buttons.end(); ++one) {
        for (auto other = std::next(one); other != buttons.end(); ++other) {
            if (slotOf(*one) == slotOf(*other)) {
                findings.push_back({Say::kCheckSamePlace,
                                    {DecimalText(*one), DecimalText(*other), DecimalText(slotOf(*one))}});
            }
        }
    }
    return findings;
}

std::vector<Finding> CheckDataFile(const FileSystem& files, const AnsiText& codePage,
                                   const std::wstring& path) {
    if (files.Attributes(path) == kAttributesUnknown) {
        return {}; // a keyboard may have none
    }
    std::vector<Finding> findings;
    DataFileReader reader(codePage, [&](const DataRecord& record) {
        for (const std::wstring& field : record) {
            if (codePage.Decode(codePage.Encode(field)) != field) {
                findings.push_back({Say::kCheckDataCodePage, {path, field}});
            }
        }
        return true;
    });
    const bool read = files.Read(path, [&](std::string_view block) { return reader.Feed(block); });
    if (!reader.Finish() || !read) {
        findings.push_back({Say::kCheckDataFile, {path}});
    }
    return findings;
}

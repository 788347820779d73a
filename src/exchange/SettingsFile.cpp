#include "exchange/SettingsFile.h"

#include "exchange/FileLines.h"
#include "exchange/StoredSettings.h"
#include "exchange/ValueText.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <set>
#include <utility>

namespace {

constexpr const wchar_t* kLineEnd = L"\r\n";
constexpr const wchar_t* kEndSection = L"END";
constexpr std::size_t kMostFindings = 20;

std::wstring InBrackets(const std::wstring& section) {
    return L"[" + section + L"]";
}

EntryName NameEntry(const std::wstring& section) {
    return {section, FieldOf(&Pattern::UserName).IniKey()};
}

Say Reason(ValueProblem problem) {
    switch (problem) {
    case ValueProblem::UnknownEscape:
        return Say::kFileUnknownEscape;
    case ValueProblem::TextBehindQuote:
        return Say::kFileTextBehindQuote;
    case ValueProblem::WrongBytes:
        return Say::kFileWrongBytes;
    default:
        return Say::kFileUnfinishedQuote;
    }
}

Say Reason(TextProblem problem) {
    switch (problem) {
    case TextProblem::ProgramCount:
        return Say::kFileProgramCount;
    case TextProblem::PatternNumber:
        return Say::kFilePatternNumber;
    case TextProblem::TooManyPatterns:
        return Say::kFileTooManyPatterns;
    case TextProblem::TooLong:
        return Say::kFileTooLong;
    case TextProblem::NotInCodePage:
        return Say::kFileNotInCodePage;
    case TextProblem::LineEnd:
        return Say::kFileLineEnd;
    case TextProblem::Nul:
        return Say::kFileNul;
    default:
        return Say::kFileNoNumber;
    }
}

class Reader {
public:
    Reader(const StoredSettings& store, const FileLines& lines) : store_(store), lines_(lines) {}

    SettingsFile Read() {
        if (lines_.problem) {
            Error(*lines_.problem, lines_.problemLine);
            return std::move(file_);
        }
        int number = lines_.isIni ? 0 : 1; // the first line names the format
        for (auto line = lines_.lines.begin() + number; line != lines_.lines.end(); ++line) {
            TakeLine(*line, ++number);
        }
        if (!lines_.isIni && !ended_) {
            Error(Say::kFileCutOff, static_cast<int>(lines_.lines.size()));
        }
        if (lines_.isIni && sections_.empty()) {
            Error(Say::kFileNoSettings, 0);
        }
        return std::move(file_);
    }

private:
    void Error(Say what, int line, std::vector<std::wstring> parts = {}) {
        if (file_.errors.size() < kMostFindings) {
            file_.errors.push_back({what, std::move(parts), line});
        }
    }
    void Note(Say what, int line, std::vector<std::wstring> parts) {
        if (file_.notes.size() < kMostFindings) {
            file_.notes.push_back({what, std::move(parts), line});
        }
    }

    void TakeLine(std::wstring_view written, int line) {
        const std::wstring text = TrimBlanks(written);
        if (text.empty() || text.front() == L';' || text.front() == L'#') {
            return;
        }
        if (ended_) {
            Error(Say::kFileBehindEnd, line);
        } else if (text.front() == L'[') {
            TakeSection(text, line);
        } else {
            TakeEntry(text, line);
        }
    }

    void TakeSection(const std::wstring& text, int line) {
        section_.reset();
        inSection_ = true;
        if (text.back() != L']') {
            Error(Say::kFileNoSection, line, {text});
            return;
        }
        const std::wstring name = TrimBlanks(std::wstring_view(text).substr(1, text.size() - 2));
        if (!lines_.isIni && EqualsIgnoreCase(name, kEndSection)) {
            ended_ = true;
            return;
        }
        if (EqualsIgnoreCase(name, kEndSection)) {
            Error(Say::kFileNoFirstLine, 1, {std::wstring(kFirstLine)});
        }
        section_ = KnownSection(name);
        if (!section_) {
            const auto pattern = name.size() > 4 && EqualsIgnoreCase(name.substr(0, 4), L"USER")
                                     ? NumberFromText(name.substr(4))
                                     : std::nullopt;
            if (pattern && *pattern > kMaxPatterns) {
                Error(Say::kFileTooManyPatterns, line, {name});
            } else if (!lines_.isIni) {
                Note(Say::kFileUnknownSection, line, {InBrackets(name)});
            }
        } else if (!sections_.insert(*section_).second && !lines_.isIni) {
            Error(Say::kFileSectionTwice, line, {InBrackets(*section_)});
        }
    }

    void TakeEntry(const std::wstring& text, int line) {
        const std::size_t equals = text.find(L'=');
        if (equals == std::wstring::npos || !inSection_) {
            if (!lines_.isIni) {
                Error(inSection_ ? Say::kFileNoEntry : Say::kFileNoSectionYet, line, {text});
            }
            return;
        }
        if (!section_) {
            return;
        }
        const std::wstring written = TrimBlanks(text.substr(0, equals));
        const auto key = KnownKey(*section_, written);
        if (!key) {
            Note(Say::kFileUnknownKey, line, {InBrackets(*section_), written});
            return;
        }
        const EntryName name{*section_, *key};
        if (file_.settings.contains(name)) {
            if (!lines_.isIni) { // there the first one counts
                Error(Say::kFileKeyTwice, line, {InBrackets(*section_), *key});
            }
            return;
        }
        TakeValue(name, TrimBlanks(text.substr(equals + 1)), line);
    }

    void TakeValue(const EntryName& name, const std::wstring& written, int line) {
        ReadValue read = lines_.isIni ? ReadValue{WithoutIniQuotes(written)} : ReadWritten(written);
        if (read.problem != ValueProblem::None) {
            Error(Reason(read.problem), line, {name.key});
            return;
        }
        if (const auto* const value = std::get_if<RegistryValue>(&read.value)) {
            file_.settings[name] = store_.Adapted(name, *value);
            return;
        }
        const std::wstring& text = std::get<std::wstring>(read.value);
        const TextProblem problem = store_.Judge(name, text);
        if (problem != TextProblem::None) {
            Error(Reason(problem), line, {name.key, DecimalText(store_.LongestText())});
            return;
        }
        file_.settings[name] = store_.ValueOf(name, text);
        if (name == NameEntry(name.section) && PatternNumber(name.section) != 0 &&
            !names_.insert(text).second) {
            Error(Say::kFileNameTwice, line, {text});
        }
    }

    static std::wstring WithoutIniQuotes(const std::wstring& text) {
        const bool quoted =
            text.size() > 1 && text.front() == text.back() && (text.front() == L'"' || text.front() == L'\'');
        return quoted ? text.substr(1, text.size() - 2) : text;
    }

    const StoredSettings& store_;
    const FileLines& lines_;
    SettingsFile file_;
    std::optional<std::wstring> section_; ///< that is being read; nothing for one that is not known
    bool inSection_ = false;
    bool ended_ = false;
    std::set<std::wstring> sections_;
    std::set<std::wstring> names_;
};

} // namespace

SettingsFile ReadSettingsFile(std::string_view bytes, const StoredSettings& store) {
    return Reader(store, ReadLines(bytes, store.CodePage())).Read();
}

std::wstring SettingsFileText(const Settings& settings, const StoredSettings& store) {
    std::wstring file = std::wstring(kFirstLine) + kLineEnd;
    std::set<std::wstring> names;
    for (const std::wstring& section : LayoutSections()) {
        bool begun = false;
        for (const std::wstring& key : LayoutKeys(section)) {
            const EntryName name{section, key};
            const auto entry = settings.find(name);
            if (entry == settings.end()) {
                continue;
            }
            if (!begun) {
                file += kLineEnd + InBrackets(section) + kLineEnd;
                begun = true;
            }
            auto text = store.TextOf(name, entry->second);
            if (text && PatternNumber(section) != 0 && name == NameEntry(section) &&
                !names.insert(*text).second) {
                text.reset(); // twice in the store, and so it shall be again
            }
            file.append(key).append(1, L'=');
            file.append(text ? WrittenText(*text) : WrittenBytes(entry->second)).append(kLineEnd);
        }
    }
    file += kLineEnd + InBrackets(kEndSection) + kLineEnd;
    return file;
}

std::string WriteSettingsFile(const Settings& settings, const StoredSettings& store) {
    return ToUtf8(SettingsFileText(settings, store));
}

std::vector<Choice> PatternsOf(const Settings& settings, const StoredSettings& store) {
    const EntryName countName{kProgramSection, L"NumUser"};
    const auto count = settings.find(countName);
    const int last = count == settings.end()
                         ? kMaxPatterns
                         : NumberInRangeOr(store.ReadingOf(countName, count->second), 1, kMaxPatterns, 1);
    std::vector<Choice> patterns;
    for (int number = 1; number <= last; ++number) {
        const std::wstring section = PatternSection(number);
        const auto first = settings.lower_bound({section, L""});
        if (first == settings.end() || first->first.section != section) {
            continue;
        }
        const EntryName name = NameEntry(section);
        const auto stored = settings.find(name);
        patterns.push_back(
            {number, stored == settings.end() ? std::wstring() : store.ReadingOf(name, stored->second)});
    }
    return patterns;
}

#pragma once

#include "fakes/CallFaults.h"
#include "fakes/FakeText.h"
#include "fakes/TakeAll.h"
#include "platform/AnsiText.h"
#include "platform/ProfileFiles.h"

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

/// Profile files in memory, with what the system's functions do to a text on its way: blanks around it and one
/// pair of quotes go when it is read, and the buffer cuts it. File, section and key names count without regard to
/// case; a file without a directory is in the Windows directory. Any call can be made to fail.
class FakeProfileFiles final : public ProfileFiles, public CallFaults {
public:
    static constexpr const wchar_t* kWindowsDirectory = L"C:\\Windows";

    enum class Access { Read, Write, Delete, DeleteEntry };

    struct Operation {
        Access access = Access::Read;
        std::wstring file;
        std::wstring section;
        std::wstring key;
        std::wstring value; ///< what was written, or the fallback of a read

        bool operator==(const Operation&) const = default;
    };

    explicit FakeProfileFiles(const AnsiText& ansiText) : ansiText_(ansiText) {}

    [[nodiscard]] std::wstring GetString(const std::wstring& section, const std::wstring& key,
                                         const std::wstring& fallback, const std::wstring& file,
                                         std::size_t bufferBytes) const override {
        if (remembersCalls) {
            operations_.push_back({Access::Read, file, section, key, fallback});
        }
        const auto line = Read(section, key, file);
        std::string bytes =
            line ? WithoutQuotes(Trimmed(*line)) : WithoutTrailingBlanks(ansiText_.Encode(fallback));
        if (bytes.size() >= bufferBytes) {
            bytes.resize(bufferBytes == 0 ? 0 : bufferBytes - 1);
        }
        return ansiText_.Decode(bytes);
    }

    [[nodiscard]] std::int32_t GetInt(const std::wstring& section, const std::wstring& key,
                                      std::int32_t fallback, const std::wstring& file) const override {
        if (remembersCalls) {
            operations_.push_back({Access::Read, file, section, key, std::to_wstring(fallback)});
        }
        const auto line = Read(section, key, file);
        const std::string bytes = line ? WithoutQuotes(Trimmed(*line)) : std::string();
        return bytes.empty() ? fallback : LeadingDigits(bytes);
    }

    bool SetString(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                   const std::wstring& file) override {
        if (remembersCalls) {
            operations_.push_back({Access::Write, file, section, key, value});
        }
        if (WriteFails(key)) {
            return false;
        }
        PutLine(section, key, file, ansiText_.Encode(value));
        return true;
    }

    bool DeleteEntry(const std::wstring& section, const std::wstring& key,
                     const std::wstring& file) override {
        if (remembersCalls) {
            operations_.push_back({Access::DeleteEntry, file, section, key, {}});
        }
        if (WriteFails(key)) {
            return false;
        }
        Remove(section, key, file);
        return true;
    }

    bool DeleteSection(const std::wstring& section, const std::wstring& file) override {
        if (remembersCalls) {
            operations_.push_back({Access::Delete, file, section, {}, {}});
        }
        if (WriteFails({})) {
            return false;
        }
        const Key key = KeyOf(section, {}, file); // of an entry without a name: what all others begin with
        std::erase_if(lines_, [&](const auto& line) { return line.first.starts_with(key); });
        return true;
    }

    /// The bytes behind "key=" in the file. Not an operation.
    void PutLine(const std::wstring& section, const std::wstring& key, const std::wstring& file,
                 std::string_view bytes) {
        lines_[KeyOf(section, key, file)] = bytes;
    }
    void Remove(const std::wstring& section, const std::wstring& key, const std::wstring& file) {
        lines_.erase(KeyOf(section, key, file));
    }
    /// The same bytes as they stand in the file; nothing when there is no such line.
    [[nodiscard]] std::optional<std::string> Line(const std::wstring& section, const std::wstring& key,
                                                  const std::wstring& file) const {
        const auto found = lines_.find(KeyOf(section, key, file));
        return found == lines_.end() ? std::nullopt : std::optional(found->second);
    }

    [[nodiscard]] bool SameLines(const FakeProfileFiles& other) const { return lines_ == other.lines_; }

    /// Where the two have another line, or one of them none.
    [[nodiscard]] std::vector<std::wstring> Differences(const FakeProfileFiles& other) const {
        std::vector<std::wstring> places;
        ForEachDifference(lines_, other.lines_, std::equal_to<>(), [&](const Key& key) {
            places.push_back(ansiText_.Decode(key.substr(key.find(kEndOfName) + 1)));
        });
        return places;
    }
    /// The same for the place that an operation is about.
    [[nodiscard]] static std::wstring PlaceOf(const Operation& operation) {
        return Lowered(operation.section) + L'\n' + Lowered(operation.key);
    }

    void TakeLinesOf(const FakeProfileFiles& other) { TakeAll(lines_, other.lines_, std::equal_to<>()); }
    /// Takes that one line, or that it is missing; all of a section where the operation removes one.
    void TakePlace(const Operation& operation, const FakeProfileFiles& other) {
        const Key key = KeyOf(operation.section, operation.key, operation.file);
        if (operation.access == Access::Delete) {
            for (const auto& [place, line] : other.lines_) {
                if (place.starts_with(key)) {
                    lines_[place] = line;
                }
            }
            return;
        }
        const auto found = other.lines_.find(key);
        if (found == other.lines_.end()) {
            lines_.erase(key);
        } else {
            lines_[key] = found->second;
        }
    }

    /// Every call so far, refused ones too, in order.
    [[nodiscard]] const std::vector<Operation>& Operations() const { return operations_; }
    [[nodiscard]] std::vector<Operation> Writes() const {
        std::vector<Operation> writes;
        for (const Operation& operation : operations_) {
            if (operation.access != Access::Read) {
                writes.push_back(operation);
            }
        }
        return writes;
    }
    void ForgetOperations() { operations_.clear(); }

private:
    /// One text compares and copies faster than three. No name has a line's end in it.
    using Key = std::string;

    [[nodiscard]] Key KeyOf(const std::wstring& section, const std::wstring& key,
                            const std::wstring& file) const {
        const bool bare = file.find(L'\\') == std::wstring::npos;
        Key place;
        constexpr std::size_t kUsual = 64;
        place.reserve(kUsual);
        AppendName(place, bare ? kWindowsDirectory + (L'\\' + file) : file);
        place.push_back(kEndOfName);
        AppendName(place, section);
        place.push_back(kEndOfName);
        AppendName(place, key);
        return place;
    }
    void AppendName(Key& place, const std::wstring& text) const {
        const bool isAscii =
            std::all_of(text.begin(), text.end(), [](wchar_t c) { return c > L' ' && c < 0x7F; });
        if (isAscii) {
            for (const wchar_t c : text) {
                place.push_back(static_cast<char>(c >= L'A' && c <= L'Z' ? c - L'A' + L'a' : c));
            }
        } else {
            place += Trimmed(Lowered(ansiText_.Encode(text)));
        }
    }
    static constexpr char kEndOfName = '\n';

    [[nodiscard]] std::optional<std::string> Read(const std::wstring& section, const std::wstring& key,
                                                  const std::wstring& file) const {
        return ReadFails() ? std::nullopt : Line(section, key, file);
    }

    [[nodiscard]] static std::string WithoutTrailingBlanks(std::string_view bytes) {
        return std::string(bytes.substr(0, bytes.find_last_not_of(' ') + 1));
    }
    [[nodiscard]] static std::string Trimmed(std::string_view bytes) {
        constexpr std::string_view kBlanks = " \t";
        const std::size_t first = bytes.find_first_not_of(kBlanks);
        return first == std::string_view::npos
                   ? std::string()
                   : std::string(bytes.substr(first, bytes.find_last_not_of(kBlanks) - first + 1));
    }
    [[nodiscard]] static std::string WithoutQuotes(const std::string& bytes) {
        const bool quoted = bytes.size() >= 2 && bytes.front() == bytes.back() &&
                            (bytes.front() == '"' || bytes.front() == '\'');
        return quoted ? bytes.substr(1, bytes.size() - 2) : bytes;
    }
    [[nodiscard]] static std::int32_t LeadingDigits(std::string_view bytes) {
        const bool negative = bytes.starts_with('-');
        if (negative || bytes.starts_with('+')) {
            bytes.remove_prefix(1);
        }
        std::uint32_t number = 0;
        for (const char c : bytes) {
            if (c < '0' || c > '9') {
                break;
            }
            number = number * 10 + static_cast<std::uint32_t>(c - '0');
        }
        return static_cast<std::int32_t>(negative ? 0 - number : number);
    }

    const AnsiText& ansiText_;
    std::map<Key, std::string> lines_;
    mutable std::vector<Operation> operations_;
};

#pragma once

#include "fakes/CallFaults.h"
#include "fakes/FakeText.h"
#include "platform/AnsiText.h"
#include "platform/ProfileFiles.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

/// Profile files in memory, with what the system's functions do to a text on its way: blanks around it and one
/// pair of quotes go when it is read, and the buffer cuts it. File, section and key names count without regard to
/// case; a file without a directory is in the Windows directory. Any call can be made to fail.
class FakeProfileFiles final : public ProfileFiles, public CallFaults {
public:
    static constexpr const wchar_t* kWindowsDirectory = L"C:\\Windows";

    enum class Access { Read, Write, Delete };

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
        operations_.push_back({Access::Read, file, section, key, fallback});
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
        operations_.push_back({Access::Read, file, section, key, std::to_wstring(fallback)});
        const auto line = Read(section, key, file);
        const std::string bytes = line ? WithoutQuotes(Trimmed(*line)) : std::string();
        return bytes.empty() ? fallback : LeadingDigits(bytes);
    }

    bool SetString(const std::wstring& section, const std::wstring& key, const std::wstring& value,
                   const std::wstring& file) override {
        operations_.push_back({Access::Write, file, section, key, value});
        if (WriteFails()) {
            return false;
        }
        PutLine(section, key, file, ansiText_.Encode(value));
        return true;
    }

    bool DeleteSection(const std::wstring& section, const std::wstring& file) override {
        operations_.push_back({Access::Delete, file, section, {}, {}});
        if (WriteFails()) {
            return false;
        }
        const auto [wantedFile, wantedSection, key] = KeyOf(section, {}, file);
        std::erase_if(lines_, [&, wantedFile = wantedFile, wantedSection = wantedSection](const auto& line) {
            return std::get<0>(line.first) == wantedFile && std::get<1>(line.first) == wantedSection;
        });
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

    void TakeLinesOf(const FakeProfileFiles& other) { lines_ = other.lines_; }

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
    using Key = std::tuple<std::string, std::string, std::string>;

    [[nodiscard]] Key KeyOf(const std::wstring& section, const std::wstring& key,
                            const std::wstring& file) const {
        const auto name = [&](const std::wstring& text) { return Trimmed(Lowered(ansiText_.Encode(text))); };
        const bool bare = file.find(L'\\') == std::wstring::npos;
        return {name(bare ? kWindowsDirectory + (L'\\' + file) : file), name(section), name(key)};
    }
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

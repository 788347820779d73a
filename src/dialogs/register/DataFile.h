#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

class AnsiText;
class FileSystem;

/// Fields of one record of a data file, without surrounding blanks.
using DataRecord = std::array<std::wstring, 3>;

/// One line: fields between commas; a field in double quotes may hold commas, and a quote as two. Fields that
/// the line lacks are empty, further ones are ignored. Nothing for a line without text.
[[nodiscard]] std::optional<DataRecord> ParseDataLine(std::wstring_view line);

/// Reads the records in a file's bytes, which come in blocks of any size. Text is in the ANSI code page, or
/// in UTF-8 behind its byte-order mark. Lines end with LF or CR LF; Ctrl+Z ends the text.
class DataFileReader {
public:
    /// `take` answers false when it wants no more.
    DataFileReader(const AnsiText& ansiText, std::function<bool(const DataRecord&)> take);

    /// False when no more bytes are wanted.
    bool Feed(std::string_view block);
    /// The line that nothing ended. False when the text is none, or `take` wants no more.
    bool Finish();

private:
    bool TakeLine(std::string_view line);

    const AnsiText& ansiText_;
    std::function<bool(const DataRecord&)> take_;
    std::string line_;
    bool firstLine_ = true;
    bool utf8_ = false;
    bool ended_ = false; ///< by Ctrl+Z
    bool refused_ = false;
};

/// Reads every file in `directory` that matches the name, which may hold wildcards, in the order in which the
/// directory search returns them. Anything that goes wrong, and a `take` that answers false, ends the reading
/// of all of them. True when `take` has accepted at least one record.
bool ReadDataFiles(const FileSystem& files, const AnsiText& ansiText, const std::wstring& directory,
                   const std::wstring& name, const std::function<bool(const DataRecord&)>& take);

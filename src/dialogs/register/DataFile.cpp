#include "dialogs/register/DataFile.h"

#include "browse/Paths.h"
#include "platform/AnsiText.h"
#include "platform/FileSystem.h"
#include "settings/StdModule.h"

#include <utility>
#include <vector>

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr char kEndOfText = '\x1A';

/// One field from `position` on, which then stands behind its comma, or at npos after the line's last field.
std::wstring NextField(std::wstring_view line, std::size_t& position) {
    std::wstring field;
    std::size_t i = line.find_first_not_of(L' ', position);
    if (i != std::wstring_view::npos && line[i] == L'"') {
        for (++i; i < line.size(); ++i) {
            if (line[i] != L'"') {
                field += line[i];
            } else if (i + 1 < line.size() && line[i + 1] == L'"') {
                field += line[i++];
            } else {
                ++i;
                break;
            }
        }
    } else {
        i = position;
    }
    const std::size_t comma = line.find(L',', i);
    field += line.substr(i, comma == std::wstring_view::npos ? comma : comma - i);
    position = comma == std::wstring_view::npos ? comma : comma + 1;
    return TrimBlanks(CutAtNul(field));
}

} // namespace

std::optional<DataRecord> ParseDataLine(std::wstring_view line) {
    if (TrimBlanks(line).empty()) {
        return std::nullopt;
    }
    DataRecord record;
    std::size_t position = 0;
    for (std::wstring& field : record) {
        if (position == std::wstring_view::npos) {
            break;
        }
        field = NextField(line, position);
    }
    return record;
}

DataFileReader::DataFileReader(const AnsiText& ansiText, std::function<bool(const DataRecord&)> take)
    : ansiText_(ansiText), take_(std::move(take)) {}

bool DataFileReader::Feed(std::string_view block) {
    while (!block.empty() && !ended_ && !refused_) {
        const std::size_t end = block.find_first_of("\n\x1A");
        line_ += block.substr(0, end);
        if (end == std::string_view::npos) {
            break;
        }
        ended_ = block[end] == kEndOfText;
        block.remove_prefix(end + 1);
        refused_ = !TakeLine(std::exchange(line_, {}));
    }
    return !ended_ && !refused_;
}

bool DataFileReader::Finish() {
    if (!ended_ && !refused_) {
        refused_ = !TakeLine(std::exchange(line_, {}));
    }
    return !refused_;
}

bool DataFileReader::TakeLine(std::string_view line) {
    if (std::exchange(firstLine_, false)) {
        if (line.starts_with(kUtf16Mark)) {
            return false; // not text in bytes
        }
        utf8_ = line.starts_with(kUtf8Mark);
        line.remove_prefix(utf8_ ? kUtf8Mark.size() : 0);
    }
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    const auto record = ParseDataLine(utf8_ ? FromUtf8(line) : ansiText_.Decode(line));
    return !record || take_(*record);
}

bool ReadDataFiles(const FileSystem& files, const AnsiText& ansiText, const std::wstring& directory,
                   const std::wstring& name, const std::function<bool(const DataRecord&)>& take) {
    std::vector<std::wstring> paths;
    (void)files.Find(JoinPath(directory, name), [&](const FoundFile& found) {
        if ((found.attributes & kAttributeDirectory) == 0) {
            paths.push_back(JoinPath(directory, CutAtNul(found.name)));
        }
        return true;
    });
    bool anyRecord = false;
    const auto takeRecord = [&](const DataRecord& record) {
        const bool taken = take(record);
        anyRecord |= taken;
        return taken;
    };
    for (const std::wstring& path : paths) {
        DataFileReader reader(ansiText, takeRecord);
        const bool read = files.Read(path, [&](std::string_view block) { return reader.Feed(block); });
        if (!read || !reader.Finish()) {
            break;
        }
    }
    return anyRecord;
}

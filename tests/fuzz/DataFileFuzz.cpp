#include "dialogs/register/DataFile.h"

#include "Fuzz.h"
#include "fakes/FakeAnsiText.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace {

using Records = std::vector<DataRecord>;

struct Reading {
    Records records;
    bool finished = false;
};

/// `sizes`: of the blocks, again from the first when there are more blocks; one block for none.
Reading ReadInBlocks(const AnsiText& ansiText, std::string_view bytes, std::string_view sizes,
                     std::size_t most) {
    Reading reading;
    const bool isUtf16 = bytes.starts_with("\xFF\xFE");
    bool wanted = true;
    DataFileReader reader(ansiText, [&](const DataRecord& record) {
        Require(wanted, "a record came behind one that was refused");
        wanted = reading.records.size() < most;
        if (wanted) {
            reading.records.push_back(record);
        }
        return wanted;
    });
    for (std::size_t block = 0; !bytes.empty(); ++block) {
        const std::size_t size =
            sizes.empty() ? bytes.size() : static_cast<std::uint8_t>(sizes[block % sizes.size()]) + 1U;
        const bool goOn = reader.Feed(bytes.substr(0, size));
        Require(wanted || !goOn, "more bytes are wanted behind a refused record");
        bytes.remove_prefix(std::min(size, bytes.size()));
    }
    reading.finished = reader.Finish();
    Require(reading.finished == (wanted && !isUtf16), "Finish tells something else than the records did");
    return reading;
}

void CheckField(const std::wstring& field) {
    Require(field.find(L'\0') == std::wstring::npos && field.find(L'\n') == std::wstring::npos,
            "a field holds what ends it");
    Require(!field.starts_with(L' ') && !field.ends_with(L' '), "a field has blanks around it");
}

void Check(const AnsiText& ansiText, std::string_view bytes, std::string_view sizes) {
    const Records whole = ReadInBlocks(ansiText, bytes, {}, bytes.size() + 1).records;
    Require(ReadInBlocks(ansiText, bytes, sizes, bytes.size() + 1).records == whole,
            "the records depend on the blocks");

    std::size_t characters = 0;
    for (const DataRecord& record : whole) {
        for (const std::wstring& field : record) {
            CheckField(field);
            characters += field.size();
        }
    }
    Require(characters <= bytes.size(), "there is more text than was fed");
    Require(whole.size() <= 1U + static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')),
            "there are more records than lines");

    const std::size_t most = sizes.size();
    Records first = whole;
    first.resize(std::min(most, whole.size()));
    const Reading cut = ReadInBlocks(ansiText, bytes, sizes, most);
    Require(cut.records == first, "a refused record changes those before it");
}

} // namespace

/// The first byte is the number of block sizes behind it; the rest is the file.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const FakeAnsiText western(FakeAnsiText::kWestern);
    static const FakeAnsiText japanese(FakeAnsiText::kJapanese);
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    if (bytes.empty()) {
        return 0;
    }
    const std::size_t sizeCount = std::min<std::size_t>(data[0] % 8U, bytes.size() - 1);
    const std::string_view sizes = bytes.substr(1, sizeCount);
    bytes.remove_prefix(1 + sizeCount);
    Check(western, bytes, sizes);
    Check(japanese, bytes, sizes);
    return 0;
}

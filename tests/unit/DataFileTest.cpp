#include "dialogs/register/DataFile.h"

#include "fakes/FakeAnsiText.h"
#include "fakes/FakeFileSystem.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using Records = std::vector<DataRecord>;

DataRecord Record(const wchar_t* first, const wchar_t* second, const wchar_t* third) {
    return {first, second, third};
}

Records RecordsIn(std::string_view bytes, std::size_t blockSize = 4096,
                  unsigned codePage = FakeAnsiText::kWestern) {
    const FakeAnsiText ansiText(codePage);
    Records records;
    DataFileReader reader(ansiText, [&](const DataRecord& record) {
        records.push_back(record);
        return true;
    });
    for (std::size_t begin = 0; begin < bytes.size(); begin += blockSize) {
        if (!reader.Feed(bytes.substr(begin, blockSize))) {
            break;
        }
    }
    (void)reader.Finish();
    return records;
}

// Lines

TEST(DataLine, HasThreeFieldsBetweenCommas) {
    EXPECT_EQ(ParseDataLine(L"Ctrl+A,30,KeyA"), Record(L"Ctrl+A", L"30", L"KeyA"));
}

TEST(DataLine, KeepsACommaInAQuotedField) {
    EXPECT_EQ(ParseDataLine(L"\"Ctrl, A\",30,\"Key,A\""), Record(L"Ctrl, A", L"30", L"Key,A"));
}

TEST(DataLine, KeepsAQuoteThatIsWrittenTwice) {
    EXPECT_EQ(ParseDataLine(L"\"say \"\"hi\"\"\",2,3"), Record(L"say \"hi\"", L"2", L"3"));
    EXPECT_EQ(ParseDataLine(L"\"\"\"\",2,3"), Record(L"\"", L"2", L"3"));
}

TEST(DataLine, KeepsQuotesInsideAFieldThatDoesNotBeginWithOne) {
    EXPECT_EQ(ParseDataLine(L"a\"b\",2,3"), Record(L"a\"b\"", L"2", L"3"));
}

TEST(DataLine, LosesBlanksAroundFields) {
    EXPECT_EQ(ParseDataLine(L"  a b  ,  2  ,  c  "), Record(L"a b", L"2", L"c"));
    EXPECT_EQ(ParseDataLine(L"  \"a,b\"  ,  \"2\",\"c\"  "), Record(L"a,b", L"2", L"c"));
}

TEST(DataLine, LosesBlanksInsideTheQuotesToo) {
    EXPECT_EQ(ParseDataLine(L"\"  a  \",\" \",c"), Record(L"a", L"", L"c"));
}

TEST(DataLine, LeavesMissingFieldsEmpty) {
    EXPECT_EQ(ParseDataLine(L"a,2"), Record(L"a", L"2", L""));
    EXPECT_EQ(ParseDataLine(L"a"), Record(L"a", L"", L""));
    EXPECT_EQ(ParseDataLine(L"a,"), Record(L"a", L"", L""));
    EXPECT_EQ(ParseDataLine(L"\"a,2"), Record(L"a,2", L"", L"")) << "a quote that nothing closes";
}

TEST(DataLine, KeepsEmptyFields) {
    EXPECT_EQ(ParseDataLine(L",,"), Record(L"", L"", L""));
    EXPECT_EQ(ParseDataLine(L",2,"), Record(L"", L"2", L""));
    EXPECT_EQ(ParseDataLine(L"\"\",\"\",c"), Record(L"", L"", L"c"));
}

TEST(DataLine, IgnoresFurtherFields) {
    EXPECT_EQ(ParseDataLine(L"a,2,c,d,e"), Record(L"a", L"2", L"c"));
}

TEST(DataLine, IsNoRecord_WithoutText) {
    EXPECT_EQ(ParseDataLine(L""), std::nullopt);
    EXPECT_EQ(ParseDataLine(L"    "), std::nullopt);
}

TEST(DataLine, CutsFieldsAtTheirFirstNul) {
    EXPECT_EQ(ParseDataLine(std::wstring_view(L"a\0b,2\0,c", 8)), Record(L"a", L"2", L"c"));
}

TEST(DataLine, KeepsTabs) {
    EXPECT_EQ(ParseDataLine(L"\ta\t,2,c"), Record(L"\ta\t", L"2", L"c"));
}

// Files

TEST(DataFile, HasARecordOnEachLine_EndedInEitherWay) {
    const Records expected{Record(L"a", L"1", L"x"), Record(L"b", L"2", L"y")};
    EXPECT_EQ(RecordsIn("a,1,x\r\nb,2,y\r\n"), expected);
    EXPECT_EQ(RecordsIn("a,1,x\nb,2,y\n"), expected);
    EXPECT_EQ(RecordsIn("a,1,x\nb,2,y\r\n"), expected);
}

TEST(DataFile, NeedsNoNewlineAtItsEnd) {
    EXPECT_THAT(RecordsIn("a,1,x\r\nb,2,y"), ElementsAre(Record(L"a", L"1", L"x"), Record(L"b", L"2", L"y")));
    EXPECT_THAT(RecordsIn("a,1,x\r"), ElementsAre(Record(L"a", L"1", L"x")));
}

TEST(DataFile, MayHaveEmptyLines) {
    EXPECT_THAT(RecordsIn("\r\n\n   \r\na,1,x\r\n\r\n\nb,2,y\n\n"),
                ElementsAre(Record(L"a", L"1", L"x"), Record(L"b", L"2", L"y")));
}

TEST(DataFile, WithoutTextHasNoRecords) {
    EXPECT_THAT(RecordsIn(""), IsEmpty());
    EXPECT_THAT(RecordsIn("\r\n\r\n"), IsEmpty());
    EXPECT_THAT(RecordsIn("\xEF\xBB\xBF"), IsEmpty());
    EXPECT_THAT(RecordsIn("\xEF\xBB\xBF\r\n"), IsEmpty());
}

TEST(DataFile, IsInTheAnsiCodePage) {
    EXPECT_THAT(RecordsIn("\x93\xFA\x96\x7B,1,\x83\\", 4096, FakeAnsiText::kJapanese),
                ElementsAre(Record(L"\x65E5\x672C", L"1", L"\x30BD")));
    EXPECT_THAT(RecordsIn("caf\xE9,1,x"), ElementsAre(Record(L"caf\x00E9", L"1", L"x")));
}

TEST(DataFile, IsInUtf8_BehindItsMark) {
    for (const unsigned codePage : {FakeAnsiText::kWestern, FakeAnsiText::kJapanese}) {
        EXPECT_THAT(RecordsIn("\xEF\xBB\xBF\xE6\x97\xA5,1,x\r\ncaf\xC3\xA9,2,y", 4096, codePage),
                    ElementsAre(Record(L"\x65E5", L"1", L"x"), Record(L"caf\x00E9", L"2", L"y")));
    }
}

TEST(DataFile, HasAQuotedFirstField_BehindTheMark) {
    EXPECT_THAT(RecordsIn("\xEF\xBB\xBF\"a,b\",1,x"), ElementsAre(Record(L"a,b", L"1", L"x")));
}

TEST(DataFile, HasAMarkOnItsFirstLineAlone) {
    EXPECT_THAT(RecordsIn("a,1,x\n\xEF\xBB\xBF"
                          "b,2,y"),
                ElementsAre(Record(L"a", L"1", L"x"), Record(L"\x00EF\x00BB\x00BF"
                                                             L"b",
                                                             L"2", L"y")));
}

TEST(DataFile, HasNoRecords_InUtf16) {
    EXPECT_THAT(RecordsIn(std::string_view("\xFF\xFE"
                                           "a\0,\0"
                                           "1\0\r\0\n\0b\0",
                                           14)),
                IsEmpty());
}

TEST(DataFile, EndsAtCtrlZ) {
    EXPECT_THAT(RecordsIn("a,1,x\r\nb,2,y\x1A"
                          "c,3,z\r\nd,4,w\r\n"),
                ElementsAre(Record(L"a", L"1", L"x"), Record(L"b", L"2", L"y")));
    EXPECT_THAT(RecordsIn("a,1,x\r\n\x1A"), ElementsAre(Record(L"a", L"1", L"x")));
}

TEST(DataFile, MayHaveLinesOfAMegabyte) {
    constexpr std::size_t kLength = 1U << 20U;
    const std::string longText(kLength, 'x');
    const Records records = RecordsIn(longText + ",1,\"" + longText + "\"\r\nb,2,y\r\n");
    ASSERT_THAT(records, SizeIs(2));
    EXPECT_EQ(records[0][0], std::wstring(kLength, L'x'));
    EXPECT_EQ(records[0][1], L"1");
    EXPECT_EQ(records[0][2], std::wstring(kLength, L'x'));
    EXPECT_EQ(records[1], Record(L"b", L"2", L"y"));
}

TEST(DataFile, HasTheSameRecords_InBlocksOfAnySize) {
    const std::string bytes = "\xEF\xBB\xBF\"a,\"\"b\",1,\xE6\x97\xA5\r\n\r\nc,2\r\n,,\nd,3,z";
    const Records whole = RecordsIn(bytes);
    ASSERT_THAT(whole, SizeIs(4));
    for (std::size_t size = 1; size <= bytes.size(); ++size) {
        EXPECT_EQ(RecordsIn(bytes, size), whole) << size;
    }
}

TEST(DataFile, IsReadNoFurther_WhenARecordIsRefused) {
    const FakeAnsiText ansiText(FakeAnsiText::kWestern);
    int offered = 0;
    DataFileReader reader(ansiText, [&](const DataRecord&) { return ++offered < 2; });
    EXPECT_TRUE(reader.Feed("a,1,x\n"));
    EXPECT_FALSE(reader.Feed("b,2,y\nc,3,z\n"));
    EXPECT_FALSE(reader.Feed("d,4,w\n"));
    EXPECT_FALSE(reader.Finish());
    EXPECT_EQ(offered, 2);
}

TEST(DataFile, WantsNoMoreBytes_BehindCtrlZ) {
    const FakeAnsiText ansiText(FakeAnsiText::kWestern);
    int offered = 0;
    DataFileReader reader(ansiText, [&](const DataRecord&) { return ++offered > 0; });
    EXPECT_FALSE(reader.Feed("a,1,x\x1A"));
    EXPECT_FALSE(reader.Feed("b,2,y\n"));
    EXPECT_EQ(offered, 1);
}

// All files that match

class DataFiles : public testing::Test {
public:
    bool Read(const std::wstring& name, std::size_t most = 100) {
        titles.clear();
        return ReadDataFiles(disk, ansiText, L"C:\\QLB", name, [&](const DataRecord& record) {
            if (titles.size() == most) {
                return false;
            }
            titles.push_back(record[0]);
            return true;
        });
    }

    FakeFileSystem disk;
    FakeAnsiText ansiText{FakeAnsiText::kWestern};
    std::vector<std::wstring> titles;
};

TEST_F(DataFiles, AMissingFileIsNoRecord) {
    disk.AddFolder(L"C:\\QLB");
    EXPECT_FALSE(Read(L"A.DAT"));
    EXPECT_THAT(titles, IsEmpty());
    EXPECT_THAT(disk.reads, IsEmpty());
}

TEST_F(DataFiles, AFileWithoutTextIsNoRecord) {
    disk.AddFile(L"C:\\QLB\\A.DAT", "\r\n \r\n");
    EXPECT_FALSE(Read(L"A.DAT"));
}

TEST_F(DataFiles, TheNameCountsInAnyCase) {
    disk.AddFile(L"C:\\QLB\\a.dat", "one,1,x");
    EXPECT_TRUE(Read(L"A.DAT"));
    EXPECT_THAT(titles, ElementsAre(L"one"));
}

TEST_F(DataFiles, TheDirectoryMayEndInABackslash) {
    disk.AddFile(L"C:\\A.DAT", "one,1,x");
    EXPECT_TRUE(ReadDataFiles(disk, ansiText, L"C:\\", L"A.DAT", [](const DataRecord&) { return true; }));
    EXPECT_THAT(disk.searches, ElementsAre(L"C:\\A.DAT"));
    EXPECT_THAT(disk.reads, ElementsAre(L"C:\\A.DAT"));
}

TEST_F(DataFiles, EveryFileThatMatchesIsRead_InTheOrderOfTheSearch) {
    disk.AddFile(L"C:\\QLB\\z.dat", "z1,1,x\nz2,2,x");
    disk.AddFile(L"C:\\QLB\\other.txt", "no,1,x");
    disk.AddFile(L"C:\\QLB\\a.dat", "a1,1,x");
    EXPECT_TRUE(Read(L"*.DAT"));
    EXPECT_THAT(titles, ElementsAre(L"z1", L"z2", L"a1"));
}

TEST_F(DataFiles, ALineDoesNotGoOnInTheNextFile) {
    disk.AddFile(L"C:\\QLB\\1.dat", "\"open,1,x");
    disk.AddFile(L"C:\\QLB\\2.dat", "two,2,\"y\"");
    EXPECT_TRUE(Read(L"?.dat"));
    EXPECT_THAT(titles, ElementsAre(L"open,1,x", L"two"));
}

TEST_F(DataFiles, AFolderThatMatchesIsNotRead) {
    disk.AddFolder(L"C:\\QLB\\A.DAT");
    EXPECT_FALSE(Read(L"A.DAT"));
    EXPECT_THAT(disk.reads, IsEmpty());
}

TEST_F(DataFiles, AHiddenFileIsRead) {
    disk.AddFile(L"C:\\QLB\\A.DAT", "one,1,x", kAttributeArchive | kAttributeHidden);
    EXPECT_TRUE(Read(L"A.DAT"));
    EXPECT_THAT(titles, ElementsAre(L"one"));
}

TEST_F(DataFiles, AFileThatCannotBeOpenedEndsTheReading) {
    disk.AddFile(L"C:\\QLB\\1.dat", "one,1,x");
    disk.AddFile(L"C:\\QLB\\2.dat", "two,2,x");
    disk.AddFile(L"C:\\QLB\\3.dat", "three,3,x");
    disk.FailOpening(L"C:\\QLB\\2.dat");
    EXPECT_TRUE(Read(L"*.dat"));
    EXPECT_THAT(titles, ElementsAre(L"one"));
    disk.FailOpening(L"C:\\QLB\\1.dat");
    EXPECT_FALSE(Read(L"*.dat"));
    EXPECT_THAT(titles, IsEmpty());
}

TEST_F(DataFiles, AReadThatFailsEndsTheReading_AndKeepsTheWholeLinesBefore) {
    disk.AddFile(L"C:\\QLB\\1.dat", "one,1,x\ntwo,2,x\nthree,3,x\n");
    disk.AddFile(L"C:\\QLB\\2.dat", "four,4,x\n");
    disk.FailReadingAfter(L"C:\\QLB\\1.dat", 19);
    disk.blockSize = 5;
    EXPECT_TRUE(Read(L"*.dat"));
    EXPECT_THAT(titles, ElementsAre(L"one", L"two"));
}

TEST_F(DataFiles, ARefusedRecordEndsTheReadingOfAllFiles) {
    disk.AddFile(L"C:\\QLB\\1.dat", "one,1,x\ntwo,2,x\n");
    disk.AddFile(L"C:\\QLB\\2.dat", "three,3,x\n");
    EXPECT_TRUE(Read(L"*.dat", 1));
    EXPECT_THAT(titles, ElementsAre(L"one"));
    EXPECT_THAT(disk.reads, SizeIs(1));
    EXPECT_FALSE(Read(L"*.dat", 0)) << "no record was taken";
}

TEST_F(DataFiles, ARefusedLastRecordWithoutANewlineEndsTheReadingToo) {
    disk.AddFile(L"C:\\QLB\\1.dat", "one,1,x\ntwo,2,x");
    disk.AddFile(L"C:\\QLB\\2.dat", "three,3,x\n");
    EXPECT_TRUE(Read(L"*.dat", 1));
    EXPECT_THAT(disk.reads, SizeIs(1));
}

TEST_F(DataFiles, CtrlZEndsItsOwnFileAlone) {
    disk.AddFile(L"C:\\QLB\\1.dat", "one,1,x\x1A"
                                    "no,0,x");
    disk.AddFile(L"C:\\QLB\\2.dat", "two,2,x");
    EXPECT_TRUE(Read(L"*.dat"));
    EXPECT_THAT(titles, ElementsAre(L"one", L"two"));
}

TEST_F(DataFiles, ABigFileIsReadNoFurtherThanWanted) {
    std::string bytes;
    for (int i = 0; i < 10000; ++i) {
        bytes += "title,1,x\n";
    }
    disk.AddFile(L"C:\\QLB\\A.DAT", bytes);
    EXPECT_TRUE(Read(L"A.DAT", 7));
    EXPECT_THAT(titles, SizeIs(7));
    EXPECT_LE(disk.reportedBytes, disk.blockSize);
}

} // namespace

#include "CommandRig.h"
#include "settings/StdModule.h"

namespace {

using namespace std::string_literals;
using testing::HasSubstr;

const std::string kHead = "; QLBUtl settings, format 1\n";
const std::string kTail = "[END]\n";

struct WrongFile {
    const char* kind;
    std::string bytes;
    const char* message; ///< behind the file's name
    bool iniFile = false;
};

std::vector<WrongFile> WrongFiles() {
    std::string patterns;
    for (int number = 1; number <= 11; ++number) {
        patterns += "[USER" + std::to_string(number) + "]\nUserName=" + std::to_string(number) + "\n";
    }
    return {
        {"Empty", "", "the file is empty"},
        {"NoText", "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"s, "line 3: this is not text"},
        {"Nuls", std::string(4096, '\0'), "line 1: this is not text"},
        {"NoSettings", "Dear Sir or Madam,\nthis is a letter.\n", "there are no settings in this file"},
        {"NoUtf8", kHead + "[USER1]\nUserName=Gr\xF6\xDF"s + "e\n" + kTail,
         "line 3: this is not text in UTF-8"},
        {"LaterFormat", "; QLBUtl settings, format 2\n" + kTail, "line 1: this version of the format"},
        {"NoFirstLine", "[USER1]\nUserName=Home\n" + kTail, "line 1: the first line is missing"},
        {"CutOff", kHead + "[USER1]\nUserName=Ho", "line 3: the file is cut off"},
        {"CutOffInAQuote", kHead + "[USER1]\nUserName=\"Ho", "line 3: UserName begins with a quote"},
        {"CutOffInACharacter", kHead + "[USER1]\nUserName=\xE6\x97", "line 3: this is not text in UTF-8"},
        {"MoreBehindTheEnd", kHead + kTail + "[USER1]\n", "line 3: there is more behind [END]"},
        {"ElevenPatterns", kHead + patterns + kTail, "line 22: more than ten Patterns: USER11"},
        {"CountOfEleven", kHead + "[KORVOQLB]\nNumUser=11\n" + kTail,
         "line 3: more than ten Patterns: NumUser"},
        {"CurrentOfNone", kHead + "[KORVOQLB]\nCurrUser=0\n" + kTail,
         "line 3: CurrUser is no number of a Pattern"},
        {"NameTwice", kHead + "[USER1]\nUserName=Home\n[USER2]\nUserName=Home\n" + kTail,
         "line 5: two Patterns have the name \"Home\""},
        {"SectionTwice", kHead + "[USER1]\n[user1]\n" + kTail, "line 3: [USER1] is there twice"},
        {"KeyTwice", kHead + "[USER1]\nBtn1_Name=a\nBtn1_Name=b\n" + kTail,
         "line 4: [USER1] Btn1_Name is there twice"},
        {"ProgramCount", kHead + "[USER1]\nBtn3_NumAP=6\n" + kTail,
         "line 3: Btn3_NumAP is no number of programs, 0 to 5"},
        {"ProgramCountInWords", kHead + "[USER1]\nBtn3_NumAP=two\n" + kTail,
         "line 3: Btn3_NumAP is no number of programs"},
        {"NoNumber", kHead + "[ONSCREEN]\nColor=red\n" + kTail, "line 3: Color is no number"},
        {"TooLong", kHead + "[USER1]\nBtn1_AP1=" + std::string(2049, 'x') + "\n" + kTail,
         "line 3: Btn1_AP1 is longer than the 2048 bytes"},
        {"TooLongForTheIniFile", kHead + "[USER1]\nBtn1_AP1=" + std::string(512, 'x') + "\n" + kTail,
         "line 3: Btn1_AP1 is longer than the 511 bytes", true},
        {"LineEndForTheIniFile", kHead + "[USER1]\nBtn1_Name=\"a\\nb\"\n" + kTail,
         "line 3: Btn1_Name has a line end", true},
        {"NotInTheCodePage", kHead + "[USER1]\nUserName=\xE5\xAE\xB6\n" + kTail,
         "line 3: UserName has characters that"},
        {"Nul", kHead + "[USER1]\nUserName=\"a\\u0000b\"\n" + kTail, "line 3: UserName has a NUL character"},
        {"UnknownEscape", kHead + "[USER1]\nBtn1_AP1=\"C:\\Programs\\x.exe\"\n" + kTail,
         "line 3: Btn1_AP1 has a backslash with no meaning"},
        {"TextBehindTheQuote", kHead + "[USER1]\nBtn1_AP1=\"x.exe\" /y\n" + kTail,
         "line 3: Btn1_AP1 goes on behind its closing quote"},
        {"WrongBytes", kHead + "[USER1]\nBtn1_AP1=hex(1):4\n" + kTail,
         "line 3: Btn1_AP1 has hex(...) without"},
        {"NoEntry", kHead + "[USER1]\nUserName\n" + kTail, "line 3: neither a section nor an entry"},
        {"NoSectionYet", kHead + "UserName=Home\n" + kTail, "line 2: an entry before the first section"},
        {"OpenSection", kHead + "[USER1\n" + kTail, "line 2: a section without its end: [USER1"},
    };
}

void PrintTo(const WrongFile& file, std::ostream* stream) {
    *stream << file.kind;
}

class FilesThatAreWrong : public testing::TestWithParam<WrongFile> {};

TEST_P(FilesThatAreWrong, ChangeNothingAndAreToldByLine) {
    const WrongFile& wrong = GetParam();
    CommandRig rig({wrong.iniFile, FakeAnsiText::kWestern});
    rig.PutPattern(1, "Office", 1);
    rig.wholeFiles.Put(L"C:\\wrong.qlb", wrong.bytes);
    for (const wchar_t* const command : {L"restore", L"import"}) {
        EXPECT_EQ(rig.Qlb({command, L"C:\\wrong.qlb"}), kExitFile);
        EXPECT_THAT(ToUtf8(rig.console.error), HasSubstr(std::string("C:\\wrong.qlb: ") + wrong.message));
        EXPECT_EQ(rig.console.out, L"");
    }
    EXPECT_THAT(rig.Written(), testing::IsEmpty());
    EXPECT_THAT(rig.BackupNames(), testing::IsEmpty());
    EXPECT_THAT(rig.windows.Events(), testing::IsEmpty());

    rig.tongue = Tongue::Japanese;
    EXPECT_EQ(rig.Qlb({L"restore", L"C:\\wrong.qlb"}), kExitFile);
    EXPECT_NE(rig.console.error.find_first_of(L"がはをんいま"), std::wstring::npos);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FilesThatAreWrong, testing::ValuesIn(WrongFiles()),
                         [](const auto& each) { return std::string(each.param.kind); });

} // namespace

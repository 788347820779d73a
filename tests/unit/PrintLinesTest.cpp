#include "print/CQlbPrint.h"

#include "TestStore.h"

#include <limits>

void PrintTo(const PrintLine& line, std::ostream* stream) {
    *stream << testing::PrintToString(line.label) << ' ' << testing::PrintToString(line.value);
}

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Test;

using Lines = std::vector<PrintLine>;

const PrintLine kEmptyLine;

class PrintLines : public Test, public TestStore {
protected:
    explicit PrintLines(unsigned codePage = FakeAnsiText::kWestern) : TestStore(codePage) {
        print.IniFileName(kOwnFile);
    }

    CQlbPrint print{store};

    Lines Read() {
        print.ReadPrintData();
        return print.Lines();
    }
    std::wstring MethodOf(const std::wstring& code) {
        PutButton(1, "Execute", ansiText.Encode(code).c_str());
        return Read().at(3).value;
    }
    /// The labels of the first button's programs.
    std::vector<std::wstring> Programs() {
        std::vector<std::wstring> labels;
        const Lines lines = Read();
        for (std::size_t i = 4; lines.at(i) != kEmptyLine; ++i) {
            labels.push_back(lines[i].label);
        }
        return labels;
    }

    void PutButton(int button, const char* name, const char* text) { PutUser(Key(button), Wide(name), text); }
    void PutCount(int button, std::int32_t count) { PutUser(Key(button), L"NumAP", count); }

    static std::wstring Key(int button, int pattern = 1) {
        return L"Setting\\Set" + std::to_wstring(pattern) + L"\\AppKey" + std::to_wstring(button);
    }
    static std::wstring Wide(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

    /// Of a Pattern with a name alone.
    static Lines Bare(const std::wstring& name) {
        return {{L"設定名　　　", L"：" + name}, kEmptyLine, {L"ボタン１名称", L"："},
                {L"実行形態　　", L"："},        kEmptyLine, {L"ボタン２名称", L"："},
                {L"実行形態　　", L"："},        kEmptyLine, {L"ボタン３名称", L"："},
                {L"実行形態　　", L"："},        kEmptyLine, {L"ボタン４名称", L"："},
                {L"実行形態　　", L"："},        kEmptyLine, {L"ボタン５名称", L"："},
                {L"実行形態　　", L"："},        kEmptyLine};
    }
};

class PrintLinesInTheFile : public PrintLines {
protected:
    PrintLinesInTheFile() { store.IniFileExist = true; }
};

class PrintLinesInJapanese : public PrintLines {
protected:
    PrintLinesInJapanese() : PrintLines(FakeAnsiText::kJapanese) {}
};

const Lines kFullPattern = {{L"設定名　　　", L"：Office"},
                            kEmptyLine,
                            {L"ボタン１名称", L"：Mail"},
                            {L"実行形態　　", L"：単独"},
                            {L"起動ＡＰ１　", L"：C:\\mail.exe|/inbox"},
                            kEmptyLine,
                            {L"ボタン２名称", L"：Morning"},
                            {L"実行形態　　", L"：順次"},
                            {L"起動ＡＰ１　", L"：C:\\a.exe"},
                            {L"起動ＡＰ２　", L"：C:\\b.exe"},
                            {L"起動ＡＰ３　", L"：C:\\c.exe"},
                            {L"起動ＡＰ４　", L"：C:\\d.exe"},
                            {L"起動ＡＰ５　", L"：C:\\e.exe"},
                            kEmptyLine,
                            {L"ボタン３名称", L"：Both"},
                            {L"実行形態　　", L"：同時"},
                            {L"起動ＡＰ１　", L"：x.exe"},
                            {L"起動ＡＰ２　", L"：y.exe"},
                            kEmptyLine,
                            {L"ボタン４名称", L"：Copy"},
                            {L"実行形態　　", L"：ショートカット"},
                            {L"起動ＡＰ１　", L"：131139"},
                            kEmptyLine,
                            {L"ボタン５名称", L"：Free"},
                            {L"実行形態　　", L"：単独"},
                            kEmptyLine};

TEST_F(PrintLines, AreThePatternsNameAndABlockForEachOfFiveButtons) {
    struct Button {
        const char* name;
        const char* method;
        std::vector<const char*> programs;
    };
    const std::vector<Button> buttons = {
        {"Mail", "M", {"C:\\mail.exe|/inbox"}},
        {"Morning", "S", {"C:\\a.exe", "C:\\b.exe", "C:\\c.exe", "C:\\d.exe", "C:\\e.exe"}},
        {"Both", "P", {"x.exe", "y.exe"}},
        {"Copy", "K", {"131139"}},
        {"Free", "M", {}},
        {"Sixth", "M", {"C:\\sixth.exe"}}};
    PutUser(L"", L"CurrSetting", 1);
    PutUser(L"Setting\\Set1", L"SetName", "Office");
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const int button = static_cast<int>(i) + 1;
        PutButton(button, "DispTitle", buttons[i].name);
        PutButton(button, "Execute", buttons[i].method);
        PutCount(button, static_cast<std::int32_t>(buttons[i].programs.size()));
        for (std::size_t k = 0; k < buttons[i].programs.size(); ++k) {
            PutButton(button, ("AP" + std::to_string(k + 1)).c_str(), buttons[i].programs[k]);
            PutButton(button, ("ProgName" + std::to_string(k + 1)).c_str(), "Title");
        }
    }
    EXPECT_THAT(Read(), ElementsAreArray(kFullPattern));
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(PrintLinesInTheFile, AreThePatternsNameAndABlockForEachOfFiveButtons) {
    const std::vector<std::pair<const wchar_t*, const char*>> entries = {
        {L"UserName", "Office"},    {L"Btn1_Name", "Mail"},     {L"Btn1_Exec", "M"},
        {L"Btn1_NumAP", "1"},       {L"Btn2_Name", "Morning"},  {L"Btn1_AP1", "C:\\mail.exe|/inbox"},
        {L"Btn2_Exec", "S"},        {L"Btn2_NumAP", "5"},       {L"Btn2_AP1", "C:\\a.exe"},
        {L"Btn2_AP2", "C:\\b.exe"}, {L"Btn2_AP3", "C:\\c.exe"}, {L"Btn2_AP4", "C:\\d.exe"},
        {L"Btn2_AP5", "C:\\e.exe"}, {L"Btn3_Name", "Both"},     {L"Btn3_Exec", "P"},
        {L"Btn3_NumAP", "2"},       {L"Btn3_AP1", "x.exe"},     {L"Btn3_AP2", "y.exe"},
        {L"Btn4_Name", "Copy"},     {L"Btn4_Exec", "K"},        {L"Btn4_NumAP", "1"},
        {L"Btn4_AP1", "131139"},    {L"Btn5_Name", "Free"},     {L"Btn5_Exec", "M"},
        {L"Btn5_NumAP", "0"},       {L"Btn6_Name", "Sixth"},    {L"Btn6_NumAP", "1"}};
    PutLine(L"KORVOQLB", L"CurrUser", "4");
    for (const auto& [key, text] : entries) {
        PutLine(L"USER4", key, text);
    }
    EXPECT_THAT(Read(), ElementsAreArray(kFullPattern));
    EXPECT_THAT(registry.Operations(), IsEmpty());
    EXPECT_THAT(Written(), IsEmpty());
}

TEST_F(PrintLinesInJapanese, CarryJapaneseTexts) {
    PutUser(L"Setting\\Set1", L"SetName", ansiText.Encode(L"仕事").c_str());
    PutButton(1, "DispTitle", ansiText.Encode(L"メール").c_str());
    PutCount(1, 1);
    PutButton(1, "AP1", ansiText.Encode(L"C:\\表示\\ソフト.exe").c_str());
    const Lines lines = Read();
    EXPECT_EQ(lines.at(0).value, L"：仕事");
    EXPECT_EQ(lines.at(2).value, L"：メール");
    EXPECT_EQ(lines.at(4), (PrintLine{L"起動ＡＰ１　", L"：C:\\表示\\ソフト.exe"}));
}

TEST_F(PrintLines, HaveJapaneseLabels_WhereTheCodePageHasNoJapanese) {
    PutUser(L"Setting\\Set1", L"SetName", "Caf\xE9");
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"Café")));
}

TEST_F(PrintLines, AreAllThere_WithNothingStored) {
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"")));
}

TEST_F(PrintLinesInTheFile, AreAllThere_WithNothingStored) {
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"")));
}

TEST_F(PrintLines, AreAllThere_WhenTheRegistryRefuses) {
    PutUser(L"Setting\\Set1", L"SetName", "Home");
    registry.refusesReads = true;
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"")));
}

TEST_F(PrintLinesInTheFile, AreAllThere_WhenTheFileCannotBeRead) {
    PutLine(L"USER1", L"UserName", "Home");
    files.refusesReads = true;
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"")));
}

TEST_F(PrintLines, OfValuesOfAnotherTypeAreSafe) {
    PutUser(Key(1), L"NumAP", "many");
    registry.PutRaw(RegistryHive::CurrentUser, Path(Key(2)), L"NumAP", kRegistryDword, "");
    PutUser(L"", L"CurrSetting", "first");
    PutUser(L"Setting\\Set1", L"SetName", "First");
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"First")));
}

TEST_F(PrintLines, AreOfTheFirstPattern_WithoutACurrentOne) {
    PutUser(L"Setting\\Set1", L"SetName", "First");
    PutUser(L"Setting\\Set2", L"SetName", "Second");
    EXPECT_EQ(Read().at(0).value, L"：First");
}

TEST_F(PrintLinesInTheFile, AreOfTheFirstPattern_WithoutACurrentOne) {
    PutLine(L"USER1", L"UserName", "First");
    PutLine(L"USER2", L"UserName", "Second");
    EXPECT_EQ(Read().at(0).value, L"：First");
}

TEST_F(PrintLines, AreOfTheCurrentPattern) {
    PutUser(L"", L"CurrSetting", 10);
    PutUser(L"Setting\\Set1", L"SetName", "First");
    PutUser(L"Setting\\Set10", L"SetName", "Tenth");
    PutUser(Key(5, 10), L"DispTitle", "Last button");
    const Lines lines = Read();
    EXPECT_EQ(lines.at(0).value, L"：Tenth");
    EXPECT_EQ(lines.at(14), (PrintLine{L"ボタン５名称", L"：Last button"}));
}

TEST_F(PrintLines, AreEmptyOnesOfAPatternThatDoesNotExist) {
    PutUser(L"Setting\\Set1", L"SetName", "First");
    for (const int number : {11, 0, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        PutUser(L"", L"CurrSetting", number);
        EXPECT_THAT(Read(), ElementsAreArray(Bare(L""))) << number;
    }
}

TEST_F(PrintLines, AskTheStoreForTheCurrentPatternAlone) {
    PutUser(L"", L"CurrSetting", 2);
    PutUser(Key(1, 2), L"NumAP", 1);
    print.ReadPrintData();
    EXPECT_THAT(Asked(),
                ElementsAre("HKCU CurrSetting", "HKCU Setting\\Set2 SetName",
                            "HKCU Setting\\Set2\\AppKey1 DispTitle", "HKCU Setting\\Set2\\AppKey1 Execute",
                            "HKCU Setting\\Set2\\AppKey1 NumAP", "HKCU Setting\\Set2\\AppKey1 AP1",
                            "HKCU Setting\\Set2\\AppKey2 DispTitle", "HKCU Setting\\Set2\\AppKey2 Execute",
                            "HKCU Setting\\Set2\\AppKey2 NumAP", "HKCU Setting\\Set2\\AppKey3 DispTitle",
                            "HKCU Setting\\Set2\\AppKey3 Execute", "HKCU Setting\\Set2\\AppKey3 NumAP",
                            "HKCU Setting\\Set2\\AppKey4 DispTitle", "HKCU Setting\\Set2\\AppKey4 Execute",
                            "HKCU Setting\\Set2\\AppKey4 NumAP", "HKCU Setting\\Set2\\AppKey5 DispTitle",
                            "HKCU Setting\\Set2\\AppKey5 Execute", "HKCU Setting\\Set2\\AppKey5 NumAP"));
}

TEST_F(PrintLines, ShowTheLaunchMethodsLabel) {
    EXPECT_EQ(MethodOf(L"M"), L"：単独");
    EXPECT_EQ(MethodOf(L"S"), L"：順次");
    EXPECT_EQ(MethodOf(L"P"), L"：同時");
    EXPECT_EQ(MethodOf(L"K"), L"：ショートカット");
}

TEST_F(PrintLines, ShowTheLaunchMethodsLabel_OfASmallLetter) {
    EXPECT_EQ(MethodOf(L"m"), L"：単独");
    EXPECT_EQ(MethodOf(L"s"), L"：順次");
    EXPECT_EQ(MethodOf(L"p"), L"：同時");
    EXPECT_EQ(MethodOf(L"k"), L"：ショートカット");
}

TEST_F(PrintLines, ShowNoLaunchMethod_ForAnyOtherCode) {
    for (const wchar_t* code : {L"", L"X", L"MM", L"M ", L" M", L"0", L"単独"}) {
        EXPECT_EQ(MethodOf(code), L"：") << testing::PrintToString(std::wstring(code));
    }
}

TEST_F(PrintLines, HaveNoProgram_WhenTheirNumberIsZero) {
    PutButton(1, "AP1", "C:\\left.exe");
    PutCount(1, 0);
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"")));
}

TEST_F(PrintLines, HaveNoProgram_WhenTheirNumberIsNegative) {
    PutButton(1, "AP1", "C:\\left.exe");
    for (const int count : {-1, -5, std::numeric_limits<int>::min()}) {
        PutCount(1, count);
        EXPECT_THAT(Programs(), IsEmpty()) << count;
    }
}

TEST_F(PrintLines, HaveFiveProgramsAtMost) {
    for (const int count : {5, 6, 255, 65536, std::numeric_limits<int>::max()}) {
        PutCount(1, count);
        EXPECT_THAT(Programs(), ElementsAre(L"起動ＡＰ１　", L"起動ＡＰ２　", L"起動ＡＰ３　",
                                            L"起動ＡＰ４　", L"起動ＡＰ５　"))
            << count;
    }
}

TEST_F(PrintLines, ShowAProgramWithoutACommandAsEmpty) {
    PutCount(1, 2);
    PutButton(1, "AP2", "C:\\second.exe");
    const Lines lines = Read();
    EXPECT_EQ(lines.at(4), (PrintLine{L"起動ＡＰ１　", L"："}));
    EXPECT_EQ(lines.at(5), (PrintLine{L"起動ＡＰ２　", L"：C:\\second.exe"}));
}

TEST_F(PrintLinesInTheFile, HaveAsManyProgramsAsTheLeadingNumberSays) {
    const std::vector<std::pair<const char*, std::size_t>> cases = {
        {"none", 0}, {"", 0}, {"-3", 0}, {"2 programs", 2}, {"3.9", 3}, {"99", 5}, {"2147483647", 5}};
    for (const auto& [text, count] : cases) {
        PutLine(L"USER1", L"Btn1_NumAP", text);
        EXPECT_EQ(Programs().size(), count) << text;
    }
}

TEST_F(PrintLines, ComeFromTheFileThatWasNamed) {
    const std::wstring other = L"C:\\other\\settings.ini";
    PutUser(L"", L"CurrSetting", 1);
    PutUser(L"Setting\\Set1", L"SetName", "In the registry");
    files.PutLine(L"KORVOQLB", L"CurrUser", other, "3");
    files.PutLine(L"USER3", L"UserName", other, "In the file");
    print.IniFileName(other);
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"In the file")));
    EXPECT_THAT(registry.Operations(), IsEmpty());
}

TEST_F(PrintLinesInTheFile, ComeFromTheProductsFile_WhenNoneIsNamed) {
    PutLine(L"USER1", L"UserName", "Home");
    CQlbPrint unnamed(store);
    unnamed.ReadPrintData();
    EXPECT_THAT(unnamed.Lines(), ElementsAreArray(Bare(L"Home")));
    ASSERT_FALSE(files.Operations().empty());
    for (const auto& operation : files.Operations()) {
        EXPECT_EQ(operation.file, L"korvoqlb.ini");
    }
}

TEST_F(PrintLines, AreReadAnewEachTime) {
    PutUser(L"Setting\\Set1", L"SetName", "Before");
    PutCount(1, 5);
    Read();
    PutUser(L"Setting\\Set1", L"SetName", "After");
    PutCount(1, 0);
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"After")));
}

TEST_F(PrintLines, CanBeAppendedAndCleared) {
    EXPECT_THAT(print.Lines(), IsEmpty());
    print.SetPrintData({L"a", L"：1"});
    print.SetPrintData({});
    print.SetPrintData({L"b", L"：2"});
    EXPECT_THAT(print.Lines(), ElementsAre(PrintLine{L"a", L"：1"}, PrintLine{}, PrintLine{L"b", L"：2"}));
    print.Clear();
    EXPECT_THAT(print.Lines(), IsEmpty());
    EXPECT_THAT(Read(), ElementsAreArray(Bare(L"")));
}

TEST_F(PrintLines, AlignTheirColons) {
    PutCount(1, 5);
    for (const PrintLine& line : Read()) {
        if (line != kEmptyLine) {
            EXPECT_EQ(line.label.size(), std::size_t{6}) << testing::PrintToString(line);
            EXPECT_EQ(line.value.front(), L'：');
        }
    }
}

} // namespace

#include "UiTest.h"

namespace {

class IniBackEnd : public UiTest {
protected:
    IniBackEnd() { SeedIniBackEnd(); }

    static std::wstring NewName() { return Local(L"Encyclopædia", L"百科事典"); }

    static StoredPattern Renamed() {
        StoredPattern pattern = Seeded(1);
        pattern.Button(2).name = NewName();
        return pattern;
    }

    void ExpectRegistryUntouched() const { EXPECT_FALSE(User().Exists()); }
};

TEST_F(IniBackEnd, ShowsWhatTheFileHolds) {
    Start();
    EXPECT_EQ(ShownNames(1, 5), NamesOf(Seeded(1), 1, 5));
    EXPECT_EQ(Combo(IDC_cmbUserName0).Count(), kPatterns);
    OpenPage(2);
    EXPECT_EQ(Combo(IDC_cmbFontName).SelectedText(), SeededOnScreen().face);
}

TEST_F(IniBackEnd, ApplyStoresARenamedButtonInTheFile) {
    const auto& launcher = StartLauncher();
    Start();
    NameBox(2).SetText(NewName());
    Apply();
    EXPECT_EQ(ReadPattern(Ini(), 1), Renamed());
    EXPECT_EQ(ReadPattern(Ini(), 2), Seeded(2));
    EXPECT_EQ(ReadOnScreen(Ini()), SeededOnScreen());
    const auto entry = launcher.WaitForEntries(1)[0];
    EXPECT_EQ(entry.Value(L"backend"), L"ini");
    EXPECT_EQ(SeenPattern(entry), Renamed());
    ExpectRegistryUntouched();
}

TEST_F(IniBackEnd, ApplyWithoutChangesLeavesTheFileAsItWas) {
    const std::string before = Ini().Bytes();
    Start();
    Apply();
    EXPECT_EQ(Ini().Bytes(), before);
    ExpectRegistryUntouched();
}

TEST_F(IniBackEnd, OkAndYesSavesInTheFile) {
    Start();
    NameBox(2).SetText(NewName());
    PressAndAwaitQuestion(IDC_cmdOK).Press(IDYES);
    ExpectEnd();
    EXPECT_EQ(ReadPattern(Ini(), 1), Renamed());
    ExpectRegistryUntouched();
}

TEST_F(IniBackEnd, APatternSwitchIsWrittenToTheFile) {
    Start();
    Combo(IDC_cmbUserName0).Choose(1);
    const auto switched = [&] {
        return Ini().Get("KORVOQLB", "CurrUser") == "2" && ShownNames(1, 5) == NamesOf(Seeded(2), 1, 5);
    };
    UiDriver::WaitUntil(switched, L"the second pattern to be current and shown");
    EXPECT_EQ(ReadPattern(Ini(), 1), Seeded(1));
    ExpectRegistryUntouched();
}

TEST_F(IniBackEnd, TheFilesKeyboardValueStandsInForTheMachines) {
    Machine().SetDword(L"QLBB", 0);
    Start();
    ExpectAlive();
}

TEST_F(IniBackEnd, TheDefaultsComeFromTheirIniStyleNames) {
    const UiDriver::RegistryKey defaults = Machine().Sub(L"Default\\USER1");
    defaults.SetString(L"Btn1_Name", Local(L"Début", L"開始"));
    defaults.SetString(L"Btn1_Exec", L"S");
    defaults.SetString(L"Btn1_NumAP", L"2");
    defaults.SetString(L"Btn1_AP1", L"C:\\first.exe");
    defaults.SetString(L"Btn1_AP2", L"C:\\second.exe|/x");
    Start();
    Item(IDC_cmdDefault0).Press();
    Dialog().WaitUntilAnswers();
    EXPECT_EQ(NameBox(1).Text(), Local(L"Début", L"開始"));
    Apply();
    const StoredButton expected{
        Local(L"Début", L"開始"), L"S", 2, {L"C:\\first.exe", L"C:\\second.exe|/x"}, {}};
    EXPECT_EQ(ReadPattern(Ini(), 1).Button(1), expected);
}

} // namespace

#include "UiTest.h"

namespace {

/// 64-bit Windows has the maker's key twice: for 64-bit programs and for 32-bit ones.
class RegistryHalf : public UiTest {
protected:
    static UiDriver::RegistryKey Other() { return UiDriver::Store::OtherMachine(); }

    static void SetCaption(const UiDriver::RegistryKey& machine, const std::wstring& caption) {
        machine.Sub(L"UTLSetting\\TabName").SetString(L"Tab0", caption);
    }
    void MoveToOther() const {
        Machine().CopyTo(Other());
        Machine().EraseTree();
    }
};

TEST_F(RegistryHalf, OfThePrograms_IsRead_WhenOnlyThatHasTheKey) {
    SetCaption(Machine(), L"Own");
    Start();
    EXPECT_EQ(Tabs().Caption(0), L"Own");
}

TEST_F(RegistryHalf, OfTheOtherKindOfPrograms_IsRead_WhenOnlyThatHasTheKey) {
    SetCaption(Machine(), L"Other");
    MoveToOther();
    User().EraseTree();
    Start();
    EXPECT_EQ(Tabs().Caption(0), L"Other");
    EXPECT_EQ(ShownNames(1, 5), NamesOf(SeededDefault(), 1, 5)) << "the maker's default Pattern";
    Apply();
    EXPECT_FALSE(Machine().Exists());
    EXPECT_EQ(StoredCurrent(), 1U) << "the user's settings have one place for all programs";
}

TEST_F(RegistryHalf, OfThePrograms_IsRead_WhenBothHaveTheKey) {
    Machine().CopyTo(Other());
    SetCaption(Machine(), L"Own");
    SetCaption(Other(), L"Other");
    Start();
    EXPECT_EQ(Tabs().Caption(0), L"Own");
}

TEST_F(RegistryHalf, OfThePrograms_IsRead_WhenItHasTheKeyWithNothingInIt) {
    MoveToOther();
    Machine().SetDword(L"Anything", 1);
    const UiDriver::Process program = UiDriver::Process::Start(ProgramPath(), L"/k");
    EXPECT_EQ(program.WaitForExit(), 0U) << "no keyboard there";
}

TEST_F(RegistryHalf, WithoutTheKeyInEither_TheProgramEnds) {
    Machine().EraseTree();
    const UiDriver::Process program = UiDriver::Process::Start(ProgramPath(), L"/k");
    EXPECT_EQ(program.WaitForExit(), 0U);
}

TEST_F(RegistryHalf, IsChosenOnceAtTheStart) {
    Machine().Sub(L"UTLSetting\\ButtonName").SetString(L"AppKey1", L"Other");
    MoveToOther();
    Start();
    Machine().Sub(L"UTLSetting\\ButtonName").SetString(L"AppKey1", L"Own");
    Item(IDC_cmdWizard0).Press();
    const UiDriver::Window wizard = UiDriver::WaitForForm(Program(), Text(kTitleText) + L' ' + Text(3200));
    EXPECT_THAT(wizard.Control(IDC_optMFButton0).Text(), testing::HasSubstr(L"Other"));
}

} // namespace

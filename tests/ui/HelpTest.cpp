#include "PatternManagerUse.h"
#include "RegisterUse.h"
#include "TestWindow.h"
#include "WizardUse.h"

namespace {

namespace Keyboard = UiDriver::Keyboard;

/// The program copied to a folder of the test's own, where it decides whether there is a help file.
class Help : public UiTest {
protected:
    Help() {
        if (!CreateDirectoryW(kFolder, nullptr) && GetLastError() != ERROR_ALREADY_EXISTS) {
            UiDriver::FailLastError(L"making the folder for the program's copy");
        }
        RemoveFiles();
        if (!CopyFileW(ProgramPath().c_str(), Copy().c_str(), FALSE)) {
            UiDriver::FailLastError(L"copying the program");
        }
    }

    void MakeHelpFile() const { UiDriver::WriteBytes(HelpFile(), "ITSF"); }

    /// Removes the copy once the program has ended.
    void TearDown() override {
        EndProgram();
        RemoveFiles();
        RemoveDirectoryW(kFolder);
    }

    void StartCopy() { StartFrom(Copy()); }
    UiDriver::Process StartCopyAlone() const { return UiDriver::Process::Start(Copy(), L"/w:0"); }

    /// Presses the button and waits for the form that it opens.
    UiDriver::Window OpenForm(const UiDriver::Control& button, const std::wstring& title) const {
        button.Press();
        return UiDriver::WaitForForm(Program(), title);
    }

    static void ExpectTheHelpKeyToOpenHelp(const UiDriver::Window& form) {
        TestWindow help(L"HH Parent", HelpTitle());
        help.GiveWayTo(form);
        form.WaitUntilAnswers();
        Keyboard::Press(VK_F1);
        help.WaitUntilItComesForward();
    }
    static void ExpectTheHelpKeyToDoNothing(const UiDriver::Window& form) {
        TestWindow help(L"HH Parent", HelpTitle());
        help.GiveWayTo(form);
        form.WaitUntilAnswers();
        Keyboard::Press(VK_F1);
        EXPECT_TRUE(UiDriver::HoldsFor([&] { return !help.CameForward(); }, UiDriver::Milliseconds(300)));
    }
    static std::wstring WizardTitle() { return Text(kTitleText) + L' ' + Text(kWizardTitleText); }

    static std::wstring HelpTitle() { return Text(kTitleText) + Text(kHelpText); }

private:
    static constexpr wchar_t kFolder[] = L"C:\\qlb-help-test";

    static std::wstring Copy() { return std::wstring(kFolder) + L"\\QLBUtl.exe"; }
    static std::wstring HelpFile() { return std::wstring(kFolder) + L"\\QLBUTL.CHM"; }

    static void RemoveFiles() {
        UiDriver::RemoveFile(Copy());
        UiDriver::RemoveFile(HelpFile());
    }
};

TEST_F(Help, IsDisabledWithoutItsFile) {
    StartCopy();
    EXPECT_FALSE(Item(IDC_cmdHelp).Enabled());
}

TEST_F(Help, IsEnabledWithItsFile) {
    MakeHelpFile();
    StartCopy();
    EXPECT_TRUE(Item(IDC_cmdHelp).Enabled());
}

TEST_F(Help, BringsTheOpenHelpWindowForward) {
    MakeHelpFile();
    StartCopy();
    TestWindow help(L"HH Parent", HelpTitle());
    help.GiveWayTo(Dialog());
    Item(IDC_cmdHelp).Press();
    help.WaitUntilItComesForward();
    ExpectAlive();
}

TEST_F(Help, TheHelpKeyDoesTheSame) {
    MakeHelpFile();
    StartCopy();
    TestWindow help(L"HH Parent", HelpTitle());
    help.GiveWayTo(Dialog());
    NameBox(1).Focus();
    Keyboard::Press(VK_F1);
    help.WaitUntilItComesForward();
}

TEST_F(Help, TheHelpKeyDoesNothingWithoutTheFile) {
    StartCopy();
    TestWindow help(L"HH Parent", HelpTitle());
    help.GiveWayTo(Dialog());
    NameBox(1).Focus();
    Keyboard::Press(VK_F1);
    EXPECT_TRUE(UiDriver::HoldsFor([&] { return !help.CameForward(); }, UiDriver::Milliseconds(300)));
    ExpectAlive();
}

TEST_F(Help, TheHelpKeyWorksInTheRegistrationDialog) {
    MakeHelpFile();
    StartCopy();
    ExpectTheHelpKeyToOpenHelp(OpenForm(PictureOf(1), Text(kRegisterTitleText)));
}

TEST_F(Help, TheHelpKeyWorksInTheManagerAndItsInputBox) {
    MakeHelpFile();
    StartCopy();
    const UiDriver::Window manager = OpenForm(Item(IDC_cmdUserManager0), Text(kManagerTitleText));
    ExpectTheHelpKeyToOpenHelp(manager);
    ExpectTheHelpKeyToOpenHelp(OpenForm(manager.Control(IDC_cmdAdd), Text(kAddText)));
}

TEST_F(Help, TheHelpKeyWorksInTheWizard) {
    MakeHelpFile();
    StartCopy();
    ExpectTheHelpKeyToOpenHelp(OpenForm(Item(IDC_cmdWizard0), WizardTitle()));
}

TEST_F(Help, TheHelpKeyWorksInTheWizardAlone) {
    MakeHelpFile();
    const UiDriver::Process alone = StartCopyAlone();
    ExpectTheHelpKeyToOpenHelp(UiDriver::WaitForForm(alone, WizardTitle()));
}

TEST_F(Help, TheHelpKeyDoesNothingInAnyFormWithoutTheFile) {
    StartCopy();
    ExpectTheHelpKeyToDoNothing(OpenForm(Item(IDC_cmdUserManager0), Text(kManagerTitleText)));
    EndProgram();
    const UiDriver::Process alone = StartCopyAlone();
    ExpectTheHelpKeyToDoNothing(UiDriver::WaitForForm(alone, WizardTitle()));
}

} // namespace

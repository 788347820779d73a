#include "RegisterUse.h"
#include "WizardUse.h"

#include <filesystem>
#include <set>

namespace {

using testing::ElementsAre;

std::wstring ExamplePath(const std::wstring& name) {
    return UiDriver::OnDriveZ(QLB_EXAMPLES_PATH) + L'\\' + name + L".reg";
}

/// As an administrator does it.
void Import(const std::wstring& name) {
    const auto import = UiDriver::Process::Start(UiDriver::WindowsDirectory() + L"\\system32\\reg.exe",
                                                 L"import \"" + ExamplePath(name) + L'"');
    ASSERT_EQ(import.WaitForExit(), DWORD{EXIT_SUCCESS}) << "importing " << UiDriver::ToUtf8(name);
}

/// The examples for makers and administrators do what they say.
class Examples : public RegisterUse {};

TEST_F(Examples, AllHaveATestHere) {
    std::set<std::wstring> names;
    for (const auto& file : std::filesystem::directory_iterator(UiDriver::OnDriveZ(QLB_EXAMPLES_PATH))) {
        if (file.path().extension() == L".reg") {
            names.insert(file.path().stem().wstring());
        }
    }
    EXPECT_EQ(names,
              (std::set<std::wstring>{L"ini-file", L"keyboard", L"labels", L"notebook-keys", L"shortcut-keys",
                                      L"start-menu-and-files-only", L"swapped-buttons", L"three-buttons"}));
}

TEST_F(Examples, Keyboard_LetsTheProgramStartAndTheWizardOfferItsButtons) {
    UiDriver::Store::Wipe();
    const auto refused = UiDriver::Process::Start(ProgramPath(), L"/k");
    ASSERT_EQ(refused.WaitForExit(), DWORD{EXIT_SUCCESS});
    Import(L"keyboard");
    Start();
    ExpectAlive();
    Item(IDC_cmdWizard0).Press();
    const auto wizard = UiDriver::WaitForForm(Program(), Text(kTitleText) + L' ' + Text(kWizardTitleText));
    for (int option = 0; option < 5; ++option) {
        EXPECT_TRUE(wizard.Control(IDC_optMFButton0 + option).Visible()) << option;
    }
}

TEST_F(Examples, ThreeButtons_ShowsThreeBelowEachOther) {
    Import(L"three-buttons");
    Start();
    EXPECT_TRUE(PictureOf(3).Visible());
    EXPECT_FALSE(Dialog().HasControl(IDC_picButton3) && PictureOf(4).Visible());
    EXPECT_EQ(PictureOf(1).Rect().left, PictureOf(3).Rect().left);
    EXPECT_LT(PictureOf(1).Rect().bottom, PictureOf(2).Rect().bottom);
    EXPECT_LT(PictureOf(2).Rect().bottom, PictureOf(3).Rect().bottom);
}

TEST_F(Examples, NotebookKeys_ShowsThePageWithThreeKeys) {
    Machine().Sub(L"UTLSetting").Erase(L"ShowNTTab");
    Import(L"notebook-keys");
    Start(L"/t:1");
    for (int button = 6; button <= 8; ++button) {
        EXPECT_TRUE(PictureOf(button).Visible()) << button;
    }
}

TEST_F(Examples, Labels_NamesPagesAndButtons) {
    Import(L"labels");
    Start();
    EXPECT_EQ(Tabs().Caption(0), L"Office keyboard");
    EXPECT_EQ(Tabs().Caption(1), L"Notebook");
    EXPECT_EQ(Item(IDC_lblButtonName0).Text(), L"Alpha");
    EXPECT_EQ(Item(IDC_lblButtonName1).Text(), L"Beta");
}

TEST_F(Examples, StartMenuAndFilesOnly_OffersNeitherMediaCenterNorFavourites) {
    Import(L"start-menu-and-files-only");
    Open(Empty());
    EXPECT_THAT(SourceTabs().Captions(),
                ElementsAre(Text(kStartMenuTabText), Text(kAllFilesTabText), Text(kShortcutKeyTabText)));
}

TEST_F(Examples, ShortcutKeys_AreOfferedWithoutADataFile) {
    UiDriver::RemoveFile(ScratchFolder::Path() + L"\\program\\QLBCODE.DAT");
    Import(L"shortcut-keys");
    Open(Empty());
    OpenTab(kShortcutKeyTabText);
    AwaitPane(IDC_lstListBox1);
    EXPECT_EQ(Form().List(IDC_lstListBox1).Count(), 2);
}

TEST_F(Examples, SwappedButtons_AreStoredInEachOthersPlace) {
    Import(L"swapped-buttons");
    Start();
    NameBox(1).SetText(L"The first");
    Apply();
    EXPECT_EQ(AppKey(1, 2).String(L"DispTitle"), L"The first");
}

TEST_F(Examples, IniFile_KeepsTheSettingsThere) {
    Import(L"ini-file");
    Start();
    NameBox(1).SetText(L"In a file");
    Apply();
    EXPECT_NE(Ini().Bytes().find("In a file"), std::string::npos);
    EXPECT_NE(AppKey(1, 1).String(L"DispTitle"), L"In a file");
}

} // namespace

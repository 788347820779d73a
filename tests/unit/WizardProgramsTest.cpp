#include "WizardDialog.h"

#include <map>

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::Test;

class WizardPrograms : public Test, public WizardDialog {
public:
    WizardPrograms() {
        disk.AddFile(L"C:\\Docs\\report.final.xls");
        disk.AddFile(L"C:\\Docs\\README");
        disk.AddFile(L"C:\\Docs\\.profile");
        disk.AddFolder(L"C:\\Docs\\v1.2.files");
        Globals().EditedButtonSlot = Button(L"S", {L"C:\\Apps\\Former.exe", L"C:\\Apps\\Other.exe"});
    }

    /// From the page of the single program to the end.
    const ButtonSlot& Finish(const PickedItem& item) {
        Add(item);
        flow->Next();
        return Globals().EditedButtonSlot;
    }
    const ButtonSlot& Single(const PickedItem& item) {
        GoToSingle(item.source);
        return Finish(item);
    }
    /// As a button without programs, and then as told.
    [[nodiscard]] static ButtonSlot Expected(const wchar_t* name, const wchar_t* letter,
                                             const std::wstring& command, const std::wstring& parameter = L"",
                                             const wchar_t* title = L"") {
        ButtonSlot slot = Button(letter, {command});
        slot.Name = name;
        slot.Program(1).Param = parameter;
        slot.Program(1).Title = title;
        return slot;
    }
};

// A single program, as it is handed over

TEST_F(WizardPrograms, ASingleFileIsNamedWithoutWhatFollowsItsLastDot) {
    EXPECT_EQ(Single(File(L"C:\\Docs\\report.final.xls")),
              Expected(L"report.final", L"M", L"C:\\Docs\\report.final.xls"));
    EXPECT_EQ(Single(Node(kMail)), Expected(L"Mail", L"M", kMail));
}

TEST_F(WizardPrograms, ASingleFileWithoutADotKeepsItsName) {
    EXPECT_EQ(Single(File(L"C:\\Docs\\README")), Expected(L"README", L"M", L"C:\\Docs\\README"));
}

TEST_F(WizardPrograms, ASingleFileThatBeginsWithItsOnlyDotHasNoName) {
    EXPECT_EQ(Single(File(L"C:\\Docs\\.profile")), Expected(L"", L"M", L"C:\\Docs\\.profile"));
}

TEST_F(WizardPrograms, ASingleFileIsNamedByTheNodesText) {
    PickedItem item = File(L"C:\\Docs\\report.final.xls");
    item.name = L"Report. Draft";
    EXPECT_EQ(Single(item), Expected(L"Report", L"M", L"C:\\Docs\\report.final.xls"));
}

TEST_F(WizardPrograms, ASingleFolderKeepsItsDots) {
    EXPECT_EQ(Single(File(L"C:\\Docs\\v1.2.files")), Expected(L"v1.2.files", L"M", L"C:\\Docs\\v1.2.files"));
}

TEST_F(WizardPrograms, ASinglePathThatIsGoneKeepsItsDots) {
    EXPECT_EQ(Single(File(L"C:\\Gone\\old.exe")), Expected(L"old.exe", L"M", L"C:\\Gone\\old.exe"));
}

TEST_F(WizardPrograms, AShortcutKeyIsItsCodeAndItsWholeName) {
    EXPECT_EQ(Single(Key(kPasteKey)), Expected(L"Paste", L"K", L"47"));
}

TEST_F(WizardPrograms, AShortcutKeyKeepsTheDotsOfItsName_AndItsSign) {
    disk.AddFile(L"C:\\Dots\\QLBCODE.DAT", "Ctrl+.,-7,Full.stop. key\n");
    shell.programDirectory = L"C:\\Dots";
    LoadSources();
    GoToSingle(Source::ShortcutKey);
    EXPECT_EQ(Finish(Key(kCopyKey)), Expected(L"Full.stop. key", L"K", L"-7"));
}

TEST_F(WizardPrograms, AMediaCenterItemIsItsCommandWithItsDisplayNameAndTitle) {
    disk.AddFile(L"C:\\Mc\\QLBMCMNU.DAT", "News,Evening news,C:\\mc\\mc.exe /news\n");
    shell.programDirectory = L"C:\\Mc";
    LoadSources();
    EXPECT_EQ(Single(MediaCenter(kMusic)),
              Expected(L"Evening news", L"M", L"C:\\mc\\mc.exe /news", L"", L"News"));
}

TEST_F(WizardPrograms, AMediaCenterItemIsTheRowThatWasClicked) {
    EXPECT_EQ(Single(MediaCenter(kFilms)),
              Expected(L"My Films", L"M", L"C:\\mc\\mc.exe /films", L"", L"Films"));
}

TEST_F(WizardPrograms, AMediaCenterItemHasTheNameOfTheLastRowOfItsTitle) {
    disk.AddFile(L"C:\\Mc\\QLBMCMNU.DAT",
                 "News,Early,early.exe\nFilms,Films,films.exe\nNEWS,Late,late.exe\n");
    shell.programDirectory = L"C:\\Mc";
    LoadSources();
    EXPECT_EQ(Single(MediaCenter(kMusic)), Expected(L"Late", L"M", L"early.exe", L"", L"NEWS"));
}

TEST_F(WizardPrograms, AFileNamedAsAMediaCenterItemIsAFile) {
    disk.AddFile(L"C:\\Docs\\Music");
    GoToSingle(Source::MediaCenter);
    flow->Back();
    flow->ChooseSourceForSingle(Source::AllFiles);
    flow->Next();
    EXPECT_EQ(Finish(File(L"C:\\Docs\\Music")), Expected(L"Music", L"M", L"C:\\Docs\\Music"));
}

TEST_F(WizardPrograms, AFavouriteIsOpenedByTheBrowserAtItsAddress) {
    EXPECT_EQ(Single(Favorite(kNews)),
              Expected(L"News.url", L"M", std::wstring(L"iexplore.exe|") + kNewsAddress, kNewsAddress,
                       L"News.url"));
    EXPECT_EQ(Single(Favorite(L"C:\\Favorites\\MAPS.URL")),
              Expected(L"MAPS.URL", L"M", L"iexplore.exe|http://maps.example/?q=1",
                       L"http://maps.example/?q=1", L"MAPS.URL"));
}

TEST_F(WizardPrograms, AFavouriteWithoutAnAddressIsTheBrowserAlone) {
    EXPECT_EQ(Single(Favorite(L"C:\\Favorites\\Empty.url")),
              Expected(L"Empty.url", L"M", L"iexplore.exe|", L"", L"Empty.url"));
}

TEST_F(WizardPrograms, AnInternetShortcutElsewhereIsAFile) {
    EXPECT_EQ(Single(Node(L"C:\\Menu\\News.url")), Expected(L"News", L"M", L"C:\\Menu\\News.url"));
    EXPECT_EQ(Single(File(kNews)), Expected(L"News", L"M", kNews));
}

// The letter

TEST_F(WizardPrograms, TheLetterOfASingleProgramFollowsTheSource) {
    GoToSingle(Source::ShortcutKey);
    flow->Back();
    flow->ChooseSourceForSingle(Source::AllFiles);
    flow->Next();
    EXPECT_EQ(Finish(File(kMail)).Exec, L"M");

    GoToSingle(Source::AllFiles);
    Click(File(kMail));
    flow->Back();
    flow->ChooseSourceForSingle(Source::ShortcutKey);
    flow->Next();
    EXPECT_EQ(Finish(Key(kCopyKey)).Exec, L"K");
}

TEST_F(WizardPrograms, AShortcutKeyKeepsItsLetter_WhenSeveralWereTriedBetween) {
    GoToSingle(Source::ShortcutKey);
    flow->Back();
    flow->Back();
    flow->ChooseLaunchMethod(1);
    flow->Next();
    flow->SetButtonName(L"Morning");
    flow->Next();
    Click(Node(kMail));
    flow->Back();
    flow->Back();
    flow->ChooseLaunchMethod(0);
    flow->Next();
    flow->Next();
    EXPECT_EQ(Finish(Key(kCopyKey)), Expected(L"Copy", L"K", L"46"));
}

TEST_F(WizardPrograms, SeveralHaveTheLetterOfTheirMethod_WhateverSingleSourceWasChosen) {
    for (const auto& [method, letter] : std::map<int, std::wstring>{{1, L"S"}, {2, L"P"}}) {
        GoToSingle(Source::ShortcutKey);
        flow->Back();
        flow->Back();
        flow->ChooseLaunchMethod(method);
        flow->Next();
        flow->SetButtonName(L"Morning");
        flow->Next();
        AddPrograms(1);
        flow->PressFinish();
        flow->Next();
        EXPECT_EQ(Globals().EditedButtonSlot.Exec, letter);
    }
}

// What a second pass leaves

TEST_F(WizardPrograms, AFavouritesAddressStaysInTheParameter_WhenAFileFollows) {
    GoToSingle(Source::IeFavorites);
    Add(Favorite(kNews));
    flow->Back();
    flow->Back();
    flow->ChooseSourceForSingle(Source::AllFiles);
    flow->Next();
    EXPECT_EQ(Finish(File(kMail)), Expected(L"Mail", L"M", kMail, kNewsAddress));
}

TEST_F(WizardPrograms, AFavouritesAddressReplacesTheFormerOne) {
    for (const auto& [path, address] : std::map<std::wstring, std::wstring>{
             {L"C:\\Favorites\\MAPS.URL", L"http://maps.example/?q=1"}, {L"C:\\Favorites\\Empty.url", L""}}) {
        GoToSingle(Source::IeFavorites);
        Add(Favorite(kNews));
        flow->Back();
        EXPECT_EQ(Finish(Favorite(path)).Program(1).Param, address);
    }
}

TEST_F(WizardPrograms, AFavouritesAddressIsGone_WhenSeveralProgramsFollow) {
    GoToSingle(Source::IeFavorites);
    Add(Favorite(kNews));
    flow->Back();
    flow->Back();
    flow->Back();
    flow->ChooseLaunchMethod(1);
    flow->Next();
    flow->SetButtonName(L"Morning");
    flow->Next();
    AddPrograms(1);
    flow->PressFinish();
    flow->Next();
    EXPECT_EQ(Globals().EditedButtonSlot, Expected(L"Morning", L"S", L"C:\\Apps\\App1.exe"));
}

TEST_F(WizardPrograms, AMediaCenterTitleIsGone_WhenAFileFollows) {
    GoToSingle(Source::MediaCenter);
    Add(MediaCenter(kMusic));
    flow->Back();
    flow->Back();
    flow->ChooseSourceForSingle(Source::AllFiles);
    flow->Next();
    EXPECT_EQ(Finish(File(kMail)), Expected(L"Mail", L"M", kMail));
}

// Several programs

TEST_F(WizardPrograms, SeveralAreHandedOverInTheirOrder) {
    GoToSeveral(2);
    AddFromItsSource(Node(kMail));
    AddFromItsSource(Favorite(kNews));
    AddFromItsSource(File(L"C:\\Docs\\v1.2.files"));
    EXPECT_THAT(ProgramTexts(), ElementsAre(L"Mail.exe", L"News.url", L"v1.2.files", L"", L""));
    flow->PressFinish();
    flow->Next();
    ButtonSlot expected =
        Button(L"P", {kMail, std::wstring(L"iexplore.exe|") + kNewsAddress, L"C:\\Docs\\v1.2.files"});
    expected.Name = L"Morning";
    expected.Program(2).Param = kNewsAddress;
    expected.Program(2).Title = L"News.url";
    EXPECT_EQ(Globals().EditedButtonSlot, expected);
}

TEST_F(WizardPrograms, SeveralAreOneToFive) {
    for (int count = 1; count <= 5; ++count) {
        GoToSeveral();
        AddPrograms(count);
        if (count < 5) {
            flow->PressFinish();
        }
        flow->Next();
        ASSERT_TRUE(flow->Committed());
        std::vector<std::wstring> commands;
        for (int number = 1; number <= kMaxPrograms; ++number) {
            commands.push_back(number <= count ? L"C:\\Apps\\App" + std::to_wstring(number) + L".exe" : L"");
        }
        EXPECT_EQ(Texts(Globals().EditedButtonSlot, &ProgramEntry::AP), commands);
        EXPECT_EQ(Globals().EditedButtonSlot.NumAP, count);
        EXPECT_EQ(Globals().EditedButtonSlot.Name, L"Morning");
        EXPECT_EQ(Globals().EditedButtonSlot.Exec, L"S");
        EXPECT_THAT(Texts(Globals().EditedButtonSlot, &ProgramEntry::Param), Each(L""));
        EXPECT_THAT(Texts(Globals().EditedButtonSlot, &ProgramEntry::Title), Each(L""));
    }
}

TEST_F(WizardPrograms, SeveralAreAddedByNext_NotByPicking) {
    GoToSeveral();
    AddPrograms(1);
    Click(Node(kMail));
    EXPECT_EQ(flow->Slot().NumAP, 1);
    EXPECT_THAT(ProgramTexts(), ElementsAre(L"App1.exe", L"", L"", L"", L""));
    flow->PressFinish();
    flow->Next();
    EXPECT_THAT(Texts(Globals().EditedButtonSlot, &ProgramEntry::AP),
                ElementsAre(L"C:\\Apps\\App1.exe", L"", L"", L"", L""));
}

TEST_F(WizardPrograms, SeveralMayBeTheSameSeveralTimes) {
    GoToSeveral();
    Click(Node(kMail));
    for (int i = 0; i < kMaxPrograms; ++i) {
        EXPECT_TRUE(flow->NextEnabled());
        flow->Next();
    }
    EXPECT_THAT(Texts(flow->Slot(), &ProgramEntry::AP), Each(kMail));
    EXPECT_EQ(flow->Slot().NumAP, 5);
}

TEST_F(WizardPrograms, SeveralAreNamedAsTyped_AlsoWhenTheNameChangesLater) {
    GoToSeveral();
    AddPrograms(1);
    flow->Back();
    flow->Back();
    flow->SetButtonName(L"Evening. All");
    flow->Next();
    AddPrograms(1);
    flow->PressFinish();
    flow->Next();
    EXPECT_EQ(Globals().EditedButtonSlot.Name, L"Evening. All");
}

TEST_F(WizardPrograms, SeveralKeepNothingOfAFavouriteInWhosePlaceAFileComes) {
    GoToSeveral();
    AddFromItsSource(Favorite(kNews));
    flow->Back();
    AddFromItsSource(File(kMail));
    EXPECT_EQ(flow->Slot().Program(1).AP, kMail);
    EXPECT_EQ(flow->Slot().Program(1).Param, L"");
    EXPECT_EQ(flow->Slot().Program(1).Title, L"");
    EXPECT_EQ(flow->ProgramText(0), L"Mail.exe");
}

TEST_F(WizardPrograms, AnInternetShortcutOutsideTheFavouritesIsAFile_AmongSeveral) {
    GoToSeveral();
    AddFromItsSource(Node(L"C:\\Menu\\News.url"));
    EXPECT_EQ(flow->Slot().Program(1).AP, L"C:\\Menu\\News.url");
    EXPECT_EQ(flow->Slot().Program(1).Param, L"");
    EXPECT_EQ(flow->Slot().Program(1).Title, L"");
}

// Handing over

TEST_F(WizardPrograms, NothingIsHandedOver_BeforeTheEnd) {
    const ButtonSlot before = Globals().EditedButtonSlot;
    GoToSingle(Source::AllFiles);
    Add(File(kMail));
    EXPECT_EQ(flow->Page(), WizardPage::Finish);
    EXPECT_EQ(Globals().EditedButtonSlot, before);
    GoToSeveral();
    AddPrograms(5);
    EXPECT_EQ(flow->Page(), WizardPage::Finish);
    EXPECT_EQ(Globals().EditedButtonSlot, before);
    EXPECT_FALSE(flow->Committed());
    flow->Next();
    EXPECT_TRUE(flow->Committed());
    EXPECT_EQ(Globals().EditedButtonSlot, flow->Slot());
    EXPECT_NE(Globals().EditedButtonSlot, before);
}

TEST_F(WizardPrograms, NothingOfTheFormerButtonIsLeft) {
    EXPECT_EQ(Single(File(kMail)), Expected(L"Mail", L"M", kMail));
}

} // namespace

#include "BrowseUse.h"
#include "TestDrive.h"

#include <algorithm>
#include <iterator>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class BrowseAllFiles : public BrowseUse {
protected:
    static Path InComputer(const Path& names = {}) {
        Path path{Text(kMyComputerText)};
        path.insert(path.end(), names.begin(), names.end());
        return path;
    }

    /// The drives with these letters: the system has others of its own.
    static Names Between(wchar_t first, wchar_t last, const Names& drives) {
        Names between;
        std::copy_if(drives.begin(), drives.end(), std::back_inserter(between),
                     [&](const std::wstring& drive) { return drive.at(0) >= first && drive.at(0) <= last; });
        return between;
    }

    void StartAtFiles() {
        Start();
        OpenTab(kAllFilesTabText, IDC_tvTreeView2);
        AllFiles().WaitForNode(InComputer());
        AllFiles().WaitUntilExpanded(InComputer());
    }
};

TEST_F(BrowseAllFiles, ShowTheDrivesThatAreFixedOrTakeDisks) {
    const TestDrive stick(L'k', DRIVE_REMOVABLE, "MY STICK");
    const TestDrive unnamed(L'l', DRIVE_REMOVABLE);
    const TestDrive disc(L'm', DRIVE_CDROM, "Disc [1]");
    const TestDrive network(L'n', DRIVE_REMOTE, "SHARE");
    const TestDrive memory(L'o', DRIVE_RAMDISK, "MEMORY");
    StartAtFiles();
    EXPECT_THAT(AllFiles().ChildTexts({}), ElementsAre(Text(kMyComputerText)));
    const Names drives = AllFiles().ChildTexts(InComputer());
    EXPECT_THAT(drives, Contains(L"c:"));
    EXPECT_THAT(Between(L'k', L'o', drives), ElementsAre(L"k:[MY STICK]", L"l:", L"m:[Disc [1]]"));
    for (const std::wstring& drive : drives) {
        EXPECT_TRUE(Unfilled(AllFiles(), InComputer({drive})));
    }
    ExpectKey(AllFiles(), InComputer(), Text(kMyComputerText));
    ExpectKey(AllFiles(), InComputer({L"k:[MY STICK]"}), L"k:");
}

TEST_F(BrowseAllFiles, KeysBelowADiskDoNotHoldItsName) {
    const TestDrive stick(L'k', DRIVE_REMOVABLE, "MY STICK");
    MakeFile(stick.Folder() + L"\\Tools\\a.exe");
    StartAtFiles();
    const std::wstring drive = L"k:[MY STICK]";
    EXPECT_THAT(ContentsOf(AllFiles(), InComputer({drive})), ElementsAre(L"Tools"));
    EXPECT_THAT(ContentsOf(AllFiles(), InComputer({drive, L"Tools"})), ElementsAre(L"a.exe"));
    ExpectKey(AllFiles(), InComputer({drive, L"Tools", L"a.exe"}), L"k:\\Tools\\a.exe");
}

TEST_F(BrowseAllFiles, ADriveWhoseDiskWasTakenOutOpensToNothing) {
    std::optional<TestDrive> stick(std::in_place, L'k', DRIVE_REMOVABLE);
    StartAtFiles();
    stick.reset();
    EXPECT_THAT(ContentsOf(AllFiles(), InComputer({L"k:"})), IsEmpty());
    ExpectKey(AllFiles(), InComputer({L"k:"}), L"k:");
}

TEST_F(BrowseAllFiles, ADriveOpensToItsFoldersAndFiles) {
    MakeFile(ScratchFolder::Path() + L"\\Tools\\Inner\\" + Local(L"Größe.exe", L"道具.exe"));
    MakeFile(ScratchFolder::Path() + L"\\Tools\\a.exe");
    StartAtFiles();
    const Path tools = InComputer({L"c:", ScratchFolder::Name(), L"Tools"});
    Open(AllFiles(), InComputer({L"c:"}));
    Open(AllFiles(), InComputer({L"c:", ScratchFolder::Name()}));
    EXPECT_THAT(ContentsOf(AllFiles(), tools), ElementsAre(L"Inner", L"a.exe"));
    Path inner = tools;
    inner.emplace_back(L"Inner");
    EXPECT_THAT(ContentsOf(AllFiles(), inner), ElementsAre(Local(L"Größe.exe", L"道具.exe")));
    inner.push_back(Local(L"Größe.exe", L"道具.exe"));
    ExpectKey(AllFiles(), inner,
              L"c:\\" + ScratchFolder::Name() + L"\\Tools\\Inner\\" + Local(L"Größe.exe", L"道具.exe"));
}

} // namespace

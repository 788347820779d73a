#include "dialogs/register/ShownPrograms.h"

#include "RegistrationDialog.h"
#include "fakes/FakeDrives.h"

namespace {

class ProgramLinesTest : public testing::Test, public RegistrationDialog {
protected:
    std::wstring Lines(const ButtonSlot& slot) {
        return ProgramLines(slot, disk, drives, [this] {
            ++keyQuestions;
            return sources.ShortcutKeys();
        });
    }

    FakeDrives drives;
    int keyQuestions = 0;
};

TEST_F(ProgramLinesTest, HasOneLineForEachProgram) {
    EXPECT_EQ(Lines(Sequence(3)), L"Mail\r\napp.v2\r\nPaint");
    EXPECT_EQ(keyQuestions, 0);
}

TEST_F(ProgramLinesTest, NamesEachAsTheRegistrationDialogShowsIt) {
    ButtonSlot slot = Button(L"P", {L"C:\\Apps\\Mail.exe", L"C:\\Apps\\Tools.d", L"C:\\gone.exe"});
    slot.Program(1).Title = L"My mail.exe";
    const ButtonSlotEditor editor = Open(slot);
    EXPECT_EQ(Lines(slot),
              editor.ShownText(0) + L"\r\n" + editor.ShownText(1) + L"\r\n" + editor.ShownText(2));
    EXPECT_EQ(Lines(slot), L"My mail.exe\r\nTools.d\r\ngone.exe");
}

TEST_F(ProgramLinesTest, NamesAFavouriteAndAMediaCenterItemByTheirTitles) {
    ButtonSlot favourite = Button(L"M", {L"iexplore.exe|http://news.example/"});
    favourite.Program(1).Title = L"News";
    EXPECT_EQ(Lines(favourite), L"News");
    EXPECT_EQ(Lines(MusicButton()), L"Music");
}

TEST_F(ProgramLinesTest, NamesAShortcutKey) {
    EXPECT_EQ(Lines(Button(L"k", {L"47"})), L"Paste");
    EXPECT_EQ(Lines(Button(L"K", {L"99"})), L"");
}

TEST_F(ProgramLinesTest, NamesOnlyWhatIsStarted) {
    ButtonSlot single = Sequence(3);
    single.Exec = L"M";
    EXPECT_EQ(Lines(single), L"Mail");
    ButtonSlot counted = Sequence(4);
    counted.NumAP = 2;
    EXPECT_EQ(Lines(counted), L"Mail\r\napp.v2");
    counted.NumAP = 32767;
    EXPECT_EQ(Lines(counted), L"Mail\r\napp.v2\r\nPaint\r\nCalc");
}

TEST_F(ProgramLinesTest, IsEmpty_WithoutPrograms) {
    EXPECT_EQ(Lines(Button(L"M", {})), L"");
    EXPECT_EQ(Lines(Button(L"S", {})), L"");
    ButtonSlot negative = Sequence(1);
    negative.NumAP = -1;
    EXPECT_EQ(Lines(negative), L"");
}

TEST_F(ProgramLinesTest, AsksNothingOfANetwork) {
    drives.Add(L"n:", L"n:\\", kDriveRemote);
    disk.AddFile(L"N:\\Tools\\Sync.exe");
    disk.Forget();
    EXPECT_EQ(Lines(Button(L"S", {L"N:\\Tools\\Sync.exe", L"\\\\server\\share\\Plan.doc", L"//server/share",
                                  L"\\\\?\\UNC\\server\\share\\Rota.doc"})),
              L"Sync.exe\r\nPlan.doc\r\n//server/share\r\nRota.doc");
    EXPECT_TRUE(disk.questions.empty());
}

TEST_F(ProgramLinesTest, AsksNothingOfAPathWithoutADrive_WhichMayBeANetworksToo) {
    disk.Forget();
    EXPECT_EQ(Lines(Button(L"S", {L"notepad.exe", L"\\Apps\\Mail.exe", L"x", L":"})),
              L"notepad.exe\r\nMail.exe\r\nx\r\n:");
    EXPECT_TRUE(disk.questions.empty());
}

TEST_F(ProgramLinesTest, KeepsEachNameOnALineThatATipHasRoomFor) {
    ButtonSlot slot = Button(L"M", {L"C:\\x.exe"});
    slot.Program(1).Title = L"two\r\nlines";
    EXPECT_EQ(Lines(slot), L"two  lines");
    slot.Program(1).Title = std::wstring(80, L'x');
    EXPECT_EQ(Lines(slot), slot.Program(1).Title);
    slot.Program(1).Title += L'x';
    EXPECT_EQ(Lines(slot), std::wstring(79, L'x') + L'…');
}

} // namespace

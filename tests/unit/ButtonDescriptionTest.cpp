#include "dialogs/main/ButtonDescription.h"

#include "RegistrationDialog.h"

namespace {

std::wstring Describe(ButtonPicture picture, const wchar_t* method, int count,
                      Language language = Language::English) {
    const FakeStrings strings(language);
    ResetGlobals(strings);
    ButtonSlot slot;
    slot.Exec = method;
    slot.NumAP = static_cast<std::int16_t>(count);
    return ButtonDescription(picture, slot, StringTable(strings));
}

TEST(ButtonDescriptionTest, SaysMethodAndNumberOfPrograms) {
    EXPECT_EQ(Describe(kPictureSingle, L"M", 1), L"Single, 1 program");
    EXPECT_EQ(Describe(kPictureSequence, L"S", 3), L"Sequential, 3 programs");
    EXPECT_EQ(Describe(kPictureSequence, L"s", 1), L"Sequential, 1 program");
    EXPECT_EQ(Describe(kPictureSimul, L"P", 5), L"Simultaneous, 5 programs");
}

TEST(ButtonDescriptionTest, SpeaksJapaneseToo) {
    EXPECT_EQ(Describe(kPictureSingle, L"M", 1, Language::Japanese), L"単独、プログラム1個");
    EXPECT_EQ(Describe(kPictureSequence, L"S", 3, Language::Japanese), L"順次、プログラム3個");
    EXPECT_EQ(Describe(kPictureSimul, L"P", 2, Language::Japanese), L"同時、プログラム2個");
    EXPECT_EQ(Describe(kPictureSingle, L"K", 1, Language::Japanese), L"ショートカットキー");
    EXPECT_EQ(Describe(kPictureNoApp, L"M", 0, Language::Japanese), L"プログラムなし");
}

TEST(ButtonDescriptionTest, NamesAShortcutKey) {
    EXPECT_EQ(Describe(kPictureSingle, L"k", 1), L"Shortcut Key");
}

TEST(ButtonDescriptionTest, SaysWhatThePictureShows) {
    EXPECT_EQ(Describe(kPictureNoApp, L"S", 0), L"No program");
    // An unknown method was stored: the empty picture stays although the button has a program now.
    EXPECT_EQ(Describe(kPictureNoApp, L"M", 1), L"No program");
    EXPECT_EQ(Describe(kPictureSingle, L"M", 4), L"Single, 1 program");
}

TEST(ButtonDescriptionTest, CountsNoMoreProgramsThanThereAre) {
    EXPECT_EQ(Describe(kPictureSequence, L"S", 32767), L"Sequential, 5 programs");
    EXPECT_EQ(Describe(kPictureSimul, L"P", -3), L"Simultaneous, 1 program");
}

} // namespace

#include "settings/GlobalValue.h"

#include "app/StringTable.h"
#include "fakes/FakeStrings.h"

#include <gtest/gtest.h>

namespace {

TEST(GlobalValueTest, TakesItsNamesFromTheStringTable) {
    ResetGlobals(FakeStrings(Language::English));
    EXPECT_EQ(Globals().ResourceBase, 3000);
    EXPECT_EQ(Globals().IniFileName, L"KORVOQLB.INI");
    EXPECT_EQ(Globals().DialogFontName, L"MS Shell Dlg 2");
    EXPECT_EQ(Globals().CommandListFileName, L"QLBCODE.DAT");
    EXPECT_EQ(Globals().MenuFileName, L"QLBMCMNU.DAT");
}

TEST(GlobalValueTest, HasTheJapaneseDialogFont_InJapanese) {
    ResetGlobals(FakeStrings(Language::Japanese));
    EXPECT_EQ(Globals().DialogFontName, L"\xFF2D\xFF33 \x30B4\x30B7\x30C3\x30AF");
    EXPECT_EQ(Globals().IniFileName, L"KORVOQLB.INI");
}

TEST(GlobalValueTest, StartsWithoutAWizardAndWithoutAnEditedButton) {
    Globals().WizardForButton = true;
    Globals().MediaCenterPicked = true;
    Globals().EditedButtonSlot.Name = L"Mail";
    ResetGlobals(FakeStrings());
    EXPECT_FALSE(Globals().WizardForButton);
    EXPECT_FALSE(Globals().MediaCenterPicked);
    EXPECT_EQ(Globals().EditedButtonSlot, ButtonSlot{});
}

} // namespace

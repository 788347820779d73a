#include "dialogs/wizard/WizardButtons.h"

#include "TestStore.h"
#include "app/StringTable.h"
#include "fakes/FakeStrings.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Test;

constexpr std::int32_t kDesktop = 5;
constexpr const wchar_t* kLabels = L"UTLSetting\\ButtonName";

class WizardButtonPage : public Test, public TestStore {
public:
    explicit WizardButtonPage(Language language = Language::English)
        : TestStore(language == Language::English ? FakeAnsiText::kWestern : FakeAnsiText::kJapanese),
          strings(language) {
        NameDefaults({L"A", L"B", L"C", L"D", L"E"});
    }

    void NameDefaults(const std::vector<std::wstring>& names) {
        defaults = Pattern();
        int button = 0;
        for (const std::wstring& name : names) {
            defaults.Btn(++button).Name = name;
        }
        // Keys of the notebook are no desktop buttons.
        for (button = kDesktopButtons + 1; button <= kMaxButtons; ++button) {
            defaults.Btn(button).Name = L"Key";
        }
    }
    [[nodiscard]] WizardButtons Load(std::int32_t set) const {
        return LoadWizardButtons(store, StringTable(strings), set, defaults);
    }
    [[nodiscard]] std::array<std::wstring, kWizardButtonOptions> Captions(std::int32_t set) const {
        return Load(set).captions;
    }
    [[nodiscard]] int Shown(std::int32_t set) const { return Load(set).shown; }

    /// Captions of the options that are shown.
    [[nodiscard]] std::vector<std::wstring> ShownCaptions(std::int32_t set) const {
        const WizardButtons buttons = Load(set);
        return {buttons.captions.begin(), buttons.captions.begin() + buttons.shown};
    }

    FakeStrings strings;
    Pattern defaults;
};

class JapaneseWizardButtonPage : public WizardButtonPage {
public:
    JapaneseWizardButtonPage() : WizardButtonPage(Language::Japanese) {}
};

// Captions

TEST_F(WizardButtonPage, CountsTheButtons) {
    for (const std::int32_t set : {1, 2, 3, kDesktop}) {
        EXPECT_THAT(Captions(set),
                    ElementsAre(L"Register the program to Button1", L"Register the program to Button2",
                                L"Register the program to Button3", L"Register the program to Button4",
                                L"Register the program to Button5"));
    }
}

TEST_F(WizardButtonPage, CallsTwoKeysFnKeys_OnAKeyboardThatHasThem) {
    PutMachine(L"", L"QSTART", 1);
    EXPECT_THAT(ShownCaptions(2),
                ElementsAre(L"Register the program to Fn + 1", L"Register the program to Fn + 2"));
    EXPECT_THAT(Captions(2), ElementsAre(L"Register the program to Fn + 1", L"Register the program to Fn + 2",
                                         L"Register the program to Fn + 3", L"Register the program to Fn + 4",
                                         L"Register the program to Fn + 5"));
}

TEST_F(WizardButtonPage, CallsTwoKeysButtons_OnAnyOtherKeyboard) {
    for (const std::int32_t model : {0, 2, -1}) {
        PutMachine(L"", L"QSTART", model);
        EXPECT_THAT(ShownCaptions(2),
                    ElementsAre(L"Register the program to Button1", L"Register the program to Button2"));
    }
}

TEST_F(WizardButtonPage, CallsNoOtherSetFnKeys) {
    PutMachine(L"", L"QSTART", 1);
    for (const std::int32_t set : {1, 3, kDesktop}) {
        EXPECT_EQ(Captions(set)[0], L"Register the program to Button1");
    }
}

TEST_F(WizardButtonPage, TakesTheFnKeysFromTheMachineAlone) {
    PutUser(L"", L"QSTART", 1);
    EXPECT_EQ(Captions(2)[0], L"Register the program to Button1");
}

// The maker's labels

TEST_F(WizardButtonPage, TakesTheMakersLabels_OfTheDesktopButtons) {
    PutMachine(kLabels, L"AppKey3", "Mail");
    EXPECT_THAT(Captions(kDesktop),
                ElementsAre(L"Register the program to Button1", L"Register the program to Button2",
                            L"Register the program to Mail", L"Register the program to Button4",
                            L"Register the program to Button5"));
}

TEST_F(WizardButtonPage, TakesTheMakersLabels_OfTheKeys) {
    for (int number = 1; number <= 8; ++number) {
        PutMachine(kLabels, L"AppKey" + std::to_wstring(number), ("L" + std::to_string(number)).c_str());
    }
    for (const std::int32_t set : {1, 2, 3}) {
        EXPECT_THAT(Captions(set),
                    ElementsAre(L"Register the program to L6", L"Register the program to L7",
                                L"Register the program to L8", L"Register the program to Button4",
                                L"Register the program to Button5"));
    }
    EXPECT_THAT(Captions(kDesktop), ElementsAre(L"Register the program to L1", L"Register the program to L2",
                                                L"Register the program to L3", L"Register the program to L4",
                                                L"Register the program to L5"));
}

TEST_F(WizardButtonPage, AsksForTheLabelsOfItsOwnSetAlone) {
    const auto asked = [this](std::int32_t set) {
        ForgetOperations();
        (void)Load(set);
        std::vector<std::string> lines = Asked();
        std::erase_if(lines, [](const std::string& line) { return !line.starts_with("HKLM UTLSetting"); });
        return lines;
    };
    for (const std::int32_t set : {1, 2, 3}) {
        EXPECT_THAT(asked(set),
                    ElementsAre("HKLM UTLSetting\\ButtonName AppKey6", "HKLM UTLSetting\\ButtonName AppKey7",
                                "HKLM UTLSetting\\ButtonName AppKey8"));
    }
    EXPECT_THAT(asked(kDesktop),
                ElementsAre("HKLM UTLSetting\\ButtonName AppKey1", "HKLM UTLSetting\\ButtonName AppKey2",
                            "HKLM UTLSetting\\ButtonName AppKey3", "HKLM UTLSetting\\ButtonName AppKey4",
                            "HKLM UTLSetting\\ButtonName AppKey5"));
    EXPECT_THAT(asked(4), IsEmpty());
}

TEST_F(WizardButtonPage, PrefersTheMakersLabelToAnFnKey) {
    PutMachine(L"", L"QSTART", 1);
    PutMachine(kLabels, L"AppKey7", "Web");
    EXPECT_THAT(ShownCaptions(2),
                ElementsAre(L"Register the program to Fn + 1", L"Register the program to Web"));
}

TEST_F(WizardButtonPage, KeepsItsCaption_WhereTheLabelIsEmpty) {
    PutMachine(kLabels, L"AppKey1", "");
    PutMachine(kLabels, L"AppKey2", " ");
    EXPECT_EQ(Captions(kDesktop)[0], L"Register the program to Button1");
    EXPECT_EQ(Captions(kDesktop)[1], L"Register the program to  ");
}

TEST_F(WizardButtonPage, TakesALabelAsItIs_WithWhateverSigns) {
    for (const auto& [label, caption] : std::vector<std::pair<const char*, const wchar_t*>>{
             {"%s", L"Register the program to %s"},
             {"50%s off", L"Register the program to 50%s off"},
             {"%s%s", L"Register the program to %s%s"},
             {"%S %d %n %%", L"Register the program to %S %d %n %%"},
             {"Mail && News", L"Register the program to Mail && News"}}) {
        PutMachine(kLabels, L"AppKey1", label);
        EXPECT_EQ(Captions(kDesktop)[0], caption);
    }
}

TEST_F(WizardButtonPage, TakesTheLabelsFromTheMachineAlone) {
    PutUser(kLabels, L"AppKey1", "Mine");
    EXPECT_EQ(Captions(kDesktop)[0], L"Register the program to Button1");
}

TEST_F(JapaneseWizardButtonPage, IsJapanese) {
    EXPECT_EQ(Captions(kDesktop)[0], strings.Load(3212));
    PutMachine(kLabels, L"AppKey1", "\x83\x81\x81[\x83\x8B");
    const std::wstring caption = Captions(kDesktop)[0];
    EXPECT_TRUE(caption.starts_with(L"\x30E1\x30FC\x30EB"));
    EXPECT_EQ(caption.substr(3), strings.Load(3300).substr(2));
}

// How many are shown

TEST_F(WizardButtonPage, ShowsAsManyKeysAsTheSetHas) {
    PutMachine(L"", L"DTNumAPBtn", 5);
    NameDefaults({});
    for (const std::int32_t flags : {0, 4}) {
        PutMachine(L"", L"QLBB", flags);
        for (const std::int32_t set : {1, 2, 3}) {
            EXPECT_EQ(Shown(set), set);
        }
    }
}

TEST_F(WizardButtonPage, ShowsAsManyDesktopButtonsAsTheMakerSays) {
    for (int count = 1; count <= 5; ++count) {
        PutMachine(L"", L"DTNumAPBtn", count);
        EXPECT_EQ(Shown(kDesktop), count);
    }
}

TEST_F(WizardButtonPage, ShowsTheDesktopButtonsThatHaveADefaultName_WhenTheMakerSaysNothing) {
    NameDefaults({L"A", L"B", L"", L"D", L"E"});
    EXPECT_EQ(Shown(kDesktop), 2);
    for (const std::int32_t count : {0, 6, -1}) {
        PutMachine(L"", L"DTNumAPBtn", count);
        EXPECT_EQ(Shown(kDesktop), 2);
    }
}

TEST_F(WizardButtonPage, ShowsTheDesktopButtonsUpToTheFirstWithoutADefaultName) {
    NameDefaults({});
    EXPECT_EQ(Shown(kDesktop), 0);
    NameDefaults({L"", L"B", L"C", L"D", L"E"});
    EXPECT_EQ(Shown(kDesktop), 0);
    NameDefaults({L" "});
    EXPECT_EQ(Shown(kDesktop), 1);
    NameDefaults({L"A", L"B", L"C", L"D"});
    EXPECT_EQ(Shown(kDesktop), 4);
    NameDefaults({L"A", L"B", L"C", L"D", L"E"});
    EXPECT_EQ(Shown(kDesktop), 5) << "there are no more";
}

TEST_F(WizardButtonPage, ShowsAllDesktopButtons_OnAKeyboardThatHasThem) {
    NameDefaults({L"A"});
    PutMachine(L"", L"DTNumAPBtn", 3);
    for (const std::int32_t flags : {4, 5, 6, 12, -1}) {
        PutMachine(L"", L"QLBB", flags);
        EXPECT_EQ(Shown(kDesktop), 5) << flags;
    }
    for (const std::int32_t flags : {0, 1, 2, 3, 8, 16, -5}) {
        PutMachine(L"", L"QLBB", flags);
        EXPECT_EQ(Shown(kDesktop), 3) << flags;
    }
}

TEST_F(WizardButtonPage, AsksTheUsersKeyboardFirst) {
    PutMachine(L"", L"DTNumAPBtn", 3);
    PutUser(L"", L"QLBB", 4);
    EXPECT_EQ(Shown(kDesktop), 5);
    PutMachine(L"", L"QLBB", 4);
    PutUser(L"", L"QLBB", 1);
    EXPECT_EQ(Shown(kDesktop), 3) << "the machine's is not asked";
    PutUser(L"", L"QLBB", 0);
    EXPECT_EQ(Shown(kDesktop), 5) << "the machine's is asked";
}

TEST_F(WizardButtonPage, AsksTheIniFilesKeyboardFirst_WhereSettingsAreInTheFile) {
    store.IniFileExist = true;
    PutMachine(L"", L"DTNumAPBtn", 3);
    PutUser(L"", L"QLBB", 4);
    EXPECT_EQ(Shown(kDesktop), 3) << "the user's registry is not asked";
    PutLine(L"KORVOQLB", L"QLBKeyboard", "4");
    EXPECT_EQ(Shown(kDesktop), 5);
    PutLine(L"KORVOQLB", L"QLBKeyboard", "3");
    PutMachine(L"", L"QLBB", 4);
    EXPECT_EQ(Shown(kDesktop), 3) << "the machine's is not asked";
    for (const char* none : {"0", " 0", "none", ""}) {
        PutLine(L"KORVOQLB", L"QLBKeyboard", none);
        EXPECT_EQ(Shown(kDesktop), 5) << "the machine's is asked";
    }
}

TEST_F(WizardButtonPage, ShowsNoMoreThanThereAre_WhateverTheSet) {
    for (const std::int32_t set : {6, 1000, 0, -1}) {
        EXPECT_EQ(Shown(set), set > 0 ? kWizardButtonOptions : 0);
    }
}

TEST_F(WizardButtonPage, WritesNothing) {
    (void)Load(kDesktop);
    (void)Load(2);
    EXPECT_THAT(Written(), IsEmpty());
}

// Which set

TEST(WizardButtonSet, IsFiveOnTheDesktopPage) {
    for (const std::int32_t keys : {0, 1, 2, 3, 4, -1}) {
        EXPECT_EQ(WizardButtonSet(true, keys), kDesktop);
    }
}

TEST(WizardButtonSet, IsTheNumberOfKeysOnTheirPage_OrElseTwo) {
    EXPECT_EQ(WizardButtonSet(false, 1), 1);
    EXPECT_EQ(WizardButtonSet(false, 2), 2);
    EXPECT_EQ(WizardButtonSet(false, 3), 3);
    for (const std::int32_t keys : {0, 4, 5, -1}) {
        EXPECT_EQ(WizardButtonSet(false, keys), 2);
    }
}

TEST(WizardButtonSet, IsTheKeys_WhenItHasAsManyAsTheyAre) {
    for (const std::int32_t keys : {1, 2, 3}) {
        for (const std::int32_t set : {1, 2, 3, kDesktop}) {
            EXPECT_EQ(IsNotebookSet(set, keys), set == keys);
        }
    }
    for (const std::int32_t keys : {0, 4, 5, -1}) {
        EXPECT_TRUE(IsNotebookSet(2, keys));
        for (const std::int32_t set : {1, 3, kDesktop}) {
            EXPECT_FALSE(IsNotebookSet(set, keys));
        }
    }
}

} // namespace

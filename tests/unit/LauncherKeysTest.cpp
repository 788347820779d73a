#include "launcher/LauncherKeys.h"

#include "TestStore.h"
#include "fakes/FakeLauncherPlatform.h"
#include "fakes/FakeStrings.h"
#include "launcher/KeyCodes.h"
#include "launcher/KeyStrokes.h"

#include "app/StringTable.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr KeyCode kMail{.key = 0xB4};
constexpr KeyCode kCtrlAlt1{.key = '1', .ctrl = true, .alt = true};

TEST(KeyCodes, ANumberStandsForAKeyWithItsModifiers) {
    EXPECT_EQ(KeyFromNumber(579), (KeyCode{.key = 'C', .ctrl = true}));
    EXPECT_EQ(KeyFromNumber(795), (KeyCode{.key = 0x1B, .shift = true, .ctrl = true}));
    EXPECT_EQ(KeyFromNumber(3109), (KeyCode{.key = 0x25, .alt = true, .extended = true}));
    for (int number = 0; number < 4096; ++number) {
        EXPECT_EQ(NumberOfKey(KeyFromNumber(number)), number);
    }
    EXPECT_EQ(KeyFromNumber(-1), KeyFromNumber(4095));
    EXPECT_EQ(NumberOfKey(KeyFromNumber(4096 + 65)), 65);
}

TEST(KeyCodes, KeysHaveNamesInBothLanguages) {
    const FakeHotKeys keys;
    for (const auto& [language, mail] :
         {std::pair(Language::English, L"Mail"), {Language::Japanese, L"メール"}}) {
        const FakeStrings strings(language);
        const StringTable texts(strings);
        EXPECT_EQ(KeyText(kMail, texts, keys), mail);
        EXPECT_EQ(KeyText(kCtrlAlt1, texts, keys), L"Ctrl + Alt + 1");
        EXPECT_EQ(KeyText({.key = 0x7B, .shift = true}, texts, keys), L"Shift + F12");
        EXPECT_EQ(KeyText({.key = 0x13}, texts, keys), L"Pause");
        EXPECT_EQ(KeyText({.key = 0xE2, .ctrl = true}, texts, keys), L"Ctrl + 226");
    }
}

TEST(KeyCodes, WhatIsNeededForTypingIsNoHotKeyAlone) {
    EXPECT_FALSE(CanBeHotKey({.key = 'A'}));
    EXPECT_FALSE(CanBeHotKey({.key = 'A', .shift = true}));
    EXPECT_FALSE(CanBeHotKey({.key = 0x0D}));
    EXPECT_TRUE(CanBeHotKey({.key = 'A', .ctrl = true}));
    EXPECT_TRUE(CanBeHotKey({.key = 'A', .alt = true}));
    EXPECT_TRUE(CanBeHotKey({.key = 0x70}));
    EXPECT_TRUE(CanBeHotKey(kMail));
    for (const int none : {0, 1, 6, 0x10, 0x11, 0x12, 0xFF}) {
        EXPECT_FALSE(CanBeHotKey({.key = static_cast<std::uint8_t>(none), .ctrl = true})) << none;
    }
}

TEST(LauncherKeysStored, WithoutAnyTheyAreTheKeyboardsOwnAndCtrlAltDigits) {
    const TestStore test;
    const AllKeys keys = LoadKeys(test.store);
    EXPECT_EQ(keys, DefaultKeys());
    const std::uint8_t launchKeys[] = {0xB4, 0xAC, 0xB5, 0xB6, 0xB7, 0, 0, 0};
    for (int button = 1; button <= 8; ++button) {
        EXPECT_EQ(keys(button).launchKey, KeyCode{.key = launchKeys[button - 1]});
        EXPECT_EQ(keys(button).combination,
                  (KeyCode{.key = static_cast<std::uint8_t>('0' + button), .ctrl = true, .alt = true}));
    }
}

TEST(LauncherKeysStored, ComeBackAsTheyWereStored) {
    TestStore test;
    AllKeys keys = DefaultKeys();
    keys(1) = {{}, {.key = 'Q', .shift = true, .ctrl = true}};
    keys(8) = {{.key = 0xAA}, {}};
    SaveKeys(test.store, keys);
    EXPECT_EQ(LoadKeys(test.store), keys);
    EXPECT_EQ(test.UserDword(L"Launcher", L"Key1"), 'Q' + 256 + 512);
    EXPECT_EQ(test.UserDword(L"Launcher", L"LaunchKey8"), 0xAA);
}

TEST(LauncherKeysStored, OnesThatCanBeNoHotKeysAreAsByDefault) {
    TestStore test;
    test.PutUser(L"Launcher", L"Key1", 'A');
    test.PutUser(L"Launcher", L"Key2", -1);
    test.PutUser(L"Launcher", L"Key3", "not a number");
    test.PutUser(L"Launcher", L"LaunchKey1", 'A' + 512);
    EXPECT_EQ(LoadKeys(test.store), DefaultKeys());
}

TEST(KeyProblem, TellsKeysThatAreTwiceOrTakenOrNeededForTyping) {
    AllKeys keys = DefaultKeys();
    const auto none = [](const KeyCode&) { return false; };
    EXPECT_THAT(KeyProblems(keys, none), Each(KeyProblem::None));
    keys(6).combination = keys(2).combination;
    keys(7).combination = {.key = 'Z'};
    keys(8).launchKey = kMail;
    keys(5).combination = {};
    const auto problems = KeyProblems(keys, [](const KeyCode& key) { return key.key == '3'; });
    ASSERT_THAT(problems, SizeIs(16));
    EXPECT_EQ(problems[0], KeyProblem::Twice);
    EXPECT_EQ(problems[7], KeyProblem::Twice);
    EXPECT_EQ(problems[8 + 1], KeyProblem::Twice);
    EXPECT_EQ(problems[8 + 5], KeyProblem::Twice);
    EXPECT_EQ(problems[8 + 6], KeyProblem::ForTyping);
    EXPECT_EQ(problems[8 + 2], KeyProblem::Taken);
    EXPECT_EQ(problems[8 + 4], KeyProblem::None);
}

TEST(KeyProblem, LikeKeysInAndOutsideTheNumberBlockAreTheSame) {
    AllKeys keys = DefaultKeys();
    keys(1).combination = {.key = 0x24, .ctrl = true};
    keys(2).combination = {.key = 0x24, .ctrl = true, .extended = true};
    EXPECT_EQ(KeyProblems(keys, [](const KeyCode&) { return false; })[8], KeyProblem::Twice);
}

class KeysTaken : public testing::Test {
public:
    FakeHotKeys system;
    LauncherKeys keys{system};
};

TEST_F(KeysTaken, AreThoseOfTheButtonsThatDoSomething) {
    EXPECT_THAT(keys.Take(DefaultKeys(), {1, 8}), IsEmpty());
    EXPECT_THAT(system.registered, SizeIs(3));
    keys.Take(DefaultKeys(), {2});
    EXPECT_EQ(system.IdOf(kMail), 0);
    EXPECT_THAT(system.registered, SizeIs(2));
    keys.LetGo();
    EXPECT_THAT(system.registered, IsEmpty());
}

TEST_F(KeysTaken, StayRegisteredWhileOthersChange) {
    keys.Take(DefaultKeys(), {1, 2});
    const int registrations = system.registrations;
    AllKeys changed = DefaultKeys();
    std::swap(changed(2).combination, changed(3).combination);
    keys.Take(changed, {1, 2, 3});
    EXPECT_EQ(system.registrations, registrations + 3);
    EXPECT_THAT(system.registered, SizeIs(6));
    EXPECT_EQ(keys.OnHotKey(system.IdOf({.key = '3', .ctrl = true, .alt = true})), 2);
}

TEST_F(KeysTaken, TellTheOnesThatOtherProgramsHave_AndWorkWithTheRest) {
    system.ofOthers = {kMail};
    EXPECT_THAT(keys.Take(DefaultKeys(), {1}), ElementsAre(kMail));
    EXPECT_EQ(keys.OnHotKey(system.IdOf(kCtrlAlt1)), 1);
    EXPECT_TRUE(keys.IsTakenByOther(kMail));
    EXPECT_FALSE(keys.IsTakenByOther({.key = 'X', .ctrl = true}));
    EXPECT_EQ(system.IdOf({.key = 'X', .ctrl = true}), 0);
}

TEST_F(KeysTaken, AHeldKeyCountsOnce) {
    keys.Take(DefaultKeys(), {1, 2});
    const int mail = system.IdOf(kMail);
    system.down = {kMail.key};
    EXPECT_EQ(keys.OnHotKey(mail), 1);
    EXPECT_EQ(keys.OnHotKey(mail), std::nullopt);
    EXPECT_TRUE(keys.AnyHeld());
    EXPECT_EQ(keys.OnHotKey(system.IdOf({.key = 0xAC})), 2);
    EXPECT_EQ(keys.OnHotKey(mail), std::nullopt);
    system.down = {};
    EXPECT_FALSE(keys.AnyHeld());
    EXPECT_EQ(keys.OnHotKey(mail), 1);
}

TEST_F(KeysTaken, AHeldKeyStaysHeldWhileAllAreTakenAnew) {
    keys.Take(DefaultKeys(), {1});
    system.down = {kMail.key};
    EXPECT_EQ(keys.OnHotKey(system.IdOf(kMail)), 1);
    keys.Take(DefaultKeys(), {1});
    EXPECT_EQ(keys.OnHotKey(system.IdOf(kMail)), std::nullopt);
}

TEST_F(KeysTaken, ANumberThatIsNoneOfOursPressesNothing) {
    keys.Take(DefaultKeys(), {1});
    EXPECT_EQ(keys.OnHotKey(999), std::nullopt);
}

constexpr std::uint8_t kCtrl = 0x11;
constexpr std::uint8_t kAlt = 0x12;
constexpr std::uint8_t kMeaningless = 0xE8;
constexpr KeyStroke kLeftCtrl{0xA2};
constexpr KeyStroke kRightAlt{0xA5, true, true};

TEST(KeyStrokes, PressTheKeyWithItsModifiers) {
    EXPECT_THAT(
        StrokesFor({.key = 'C', .ctrl = true}, {}),
        ElementsAre(KeyStroke{kCtrl}, KeyStroke{'C'}, KeyStroke{'C', false}, KeyStroke{kCtrl, false}));
    EXPECT_THAT(StrokesFor({.key = 0x25, .alt = true, .extended = true}, {}),
                ElementsAre(KeyStroke{kAlt}, KeyStroke{0x25, true, true}, KeyStroke{0x25, false, true},
                            KeyStroke{kAlt, false}));
}

TEST(KeyStrokes, HeldModifiersAreLetGoBeforeAndHeldAfterwards) {
    EXPECT_THAT(StrokesFor({.key = 'A'}, {kLeftCtrl, kRightAlt}),
                ElementsAre(KeyStroke{kMeaningless}, KeyStroke{kMeaningless, false}, KeyStroke{0xA2, false},
                            KeyStroke{0xA5, false, true}, KeyStroke{'A'}, KeyStroke{'A', false},
                            KeyStroke{0xA2}, KeyStroke{0xA5, true, true}, KeyStroke{kMeaningless},
                            KeyStroke{kMeaningless, false}));
}

TEST(KeyStrokes, WhateverIsHeldAndWanted_NothingIsStuckAndNothingIsLost) {
    const std::vector<KeyStroke> all{{0xA0},
                                     {0xA1},
                                     {0xA2},
                                     {0xA3, true, true},
                                     {0xA4},
                                     {0xA5, true, true},
                                     {0x5B, true, true},
                                     {0x5C, true, true}};
    for (unsigned held = 0; held < 256; ++held) {
        for (int number = 'A'; number < 4096; number += 256) {
            std::vector<KeyStroke> modifiers;
            std::map<std::uint8_t, bool> down;
            for (unsigned i = 0; i < all.size(); ++i) {
                if ((held >> i & 1U) != 0) {
                    modifiers.push_back(all[i]);
                    down[all[i].key] = true;
                }
            }
            const auto before = down;
            bool pressed = false;
            const KeyCode key = KeyFromNumber(number);
            for (const KeyStroke& stroke : StrokesFor(key, modifiers)) {
                if (stroke.key == 'A' && stroke.down) {
                    pressed = true;
                    EXPECT_EQ(down[0x10], key.shift);
                    EXPECT_EQ(down[kCtrl], key.ctrl);
                    EXPECT_EQ(down[kAlt], key.alt);
                    for (const KeyStroke& modifier : all) {
                        EXPECT_FALSE(down[modifier.key]);
                    }
                }
                down[stroke.key] = stroke.down;
            }
            EXPECT_TRUE(pressed);
            std::erase_if(down, [](const auto& each) { return !each.second; });
            EXPECT_EQ(down, before);
        }
    }
}

} // namespace

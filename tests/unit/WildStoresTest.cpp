#include "TestStore.h"
#include "app/LauncherNotification.h"
#include "app/StringTable.h"
#include "dialogs/main/ButtonLabels.h"
#include "dialogs/main/ButtonPictures.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/MainSettings.h"
#include "dialogs/patterns/PatternList.h"
#include "dialogs/register/ProgramSources.h"
#include "dialogs/wizard/WizardButtons.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeFonts.h"
#include "fakes/FakePrintDevice.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeStrings.h"
#include "fakes/FakeWindows.h"
#include "print/CQlbPrint.h"

#include <cstdlib>
#include <iostream>
#include <random>

namespace {

struct WildCase {
    bool iniFile;
    unsigned codePage;
};

void PrintTo(const WildCase& each, std::ostream* stream) {
    *stream << (each.iniFile ? "ini file, " : "registry, ") << each.codePage;
}

std::string CaseName(const testing::TestParamInfo<WildCase>& each) {
    return (each.param.iniFile ? "IniFile" : "Registry") + std::to_string(each.param.codePage);
}

/// `variable` of the environment, for a longer run or another one.
unsigned Setting(const char* variable, unsigned usual) {
    const char* const text = std::getenv(variable);
    return text == nullptr ? usual : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

/// A place of the layout that the program reads.
struct Place {
    RegistryHive hive;
    std::wstring subkey;
    std::wstring name;
};

std::vector<Place> AllPlaces() {
    constexpr auto kMachine = RegistryHive::LocalMachine;
    constexpr auto kUser = RegistryHive::CurrentUser;
    std::vector<Place> places;
    const auto add = [&](RegistryHive hive, const std::wstring& subkey,
                         std::initializer_list<const wchar_t*> names) {
        for (const wchar_t* const name : names) {
            places.push_back({hive, subkey, name});
        }
    };
    add(kMachine, L"", {L"QLBB", L"QSTART", L"BtnImage", L"NTNumAPBtn", L"DTNumAPBtn", L"NR1t2"});
    add(kMachine, L"UTLSetting", {L"ShowNTTab"});
    add(kMachine, L"UTLSetting\\TabName", {L"Tab0", L"Tab1"});
    add(kMachine, L"UTLSetting\\ProgramGroup", {L"IEMenu", L"MCMenu"});
    add(kMachine, L"Default\\OnScreen",
        {L"OnScreen", L"Size", L"FontSize", L"Color", L"FontFace", L"FontName"});
    add(kMachine, L"Default\\Setting\\Set1", {L"SetName"});
    add(kMachine, L"Default\\USER1", {L"UserName"});
    add(kUser, L"", {L"QLBB", L"CurrSetting", L"NumSetting"});
    add(kUser, L"OnScreen", {L"OnScreen", L"FontFace", L"size", L"Color", L"Time"});
    for (int key = 0; key < 4; ++key) {
        add(kMachine, L"Shortcut\\Key" + std::to_wstring(key), {L"KeyName", L"KeyCode", L"KeyBind"});
    }
    for (int button = 1; button <= kMaxButtons; ++button) {
        const std::wstring number = std::to_wstring(button);
        places.push_back({kMachine, L"UTLSetting\\ConvAppKey", L"AppKey" + number});
        places.push_back({kMachine, L"UTLSetting\\ButtonName", L"AppKey" + number});
        for (const wchar_t* const field : {L"Exec", L"NumAP", L"Name", L"AP1", L"AP5"}) {
            places.push_back({kMachine, L"Default\\USER1", L"Btn" + number + L"_" + field});
        }
        add(kMachine, L"Default\\Setting\\Set1\\AppKey" + number,
            {L"Execute", L"NumAP", L"DispTitle", L"AP1", L"AP5"});
        for (int set = 1; set <= 3; ++set) {
            add(kUser, L"Setting\\Set" + std::to_wstring(set) + L"\\AppKey" + number,
                {L"DispTitle", L"Execute", L"NumAP", L"AP1", L"AP2", L"AP5", L"ProgName1", L"ProgName5"});
        }
    }
    for (int set = 1; set <= kMaxPatterns; ++set) {
        add(kUser, L"Setting\\Set" + std::to_wstring(set), {L"SetName"});
    }
    return places;
}

/// A program that starts on whatever its store holds.
class WildStore : public testing::TestWithParam<WildCase>, public TestStore {
public:
    WildStore() : TestStore(GetParam().codePage), random_(Setting("QLB_SEED", 4711)) {
        store.IniFileExist = GetParam().iniFile;
        FakeFonts installed;
        installed.Add(L"Arial");
        installed.Add(L"Verdana");
        fonts_.EnumerateFonts(installed);
        ResetGlobals(strings_);
    }

    unsigned Below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }

    std::string Bytes() {
        constexpr std::string_view kPieces[] = {"FALSE", "|",    {"\0", 1}, "-1", "99999999999",   " ",
                                                "K",     "\x81", "s",       "=",  "iexplore.exe|", "\r\n"};
        if (Below(400) == 0) {
            // Slow to convert, and there to the end of the test.
            return std::string(2040 + Below(20), static_cast<char>(0x80 + Below(0x80)));
        }
        if (Below(400) == 0) {
            return std::string(Below(5) == 0 ? 1'000'000 : 600, static_cast<char>(1 + Below(0xFF)));
        }
        switch (Below(10)) {
        case 0:
            return {};
        case 1:
            return FakeRegistry::BytesOf(static_cast<std::int32_t>(random_()));
        case 2:
        case 3:
            return FakeRegistry::BytesOf(static_cast<std::int32_t>(Below(14)) - 2);
        case 4:
            return std::to_string(Below(14)) + '\0';
        case 5:
            return std::string(kPieces[Below(std::size(kPieces))]) + '\0';
        default:
            break;
        }
        std::string bytes;
        const unsigned length = Below(Below(2) == 0 ? 6 : 60);
        while (bytes.size() < length) {
            if (Below(4) == 0) {
                bytes += kPieces[Below(std::size(kPieces))];
            } else {
                bytes += static_cast<char>(random_());
            }
        }
        return bytes;
    }

    /// Most values stay as they were left by the times before.
    void Shuffle() {
        static const std::vector<Place> places = AllPlaces();
        for (int i = 0; i < 50; ++i) {
            const Place& place = places[Below(static_cast<unsigned>(places.size()))];
            if (Below(4) == 0) {
                registry.Remove(place.hive, Path(place.subkey), place.name);
            } else {
                registry.PutRaw(place.hive, Path(place.subkey), place.name, Below(12), Bytes());
            }
        }
        if (GetParam().iniFile) {
            ShuffleFile();
        }
    }

    /// Lines as they come of any file: nothing in them ends a line.
    void ShuffleFile() {
        const std::wstring numbers[] = {L"CurrUser", L"NumUser", L"QLBKeyboard"};
        const std::wstring screen[] = {L"OnScreen", L"FontName", L"FontSize", L"Color"};
        const std::wstring fields[] = {L"Name", L"Exec", L"NumAP", L"AP1", L"AP5", L"Title1", L"Title5"};
        const auto put = [this](const std::wstring& section, const std::wstring& key) {
            std::string bytes = Bytes();
            std::erase_if(bytes, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
            files.PutLine(section, key, kOwnFile, bytes);
        };
        for (int i = 0; i < 3; ++i) {
            put(kProgramSection, numbers[Below(3)]);
            put(L"ONSCREEN", screen[Below(4)]);
            put(PatternSection(1 + static_cast<int>(Below(10))), L"UserName");
        }
        for (int i = 0; i < 40; ++i) {
            put(PatternSection(1 + static_cast<int>(Below(3))),
                L"Btn" + std::to_wstring(1 + Below(8)) + L"_" + fields[Below(7)]);
        }
    }

    /// `thorough`: with everything else that reads the store, and an edit.
    void StartAndCheck(bool thorough) {
        MainSettings settings(store, notification_, fonts_);
        settings.Load();
        CheckDialog(settings);
        if (thorough) {
            CheckOthers(settings);
        }
        EXPECT_TRUE(Written().empty());
        CheckOk(settings);
        if (thorough) {
            CheckEdit(settings);
        }
        ForgetOperations();
    }

private:
    static void CheckDialog(const MainSettings& settings) {
        EXPECT_FALSE(settings.AnythingChanged());
        EXPECT_TRUE(settings.CurrentPattern() >= 1 && settings.CurrentPattern() <= kMaxPatterns);
        EXPECT_TRUE(!settings.PatternNames().empty() && settings.PatternNames().size() <= kMaxPatterns);
        EXPECT_FALSE(settings.ButtonsOf(MainPage::Desktop).empty());
        EXPECT_FALSE(settings.ButtonsOf(MainPage::Notebook).empty());
        const OnScreenSettings& screen = settings.OnScreen();
        EXPECT_LE(screen.OnScreen, 1);
        EXPECT_TRUE(screen.FontSize >= kSmallestFontStep && screen.FontSize <= kLargestFontStep);
        EXPECT_TRUE(screen.FontName == L"Arial" || screen.FontName == L"Verdana");
        for (int button = 1; button <= settings.Switches().ButtonCount(); ++button) {
            const int count = settings.Slot(button).NumAP;
            EXPECT_TRUE(count >= 0 && count <= kMaxPrograms);
            const int picture = PictureNumber(settings.Switches(), button, settings.PictureOf(button), {});
            EXPECT_TRUE(picture >= 1 &&
                        picture <= static_cast<int>(PictureNames(settings.Switches()).size()));
        }
    }

    /// What else reads the store, once each.
    void CheckOthers(MainSettings& settings) {
        const StringTable texts(strings_);
        for (const std::wstring& label : ButtonLabels(store, texts, settings.Switches())) {
            EXPECT_EQ(label.find(L'\0'), std::wstring::npos);
        }
        for (const std::wstring& caption : PageCaptions(store, texts)) {
            EXPECT_FALSE(caption.empty());
        }
        const WizardButtons buttons = LoadWizardButtons(
            store, texts, WizardButtonSet(false, settings.Switches().NTNumAPBtn), settings.Defaults());
        EXPECT_TRUE(buttons.shown >= 0 && buttons.shown <= kWizardButtonOptions);

        ProgramSources sources(store, disk_, shell_, ansiText);
        sources.LoadShortcutKeys();
        sources.LoadMediaCenter();
        sources.LoadIeFavorites();
        sources.LoadStartMenu();
        EXPECT_LE(sources.ShortcutKeys().size(), 4U);

        settings.ManagePatterns([&](PatternList& list) {
            list.Load();
            const auto count = static_cast<int>(settings.PatternNames().size());
            EXPECT_TRUE(list.Count() == count || (count == 1 && store.StoredPatternCount() > kMaxPatterns));
            EXPECT_TRUE(list.CurrentPattern() >= 1 && list.CurrentPattern() <= list.Count());
        });

        CQlbPrint print(store);
        print.IniFileName(kOwnFile);
        FakePrintDevice device;
        EXPECT_TRUE(print.QlbPrintOut(device, L"Wild"));
        EXPECT_FALSE(device.Pages().empty());
    }

    /// Without an edit, OK writes the two numbers.
    void CheckOk(MainSettings& settings) {
        const int stored = store.StoredPatternCount();
        EXPECT_TRUE(settings.Ok([] {
            ADD_FAILURE() << "asked whether to save";
            return SaveAnswer::Cancel;
        }));
        const std::string current = std::to_string(settings.CurrentPattern());
        const std::string count =
            std::to_string(stored > kMaxPatterns ? stored : static_cast<int>(settings.PatternNames().size()));
        if (GetParam().iniFile) {
            EXPECT_THAT(Written(), testing::ElementsAre("[KORVOQLB] CurrUser = \"" + current + '"',
                                                        "[KORVOQLB] NumUser = \"" + count + '"'));
        } else {
            EXPECT_THAT(Written(), testing::ElementsAre("CurrSetting = " + current, "NumSetting = " + count));
        }
    }

    /// An edit is stored, and is there after the next start.
    void CheckEdit(MainSettings& settings) {
        const bool hadThatName = settings.Slot(3).Name == L"Edited";
        settings.SetButtonName(3, L"Edited");
        EXPECT_NE(settings.PatternChanged(), hadThatName);
        settings.Apply();
        EXPECT_FALSE(settings.AnythingChanged());
        MainSettings next(store, notification_, fonts_);
        next.Load();
        EXPECT_EQ(next.Slot(3).Name, L"Edited");
        EXPECT_EQ(next.OnScreen(), settings.OnScreen());
    }

    std::mt19937 random_;
    FakeStrings strings_;
    FakeFileSystem disk_;
    FakeShell shell_;
    FontList fonts_{L"Arial"};
    FakeWindows windows_;
    LauncherNotification notification_{windows_};
};

// QLB_WILD_STARTS and QLB_SEED in the environment make it longer, or another one.
TEST_P(WildStore, ShowsAUsableDialog_WhichChangesNothingButTheNumbers) {
    const unsigned starts = Setting("QLB_WILD_STARTS", 300);
    const unsigned seed = Setting("QLB_SEED", 4711);
    if (std::getenv("QLB_WILD_STARTS") != nullptr) {
        std::cout << starts << " starts from seed " << seed << '\n';
    }
    for (unsigned start = 0; start < starts && !HasFailure(); ++start) {
        SCOPED_TRACE("start " + std::to_string(start) + " from seed " + std::to_string(seed));
        Shuffle();
        StartAndCheck(start % 16 == 15);
    }
}

INSTANTIATE_TEST_SUITE_P(BackEnds, WildStore,
                         testing::Values(WildCase{false, FakeAnsiText::kWestern},
                                         WildCase{false, FakeAnsiText::kJapanese},
                                         WildCase{true, FakeAnsiText::kWestern},
                                         WildCase{true, FakeAnsiText::kJapanese}),
                         CaseName);

} // namespace

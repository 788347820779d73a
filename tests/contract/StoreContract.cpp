#include "StoreRig.h"

#include <array>

namespace {

template <class Rig> class OnRegistry : public Rig {
public:
    static constexpr const char* kBackEnd = "Registry";
};

template <class Rig> class OnIniFile : public Rig {
public:
    static constexpr const char* kBackEnd = "IniFile";
    OnIniFile() { this->store.IniFileExist = true; }
};

class BackEndName {
public:
    template <class Rig> static std::string GetName(int /*index*/) {
        return std::string(Rig::kName) + Rig::kBackEnd;
    }
};

struct Entry {
    const wchar_t* section;
    const wchar_t* key;
};

/// Every kind of entry whose text is kept as text.
constexpr std::array kTextEntries{
    Entry{L"USER1", L"UserName"}, Entry{L"USER2", L"Btn3_Name"},   Entry{L"USER10", L"Btn8_Exec"},
    Entry{L"USER2", L"Btn3_AP4"}, Entry{L"USER2", L"Btn3_Title5"}, Entry{L"ONSCREEN", L"FontName"},
};
/// Every kind of entry that is a number.
constexpr std::array kNumberEntries{
    Entry{L"KORVOQLB", L"QLBKeyboard"}, Entry{L"KORVOQLB", L"CurrUser"}, Entry{L"KORVOQLB", L"NumUser"},
    Entry{L"ONSCREEN", L"OnScreen"},    Entry{L"ONSCREEN", L"FontSize"}, Entry{L"ONSCREEN", L"Color"},
    Entry{L"ONSCREEN", L"DelayTime"},   Entry{L"USER2", L"Btn3_NumAP"},
};

/// What holds wherever the settings are kept.
template <class Rig> class StoreContract : public testing::Test {
protected:
    Rig rig_;

    [[nodiscard]] std::wstring Get(const Entry& entry, const std::wstring& fallback) {
        return rig_.store.IniGetString(entry.section, entry.key, fallback, kOwnIniFile);
    }
    bool Set(const Entry& entry, const std::wstring& value) {
        return rig_.store.IniSetString(entry.section, entry.key, value, kOwnIniFile);
    }
};

using Rigs = testing::Types<OnRegistry<FakeStoreRig>, OnIniFile<FakeStoreRig>, OnRegistry<WindowsStoreRig>,
                            OnIniFile<WindowsStoreRig>>;
TYPED_TEST_SUITE(StoreContract, Rigs, BackEndName);

TYPED_TEST(StoreContract, MissingTextIsTheFallback) {
    for (const Entry& entry : kTextEntries) {
        EXPECT_EQ(this->Get(entry, L"FALSE"), L"FALSE");
        EXPECT_EQ(this->Get(entry, L""), L"");
    }
}

TYPED_TEST(StoreContract, AMissingNumberIsTheFallback) {
    for (const Entry& entry : kNumberEntries) {
        EXPECT_EQ(this->Get(entry, L"9"), L"9");
        EXPECT_EQ(this->rig_.store.IniGetInt(entry.section, entry.key, -9, kOwnIniFile), -9);
    }
}

TYPED_TEST(StoreContract, TextIsReadBackAsWritten) {
    for (const Entry& entry : kTextEntries) {
        for (const std::wstring& text :
             {std::wstring(L"M"), std::wstring(L"C:\\Program Files\\App\\app.exe|/a \"b c\" /d=1;2"),
              std::wstring(L"iexplore.exe|http://www.example.com/?a=b&c=%20"), LocalText()}) {
            EXPECT_TRUE(this->Set(entry, text));
            EXPECT_EQ(this->Get(entry, L"FALSE"), text);
        }
    }
}

TYPED_TEST(StoreContract, EmptyTextIsReadBackAsEmpty) {
    for (const Entry& entry : kTextEntries) {
        EXPECT_TRUE(this->Set(entry, L"text"));
        EXPECT_TRUE(this->Set(entry, L""));
        EXPECT_EQ(this->Get(entry, L"FALSE"), L"");
    }
}

TYPED_TEST(StoreContract, ANumberIsReadBackAsWritten) {
    for (const Entry& entry : kNumberEntries) {
        for (const std::int32_t number : {0, 1, 10, 65280, 16777215, -1}) {
            EXPECT_TRUE(this->Set(entry, std::to_wstring(number)));
            EXPECT_EQ(this->Get(entry, L"9"), std::to_wstring(number));
            EXPECT_EQ(this->rig_.store.IniGetInt(entry.section, entry.key, 9, kOwnIniFile), number);
        }
    }
}

TYPED_TEST(StoreContract, TextAsLongAsAnIniFileAllowsIsKept) {
    const std::wstring text(511, L'x');
    EXPECT_TRUE(this->Set({L"USER1", L"Btn1_AP1"}, text));
    EXPECT_EQ(this->Get({L"USER1", L"Btn1_AP1"}, L"FALSE"), text);
}

TYPED_TEST(StoreContract, TextEndsAtItsFirstNul) {
    using namespace std::string_literals;
    EXPECT_TRUE(this->Set({L"USER1", L"UserName"}, L"ab\0cd"s));
    EXPECT_EQ(this->Get({L"USER1", L"UserName"}, L"FALSE"), L"ab");
}

TYPED_TEST(StoreContract, ACharacterThatTheCodePageLacksIsKeptAsAQuestionMark) {
    EXPECT_TRUE(this->Set({L"USER1", L"UserName"}, L"aกb"));
    EXPECT_EQ(this->Get({L"USER1", L"UserName"}, L"FALSE"), L"a?b");
}

TYPED_TEST(StoreContract, EveryEntryHasAPlaceOfItsOwn) {
    std::vector<std::pair<std::wstring, std::wstring>> entries;
    for (int pattern = 1; pattern <= 10; ++pattern) {
        const std::wstring section = L"USER" + std::to_wstring(pattern);
        entries.emplace_back(section, L"UserName");
        for (int button = 1; button <= 8; ++button) {
            const std::wstring prefix = L"Btn" + std::to_wstring(button);
            entries.emplace_back(section, prefix + L"_Name");
            entries.emplace_back(section, prefix + L"_Exec");
            entries.emplace_back(section, prefix + L"_NumAP");
            for (int program = 1; program <= 5; ++program) {
                entries.emplace_back(section, prefix + L"_AP" + std::to_wstring(program));
                entries.emplace_back(section, prefix + L"_Title" + std::to_wstring(program));
            }
        }
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        ASSERT_TRUE(this->Set({entries[i].first.c_str(), entries[i].second.c_str()}, std::to_wstring(i)));
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        ASSERT_EQ(this->Get({entries[i].first.c_str(), entries[i].second.c_str()}, L"-1"),
                  std::to_wstring(i));
    }
}

TYPED_TEST(StoreContract, ADeletedSectionIsGone_AndTheOthersAreKept) {
    const std::array kGone{Entry{L"USER1", L"UserName"}, Entry{L"USER1", L"Btn1_NumAP"},
                           Entry{L"USER1", L"Btn8_Title5"}};
    const std::array kKept{Entry{L"USER10", L"UserName"}, Entry{L"USER10", L"Btn1_NumAP"},
                           Entry{L"USER2", L"Btn8_Title5"}, Entry{L"KORVOQLB", L"NumUser"},
                           Entry{L"ONSCREEN", L"FontSize"}};
    for (const Entry& entry : kGone) {
        ASSERT_TRUE(this->Set(entry, L"3"));
    }
    for (const Entry& entry : kKept) {
        ASSERT_TRUE(this->Set(entry, L"3"));
    }
    EXPECT_TRUE(this->rig_.store.IniDeleteSection(L"USER1", kOwnIniFile));
    for (const Entry& entry : kGone) {
        EXPECT_EQ(this->Get(entry, L"9"), L"9") << testing::PrintToString(entry.key);
    }
    for (const Entry& entry : kKept) {
        EXPECT_EQ(this->Get(entry, L"9"), L"3") << testing::PrintToString(entry.section);
    }
}

TYPED_TEST(StoreContract, ADeletedSectionTakesEntriesAgain) {
    ASSERT_TRUE(this->Set({L"USER10", L"UserName"}, L"first"));
    EXPECT_TRUE(this->rig_.store.IniDeleteSection(L"user10", kOwnIniFile));
    EXPECT_TRUE(this->Set({L"USER10", L"UserName"}, L"second"));
    EXPECT_EQ(this->Get({L"USER10", L"UserName"}, L"none"), L"second");
}

TYPED_TEST(StoreContract, AMissingSectionCountsAsDeleted) {
    EXPECT_TRUE(this->rig_.store.IniDeleteSection(L"USER2", kOwnIniFile));
    ASSERT_TRUE(this->Set({L"USER1", L"UserName"}, L"kept"));
    EXPECT_TRUE(this->rig_.store.IniDeleteSection(L"USER2", kOwnIniFile));
    EXPECT_EQ(this->Get({L"USER1", L"UserName"}, L"none"), L"kept");
}

TYPED_TEST(StoreContract, ASectionOfAnotherFileIsDeletedThere) {
    const std::wstring other = this->rig_.OtherFile();
    this->rig_.PutLine(other, L"USER1", L"UserName", "theirs");
    ASSERT_TRUE(this->Set({L"USER1", L"UserName"}, L"ours"));
    EXPECT_TRUE(this->rig_.store.IniDeleteSection(L"USER1", other));
    EXPECT_EQ(this->rig_.Line(other, L"USER1", L"UserName"), std::nullopt);
    EXPECT_EQ(this->Get({L"USER1", L"UserName"}, L"none"), L"ours");
}

TYPED_TEST(StoreContract, NothingIsRemembered) {
    EXPECT_TRUE(this->Set({L"USER1", L"UserName"}, L"first"));
    EXPECT_EQ(this->Get({L"USER1", L"UserName"}, L"FALSE"), L"first");
    EXPECT_TRUE(this->Set({L"USER1", L"UserName"}, L"second"));
    EXPECT_EQ(this->Get({L"USER1", L"UserName"}, L"FALSE"), L"second");
}

TYPED_TEST(StoreContract, TheCurrentPatternIsOneToTen) {
    EXPECT_EQ(this->rig_.store.ReadCurrentPatternNumber(), 1);
    for (const auto& [text, expected] :
         {std::pair{L"1", 1}, {L"3", 3}, {L"10", 10}, {L"0", 1}, {L"11", 1}, {L"-2", 1}}) {
        EXPECT_TRUE(this->Set({L"KORVOQLB", L"CurrUser"}, text));
        EXPECT_EQ(this->rig_.store.ReadCurrentPatternNumber(), expected) << testing::PrintToString(text);
    }
}

TYPED_TEST(StoreContract, ThePatternsAreOneToTen) {
    EXPECT_EQ(this->rig_.store.ReadPatternCount(), 1);
    for (const auto& [text, expected] : {std::pair{L"2", 2}, {L"10", 10}, {L"0", 1}, {L"11", 1}}) {
        EXPECT_TRUE(this->Set({L"KORVOQLB", L"NumUser"}, text));
        EXPECT_EQ(this->rig_.store.ReadPatternCount(), expected) << testing::PrintToString(text);
    }
}

TYPED_TEST(StoreContract, AnotherFileIsAFile) {
    const std::wstring other = this->rig_.OtherFile();
    EXPECT_EQ(this->rig_.store.IniGetString(L"InternetShortcut", L"URL", L"none", other), L"none");
    this->rig_.PutLine(other, L"InternetShortcut", L"URL", "http://www.example.com/");
    EXPECT_EQ(this->rig_.store.IniGetString(L"InternetShortcut", L"URL", L"none", other),
              L"http://www.example.com/");
    EXPECT_TRUE(this->rig_.store.IniSetString(L"USER1", L"Btn1_NumAP", L"3 of 5", other));
    EXPECT_EQ(this->rig_.Line(other, L"USER1", L"Btn1_NumAP"), "3 of 5");
    EXPECT_EQ(this->rig_.store.IniGetInt(L"USER1", L"Btn1_NumAP", 9, other), 3);
    EXPECT_EQ(this->Get({L"USER1", L"Btn1_NumAP"}, L"9"), L"9");
}

TYPED_TEST(StoreContract, WhereNothingCanBeWrittenWritingRefuses) {
    this->rig_.RefuseWrites();
    EXPECT_FALSE(this->Set({L"KORVOQLB", L"CurrUser"}, L"3"));
    EXPECT_EQ(this->rig_.store.ReadCurrentPatternNumber(), 1);
}

} // namespace

#include "settings/PatternStore.h"

#include "TestStore.h"

namespace {

using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Test;

/// An entry of the Pattern that these tests store, with what is written for it in each place.
struct Entry {
    std::string iniKey;
    std::string subkey;
    std::string name;
    std::string text;
    bool isNumber = false;
    bool hasDefault = true;
};

/// Two buttons that the maker stores in each other's place, in the order in which the launcher finds them written.
const std::vector<Entry> kEntries = {
    {"UserName", "", "SetName", "Home"},
    {"Btn2_Exec", "\\AppKey2", "Execute", "S"},
    {"Btn2_NumAP", "\\AppKey2", "NumAP", "5", true},
    {"Btn2_Name", "\\AppKey2", "DispTitle", "First"},
    {"Btn2_AP1", "\\AppKey2", "AP1", "a1.exe|/p1"},
    {"Btn2_AP2", "\\AppKey2", "AP2", "a2.exe|/p2|/q2"},
    {"Btn2_AP3", "\\AppKey2", "AP3", "a3.exe"},
    {"Btn2_AP4", "\\AppKey2", "AP4", "|/p4"},
    {"Btn2_AP5", "\\AppKey2", "AP5", "a5.exe|bar"},
    {"Btn2_Title1", "\\AppKey2", "ProgName1", "Title 1", false, false},
    {"Btn2_Title2", "\\AppKey2", "ProgName2", "Title 2", false, false},
    {"Btn2_Title3", "\\AppKey2", "ProgName3", "", false, false},
    {"Btn2_Title4", "\\AppKey2", "ProgName4", "Title 4", false, false},
    {"Btn2_Title5", "\\AppKey2", "ProgName5", "Title 5", false, false},
    {"Btn1_Exec", "\\AppKey1", "Execute", ""},
    {"Btn1_NumAP", "\\AppKey1", "NumAP", "1", true},
    {"Btn1_Name", "\\AppKey1", "DispTitle", " "},
    {"Btn1_AP1", "\\AppKey1", "AP1", "b1.exe"},
    {"Btn1_AP2", "\\AppKey1", "AP2", ""},
    {"Btn1_AP3", "\\AppKey1", "AP3", ""},
    {"Btn1_AP4", "\\AppKey1", "AP4", ""},
    {"Btn1_AP5", "\\AppKey1", "AP5", "b5.exe"},
    {"Btn1_Title1", "\\AppKey1", "ProgName1", "", false, false},
    {"Btn1_Title2", "\\AppKey1", "ProgName2", "", false, false},
    {"Btn1_Title3", "\\AppKey1", "ProgName3", "", false, false},
    {"Btn1_Title4", "\\AppKey1", "ProgName4", "", false, false},
    {"Btn1_Title5", "\\AppKey1", "ProgName5", "Last", false, false},
};

Pattern ThatPattern() {
    Pattern pattern;
    pattern.UserName = L"Home";
    ButtonSlot& first = pattern.Btn(1);
    first.Exec = L"S";
    first.NumAP = 5;
    first.Name = L"First";
    first.Program(1) = {L"a1.exe", L"/p1", L"Title 1"};
    first.Program(2) = {L"a2.exe", L"/p2|/q2", L"Title 2"};
    first.Program(3) = {L"a3.exe", L"  ", L""};
    first.Program(4) = {L"", L"/p4", L"Title 4"};
    first.Program(5) = {L"a5.exe|bar", L"/p5", L"Title 5"};
    ButtonSlot& second = pattern.Btn(2);
    second.NumAP = 1;
    second.Program(1).AP = L"b1.exe";
    second.Program(5) = {L"b5.exe", L"", L"Last"};
    return pattern;
}

class PatternOrder : public Test, public TestStore {
public:
    PatternOrder() {
        PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey1", 2);
        PutMachine(L"UTLSetting\\ConvAppKey", L"AppKey2", 1);
    }

    [[nodiscard]] PatternStore Patterns() {
        PatternStore patterns(store, 2);
        ForgetOperations();
        return patterns;
    }

    template <class Describe>
    [[nodiscard]] static std::vector<std::string> Lines(bool defaults, Describe describe) {
        std::vector<std::string> lines;
        for (const Entry& entry : kEntries) {
            if (!defaults || entry.hasDefault) {
                lines.push_back(describe(entry));
            }
        }
        return lines;
    }
};

TEST_F(PatternOrder, OfWritesToTheRegistry) {
    Pattern pattern = ThatPattern();
    Patterns().SavePattern(4, pattern);
    EXPECT_THAT(Written(), ElementsAreArray(Lines(false, [](const Entry& entry) {
                    const std::string text = entry.isNumber ? entry.text : '"' + entry.text + '"';
                    return "Setting\\Set4" + entry.subkey + " " + entry.name + " = " + text;
                })));
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        const std::string& text = kEntries[i].text;
        const std::string end(text.empty() ? 2 : 1, '\0');
        EXPECT_EQ(registry.Writes().at(i).value.bytes,
                  kEntries[i].isNumber ? FakeRegistry::BytesOf(std::stoi(text)) : text + end);
    }
    EXPECT_THAT(files.Operations(), IsEmpty());
}

TEST_F(PatternOrder, OfWritesToTheFile) {
    store.IniFileExist = true;
    Pattern pattern = ThatPattern();
    Patterns().SavePattern(4, pattern);
    EXPECT_THAT(Written(), ElementsAreArray(Lines(false, [](const Entry& entry) {
                    const bool isEmptyProgram = entry.text.empty() && entry.name.starts_with("AP");
                    return "[USER4] " + entry.iniKey + " = \"" + (isEmptyProgram ? " " : entry.text) + '"';
                })));
    EXPECT_THAT(registry.Operations(), IsEmpty());
}

TEST_F(PatternOrder, OfReadsFromTheRegistry) {
    std::ignore = Patterns().LoadPattern(4, Pattern{});
    EXPECT_THAT(Asked(), ElementsAreArray(Lines(false, [](const Entry& entry) {
                    return "HKCU Setting\\Set4" + entry.subkey + " " + entry.name;
                })));
}

TEST_F(PatternOrder, OfReadsFromTheFile) {
    store.IniFileExist = true;
    Pattern defaults = ThatPattern();
    defaults.Btn(2).Name = L" ";
    std::ignore = Patterns().LoadPattern(4, defaults);
    EXPECT_THAT(Asked(),
                ElementsAreArray(Lines(false, [](const Entry& entry) { return "[USER4] " + entry.iniKey; })));
    for (std::size_t i = 0; i < kEntries.size(); ++i) {
        const Entry& entry = kEntries[i];
        const std::string fallback = entry.name.starts_with("AP") ? "FALSE" : entry.text;
        EXPECT_EQ(ansiText.Encode(files.Operations().at(i).value), fallback) << entry.iniKey;
    }
}

TEST_F(PatternOrder, OfReadsOfTheDefaults) {
    std::ignore = Patterns().LoadDefaultPattern();
    EXPECT_THAT(Asked(), ElementsAreArray(Lines(true, [](const Entry& entry) {
                    return "HKLM Default\\Setting\\Set1" + entry.subkey + " " + entry.name;
                })));
}

TEST_F(PatternOrder, OfReadsOfTheDefaultsInIniStyleNames) {
    store.IniFileExist = true;
    std::ignore = Patterns().LoadDefaultPattern();
    EXPECT_THAT(Asked(), ElementsAreArray(Lines(true, [](const Entry& entry) {
                    return "HKLM Default\\USER1 " + entry.iniKey;
                })));
}

} // namespace

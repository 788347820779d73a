#include "settings/PatternStore.h"

#include "TestStore.h"

namespace {

struct StoreKind {
    bool iniFile;
    unsigned codePage;
};

void PrintTo(const StoreKind& kind, std::ostream* stream) {
    *stream << (kind.iniFile ? "ini file, " : "registry, ") << kind.codePage;
}

std::string TestName(const testing::TestParamInfo<StoreKind>& info) {
    return (info.param.iniFile ? "IniFile" : "Registry") + std::to_string(info.param.codePage);
}

class SavedPattern : public testing::TestWithParam<StoreKind>, public TestStore {
public:
    static constexpr int kButtons = 8;

    SavedPattern() : TestStore(GetParam().codePage) { store.IniFileExist = GetParam().iniFile; }

    [[nodiscard]] bool IsJapanese() const { return ansiText.CodePage() == FakeAnsiText::kJapanese; }

    [[nodiscard]] Pattern FullPattern() const {
        const std::wstring word = IsJapanese() ? L"\x30E1\x30FC\x30EB\x8868\x80FD"
                                               : L"Gr\x00F6\x00DF"
                                                 L"e \x20AC";
        const wchar_t* const methods[] = {L"M", L"K", L"S", L"P"};
        Pattern pattern;
        pattern.UserName = word;
        for (int button = 1; button <= kButtons; ++button) {
            ButtonSlot& slot = pattern.Btn(button);
            const std::wstring number = std::to_wstring(button);
            slot.Name = word + number;
            slot.Exec = methods[button % 4];
            slot.NumAP = static_cast<std::int16_t>(button % (kMaxPrograms + 1));
            for (int k = 1; k <= slot.NumAP; ++k) {
                slot.Program(k).AP = L"C:\\" + word + L"\\" + number + L" " + std::to_wstring(k) + L".exe";
                slot.Program(k).Param = k % 2 == 0 ? L"" : L"\"C:\\a b\" /" + word + L"|x";
                slot.Program(k).Title = word + std::to_wstring(k);
            }
        }
        return pattern;
    }

    PatternStore patterns{store, kButtons};
};

TEST_P(SavedPattern, LoadsAsItWas) {
    Pattern saved = FullPattern();
    patterns.SavePattern(2, saved);
    EXPECT_EQ(patterns.LoadPattern(2, Pattern{}), saved);
}

TEST_P(SavedPattern, SavesTheSameBytesAgain) {
    Pattern saved = FullPattern();
    patterns.SavePattern(2, saved);
    const auto firstRegistry = registry.Writes();
    const auto firstFile = files.Writes();
    Pattern loaded = patterns.LoadPattern(2, Pattern{});
    ForgetOperations();
    patterns.SavePattern(2, loaded);
    EXPECT_EQ(registry.Writes(), firstRegistry);
    EXPECT_EQ(files.Writes(), firstFile);
}

TEST_P(SavedPattern, DoesNotFallBackToTheDefaults_WhereItIsEmpty) {
    const Pattern defaults = FullPattern();
    Pattern saved;
    for (int button = 1; button <= kButtons; ++button) {
        saved.Btn(button).Exec = L"M";
    }
    patterns.SavePattern(2, saved);
    const auto first = Written();
    Pattern loaded = patterns.LoadPattern(2, defaults);
    for (int button = 1; button <= kButtons; ++button) {
        EXPECT_EQ(loaded.Btn(button).NumAP, 0);
        EXPECT_EQ(loaded.Btn(button).Program(1).AP, L"");
        EXPECT_EQ(loaded.Btn(button).Program(1).Param, L"");
    }
    ForgetOperations();
    patterns.SavePattern(2, loaded);
    EXPECT_EQ(Written(), first);
}

TEST_P(SavedPattern, LeavesOtherPatternsAlone) {
    Pattern saved = FullPattern();
    patterns.SavePattern(1, saved);
    Pattern empty;
    patterns.SavePattern(2, empty);
    patterns.SavePattern(10, empty);
    EXPECT_EQ(patterns.LoadPattern(1, Pattern{}), saved);
}

TEST_P(SavedPattern, LosesOnlyWhatTheCodePageLacks) {
    Pattern saved;
    saved.UserName = L"a\x0E01z";
    saved.Btn(1).Program(1).AP = L"C:\\\x0E01.exe";
    patterns.SavePattern(1, saved);
    const Pattern loaded = patterns.LoadPattern(1, Pattern{});
    EXPECT_EQ(loaded.UserName, L"a?z");
    EXPECT_EQ(loaded.Btn(1).Program(1).AP, L"C:\\?.exe");
}

INSTANTIATE_TEST_SUITE_P(BackEnds, SavedPattern,
                         testing::Values(StoreKind{false, FakeAnsiText::kWestern},
                                         StoreKind{false, FakeAnsiText::kJapanese},
                                         StoreKind{true, FakeAnsiText::kWestern},
                                         StoreKind{true, FakeAnsiText::kJapanese}),
                         TestName);

} // namespace

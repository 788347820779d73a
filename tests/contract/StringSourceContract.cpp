#include "Rigs.h"
#include "app/StringTable.h"
#include "fakes/FakeStrings.h"
#include "platform/windows/WindowsStringSource.h"

#include <windows.h>

#include <cstdlib>

namespace {

/// The language that the tests were started in.
Language Expected() {
    const char* locale = std::getenv("QLB_LOCALE");
    return locale != nullptr && std::string(locale) == "ja" ? Language::Japanese : Language::English;
}

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeStrings strings{Expected()};
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsStringSource strings;
};

template <class Rig> class StringSourceContract : public testing::Test {
protected:
    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(StringSourceContract, Rigs, RigName);

TYPED_TEST(StringSourceContract, TextsAreInTheUsersLanguage) {
    const bool japanese = Expected() == Language::Japanese;
    EXPECT_EQ(this->rig_.strings.Load(3000),
              japanese ? L"クイックファイアボタンの設定" : L"Quickfire Button Settings");
    EXPECT_EQ(this->rig_.strings.Load(3001), L"KORVOQLB.INI");
}

TYPED_TEST(StringSourceContract, BlanksAtTheStartOfATextAreKept) {
    EXPECT_EQ(this->rig_.strings.Load(3003), Expected() == Language::Japanese ? L"ヘルプ" : L" Help");
}

TYPED_TEST(StringSourceContract, AMissingIdIsEmpty) {
    EXPECT_EQ(this->rig_.strings.Load(2999), L"");
    EXPECT_EQ(this->rig_.strings.Load(0), L"");
    EXPECT_EQ(this->rig_.strings.Load(65'535), L"");
}

TYPED_TEST(StringSourceContract, TheStringTableCountsFromTheResourceBase) {
    EXPECT_EQ(StringTable(this->rig_.strings).ResText(kTextIniFileName), L"KORVOQLB.INI");
}

TEST(WindowsStringSourceTest, EveryTextIsThatOfTheStringTable) {
    const FakeStrings table(Expected());
    const WindowsStringSource windows;
    int texts = 0;
    constexpr int kLaunchersTexts = 5000; // in a program of its own
    for (int id = 1; id < kLaunchersTexts; ++id) {
        const std::wstring expected = table.Load(id);
        ASSERT_EQ(windows.Load(id), expected) << "id " << id;
        texts += expected.empty() ? 0 : 1;
    }
    EXPECT_GT(texts, 100);
}

} // namespace

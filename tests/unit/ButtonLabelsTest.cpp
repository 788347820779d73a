#include "dialogs/main/ButtonLabels.h"

#include "TestStore.h"
#include "app/StringTable.h"
#include "fakes/FakeStrings.h"

namespace {

using testing::ElementsAre;
using testing::Test;

struct LabelledDialog : TestStore {
    explicit LabelledDialog(Language language = Language::English)
        : TestStore(language == Language::Japanese ? FakeAnsiText::kJapanese : FakeAnsiText::kWestern),
          strings(language) {
        ResetGlobals(strings);
    }

    [[nodiscard]] std::array<std::wstring, kMaxButtons> LabelsOf(int model) const {
        MakerSwitches switches;
        switches.QSTART = model;
        return ButtonLabels(store, texts, switches);
    }

    FakeStrings strings;
    StringTable texts{strings};
};

class Labels : public Test, public LabelledDialog {};

class JapaneseLabels : public Test, public LabelledDialog {
public:
    JapaneseLabels() : LabelledDialog(Language::Japanese) {}
};

TEST_F(Labels, StartAgainAt1OnTheNotebook_WhenTheModelIs0) {
    EXPECT_THAT(LabelsOf(0), ElementsAre(L"Button 1", L"Button 2", L"Button 3", L"Button 4", L"Button 5",
                                         L"Button 1", L"Button 2", L"Button 3"));
}

TEST_F(Labels, NameTwoFnKeys_WhenTheModelIs1) {
    const auto labels = LabelsOf(1);
    EXPECT_EQ(labels[0], L"Button 1");
    EXPECT_EQ(labels[4], L"Button 5");
    EXPECT_EQ(labels[5], L"Fn + 1");
    EXPECT_EQ(labels[6], L"Fn + 2");
    EXPECT_EQ(labels[7], L"Button 8");
}

TEST_F(Labels, CountAllButtons_ForAnyOtherModel) {
    for (const int model : {2, -1}) {
        EXPECT_THAT(LabelsOf(model), ElementsAre(L"Button 1", L"Button 2", L"Button 3", L"Button 4",
                                                 L"Button 5", L"Button 6", L"Button 7", L"Button 8"));
    }
}

TEST_F(Labels, AreTheMakersOwn_WhereHeGaveOne) {
    for (int button = 1; button <= kMaxButtons; ++button) {
        const std::string text = "Key " + std::to_string(button);
        PutMachine(L"UTLSetting\\ButtonName", L"AppKey" + std::to_wstring(button), text.c_str());
    }
    for (const int model : {0, 1, 2}) {
        EXPECT_THAT(LabelsOf(model), ElementsAre(L"Key 1", L"Key 2", L"Key 3", L"Key 4", L"Key 5", L"Key 6",
                                                 L"Key 7", L"Key 8"));
    }
}

TEST_F(Labels, StayAsTheyAre_WhereTheMakersTextIsEmpty) {
    PutMachine(L"UTLSetting\\ButtonName", L"AppKey1", "");
    PutMachine(L"UTLSetting\\ButtonName", L"AppKey6", "MAIL");
    const auto labels = LabelsOf(0);
    EXPECT_EQ(labels[0], L"Button 1");
    EXPECT_EQ(labels[5], L"MAIL");
    EXPECT_EQ(labels[6], L"Button 2");
}

TEST_F(Labels, ComeFromTheMachineAlone) {
    PutUser(L"UTLSetting\\ButtonName", L"AppKey1", "Mine");
    EXPECT_EQ(LabelsOf(0)[0], L"Button 1");
}

TEST_F(JapaneseLabels, AreJapanese) {
    EXPECT_EQ(LabelsOf(0)[1], strings.Load(3016) + L"2");
    PutMachine(L"UTLSetting\\ButtonName", L"AppKey1", "\x83\x81\x81[\x83\x8B");
    EXPECT_EQ(LabelsOf(0)[0], L"\x30E1\x30FC\x30EB");
}

TEST_F(Labels, CaptionBothButtonPagesAlike) {
    EXPECT_THAT(PageCaptions(store, texts),
                ElementsAre(L"Button Settings", L"Button Settings", L"On-Screen Settings"));
}

TEST_F(Labels, CaptionTheButtonPagesAsTheMakerSays) {
    PutMachine(L"UTLSetting\\TabName", L"Tab0", "Desktop");
    PutMachine(L"UTLSetting\\TabName", L"Tab1", "Notebook");
    PutMachine(L"UTLSetting\\TabName", L"Tab2", "Never");
    EXPECT_THAT(PageCaptions(store, texts), ElementsAre(L"Desktop", L"Notebook", L"On-Screen Settings"));
}

TEST_F(Labels, CaptionAPageAsBuilt_WhereTheMakersTextIsEmpty) {
    PutMachine(L"UTLSetting\\TabName", L"Tab0", "");
    PutMachine(L"UTLSetting\\TabName", L"Tab1", "Notebook");
    EXPECT_THAT(PageCaptions(store, texts),
                ElementsAre(L"Button Settings", L"Notebook", L"On-Screen Settings"));
}

} // namespace

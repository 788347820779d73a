#include "UiTest.h"

#include <map>

namespace {

using testing::ElementsAre;

class Captions : public UiTest {
protected:
    void ExpectCaptions(const std::map<int, int>& textsById) const {
        for (const auto& [id, text] : textsById) {
            EXPECT_EQ(Item(id).Text(), Text(text)) << "control " << id;
        }
    }

    std::vector<std::wstring> Labels(int first, int last) const {
        std::vector<std::wstring> labels;
        for (int button = first; button <= last; ++button) {
            labels.push_back(Item(IDC_lblButtonName0 + button - 1).Text());
        }
        return labels;
    }

    /// How many buttons the page that is shown has.
    int ButtonsShown() const {
        int shown = 0;
        for (int button = 1; button <= 8; ++button) {
            const bool has = Dialog().HasControl(IDC_picButton0 + button - 1);
            shown += has && PictureOf(button).Visible() && NameBox(button).Visible() ? 1 : 0;
        }
        return shown;
    }

    static std::wstring Numbered(int text, int number) { return Text(text) + std::to_wstring(number); }
};

TEST_F(Captions, TheWindowHasItsTitle) {
    Start();
    EXPECT_EQ(Dialog().Title(), Text(kTitleText));
}

TEST_F(Captions, TheDialogButtonsHaveTheirTexts) {
    Start();
    ExpectCaptions({{IDC_cmdOK, kOkText},
                    {IDC_cmdCancel, kCancelText},
                    {IDC_cmdApply, kApplyText},
                    {IDC_cmdHelp, kHelpButtonText},
                    {IDC_cmdPrint, kPrintText}});
}

TEST_F(Captions, TheDesktopPageHasItsTexts) {
    Start(L"/t:0");
    ExpectCaptions({{IDC_lblUserName0, kPatternNameText},
                    {IDC_cmdUserManager0, kSettingManagerText},
                    {IDC_cmdWizard0, kWizardButtonText},
                    {IDC_cmdDefault0, kDefaultText}});
}

TEST_F(Captions, TheNotebookPageHasItsTexts) {
    Start(L"/t:1");
    ExpectCaptions({{IDC_lblUserName1, kPatternNameText},
                    {IDC_cmdUserManager1, kSettingManagerText},
                    {IDC_cmdWizard1, kWizardButtonText},
                    {IDC_cmdDefault1, kDefaultText}});
}

TEST_F(Captions, TheOnScreenPageHasItsTexts) {
    Start(L"/t:2");
    ExpectCaptions({{IDC_chkOnScreen, kDisplayOnScreenText},
                    {IDC_lblFontName, kFontText},
                    {IDC_lblFontSize, kSizeText},
                    {IDC_lblFontColor, kColorText},
                    {IDC_CmdFontColor, kSelectText},
                    {IDC_lblPreview, kPreviewText},
                    {IDC_cmdDefault2, kDefaultText}});
}

TEST_F(Captions, TheTabsHaveTheirTexts) {
    Start();
    EXPECT_THAT(Tabs().Captions(), ElementsAre(Text(kButtonSettingsText), Text(kButtonSettingsText),
                                               Text(kOnScreenSettingsText)));
}

TEST_F(Captions, TheMakerNamesTheButtonPages) {
    const std::wstring desktop = Local(L"Façade", L"本体のボタン");
    const std::wstring notebook = Local(L"Clé Fn", L"Ｆｎキー");
    Machine().Sub(L"UTLSetting\\TabName").SetString(L"Tab0", desktop);
    Machine().Sub(L"UTLSetting\\TabName").SetString(L"Tab1", notebook);
    Start();
    EXPECT_THAT(Tabs().Captions(), ElementsAre(desktop, notebook, Text(kOnScreenSettingsText)));
}

TEST_F(Captions, AnEmptyPageNameKeepsTheBuiltInOne) {
    WriteText(Machine().Sub(L"UTLSetting\\TabName"), L"Tab0", L"");
    Start();
    EXPECT_EQ(Tabs().Caption(0), Text(kButtonSettingsText));
}

TEST_F(Captions, WithoutTheNotebookPageThereAreTwoTabs) {
    Machine().Sub(L"UTLSetting").SetDword(L"ShowNTTab", 0);
    Start();
    EXPECT_THAT(Tabs().Captions(), ElementsAre(Text(kButtonSettingsText), Text(kOnScreenSettingsText)));
}

TEST_F(Captions, TheDesktopButtonsAreNumbered) {
    Start();
    EXPECT_THAT(Labels(1, 5), ElementsAre(Numbered(kButtonNumberText, 1), Numbered(kButtonNumberText, 2),
                                          Numbered(kButtonNumberText, 3), Numbered(kButtonNumberText, 4),
                                          Numbered(kButtonNumberText, 5)));
}

TEST_F(Captions, TheNotebookNumbersStartAgain) {
    Machine().SetDword(L"NTNumAPBtn", 3);
    Start(L"/t:1");
    EXPECT_THAT(Labels(6, 8), ElementsAre(Numbered(kButtonNumberText, 1), Numbered(kButtonNumberText, 2),
                                          Numbered(kButtonNumberText, 3)));
}

TEST_F(Captions, OnTheFirstModelTheNotebookButtonsAreFnKeys) {
    Machine().SetDword(L"QSTART", 1);
    Start(L"/t:1");
    EXPECT_THAT(Labels(6, 7), ElementsAre(Numbered(kFnKeyText, 1), Numbered(kFnKeyText, 2)));
}

TEST_F(Captions, OnOtherModelsTheNotebookButtonsKeepTheirOwnNumbers) {
    Machine().SetDword(L"QSTART", 2);
    Start(L"/t:1");
    EXPECT_THAT(Labels(6, 7), ElementsAre(Numbered(kButtonNumberText, 6), Numbered(kButtonNumberText, 7)));
}

TEST_F(Captions, TheMakerNamesSingleButtons) {
    const std::wstring first = Local(L"Début", L"開始");
    const std::wstring sixth = Local(L"Fn & one", L"Ｆｎ＆１");
    Machine().Sub(L"UTLSetting\\ButtonName").SetString(L"AppKey1", first);
    Machine().Sub(L"UTLSetting\\ButtonName").SetString(L"AppKey6", sixth);
    Start(L"/t:0");
    EXPECT_THAT(Labels(1, 2), ElementsAre(first, Numbered(kButtonNumberText, 2)));
    OpenPage(1);
    EXPECT_THAT(Labels(6, 7), ElementsAre(sixth, Numbered(kButtonNumberText, 2)));
}

TEST_F(Captions, APictureIsNamedAfterItsButton) {
    Start();
    EXPECT_EQ(PictureOf(3).Text(), Numbered(kButtonNumberText, 3));
}

struct Count : NamedCase {
    DWORD stored;
    int shown;
};

class NotebookCount : public Captions, public testing::WithParamInterface<Count> {};

TEST_P(NotebookCount, DecidesHowManyFnKeysAreShown) {
    Machine().SetDword(L"NTNumAPBtn", GetParam().stored);
    Start(L"/t:1");
    EXPECT_EQ(ButtonsShown(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(, NotebookCount,
                         testing::Values(Count{{"None"}, 0, 2}, Count{{"One"}, 1, 1}, Count{{"Two"}, 2, 2},
                                         Count{{"Three"}, 3, 3}, Count{{"TooMany"}, 4, 2}),
                         NameOfCase{});

class DesktopCount : public Captions, public testing::WithParamInterface<Count> {};

TEST_P(DesktopCount, DecidesHowManyDesktopButtonsAreShown) {
    Machine().SetDword(L"DTNumAPBtn", GetParam().stored);
    Start(L"/t:0");
    EXPECT_EQ(ButtonsShown(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(, DesktopCount,
                         testing::Values(Count{{"None"}, 0, 5}, Count{{"Three"}, 3, 3}, Count{{"Five"}, 5, 5},
                                         Count{{"TooMany"}, 6, 5}),
                         NameOfCase{});

} // namespace

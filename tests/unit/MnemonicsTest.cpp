// The access keys of what stands together: pressed twice, a key would only move the focus about.

#include "app/StringTable.h"
#include "fakes/FakeStrings.h"
#include "settings/StdModule.h"

#include <gmock/gmock.h>

#include <map>
#include <vector>

namespace {

struct PageTexts {
    const char* page;
    std::vector<int> texts;
};

std::vector<int> With(std::vector<int> texts, const std::vector<int>& more) {
    texts.insert(texts.end(), more.begin(), more.end());
    return texts;
}

/// The offsets of all texts that a page or form shows at once.
std::vector<PageTexts> Pages() {
    const std::vector<int> mainButtons{kTextOk, kTextCancel, kTextApply, kTextPrint, kTextHelpButton};
    const std::vector<int> wizardButtons{kTextBack, kTextNext, kTextFinish, kTextWizardCancel};
    std::vector<int> programs;
    for (int slot = 0; slot < 5; ++slot) {
        programs.push_back(kTextSendProgram1 + slot);
    }
    std::vector<int> sources;
    std::vector<int> buttons;
    for (int i = 0; i < 5; ++i) {
        sources.push_back(kTextFromStartMenu + i);
        buttons.push_back(kTextWizardButton1 + i);
        buttons.push_back(kTextWizardFnKey1 + i);
    }
    return {
        {"buttons", With({kTextPatternName, kTextSettingManager, kTextWizardButton, kTextDefault,
                          kTextButtonNumber, kTextFnKey},
                         mainButtons)},
        {"on-screen settings", With({kTextDisplayOnScreen, kTextFont, kTextSize, kTextColor, kTextSelect,
                                     kTextPreview, kTextDefault},
                                    mainButtons)},
        {"registration",
         {kTextExecMethod1, kTextExecMethod1 + 1, kTextExecMethod1 + 2, kTextStartupMethod,
          kTextRegisterPrograms, kTextProgramNumber, kTextRegisterOk, kTextRegisterCancel}},
        {"slot menu", {kTextDeleteProgram, kTextParameterSetting, kTextCancelMenu}},
        {"send menu", With({kTextSend}, programs)},
        {"manager", {kTextNameList, kTextAdd, kTextDelete, kTextCopy, kTextRename, kTextClose}},
        {"input", {kTextEnterPatternName, kTextInputParameter, kTextInputOk, kTextInputCancel}},
        {"wizard buttons", With(buttons, wizardButtons)},
        {"wizard methods",
         With({kTextLaunchMethod1, kTextLaunchMethod1 + 1, kTextLaunchMethod1 + 2}, wizardButtons)},
        {"wizard sources", With(sources, wizardButtons)},
        {"wizard programs", With(With({kTextWizardProgram}, sources), wizardButtons)},
    };
}

wchar_t KeyOf(const std::wstring& text) {
    const std::size_t mark = text.find(L'&');
    return mark == std::wstring::npos ? L'\0' : text.at(mark + 1);
}

/// "X: text, text" for each key that stands for two texts.
std::vector<std::wstring> Clashes(const std::vector<std::wstring>& texts) {
    std::map<std::wstring, std::vector<std::wstring>, LessIgnoreCase> byKey;
    for (const std::wstring& text : texts) {
        if (const wchar_t key = KeyOf(text); key != L'\0') {
            byKey[std::wstring(1, key)].push_back(text);
        }
    }
    std::vector<std::wstring> clashes;
    for (const auto& [key, owners] : byKey) {
        if (owners.size() > 1) {
            clashes.push_back(owners[0] + L" and " + owners[1]);
        }
    }
    return clashes;
}

TEST(MnemonicsTest, NoKeyStandsForTwoTextsOfOnePage) {
    for (const Language language : {Language::English, Language::Japanese}) {
        const FakeStrings strings(language);
        ResetGlobals(strings);
        const StringTable table(strings);
        for (const PageTexts& page : Pages()) {
            std::vector<std::wstring> texts;
            for (const int offset : page.texts) {
                texts.push_back(table.ResText(offset));
                EXPECT_NE(texts.back(), L"") << offset;
            }
            EXPECT_THAT(Clashes(texts), testing::IsEmpty()) << page.page;
        }
    }
}

TEST(MnemonicsTest, ATextOfTwoPagesWouldClashOnOne) {
    EXPECT_THAT(Clashes({L"Setting Manager(&M)...", L"OK", L"Run a single program(&m)"}), testing::SizeIs(1));
}

TEST(MnemonicsTest, ATextReadsWithoutItsKey) {
    EXPECT_EQ(WithoutMnemonic(L"Print(&P)"), L"Print");
    EXPECT_EQ(WithoutMnemonic(L"ウィザード(&W)..."), L"ウィザード...");
    EXPECT_EQ(WithoutMnemonic(L"&Open"), L"Open");
    EXPECT_EQ(WithoutMnemonic(L"Save && close(&S)"), L"Save & close");
    EXPECT_EQ(WithoutMnemonic(L"a(&&)b"), L"a(&)b");
    EXPECT_EQ(WithoutMnemonic(L"(&P"), L"(P");
    EXPECT_EQ(WithoutMnemonic(L"end&"), L"end");
    EXPECT_EQ(WithoutMnemonic(L""), L"");
}

TEST(MnemonicsTest, AnAmpersandOfATextIsNoKey) {
    EXPECT_EQ(WithoutAccessKeys(L"Q&A"), L"Q&&A");
    EXPECT_EQ(WithoutAccessKeys(L"&&"), L"&&&&");
    EXPECT_EQ(WithoutAccessKeys(L"Plain"), L"Plain");
    EXPECT_EQ(WithoutMnemonic(WithoutAccessKeys(L"Sales(&C)&")), L"Sales(&C)&");
}

} // namespace

#include "DamagedUse.h"

#include <sstream>

std::wstring DamagedUse::DumpWithoutNumbers() const {
    std::wistringstream lines(StoreDump());
    std::wstring kept;
    for (std::wstring line; std::getline(lines, line);) {
        const bool number = line.starts_with(L"CurrSetting=") || line.starts_with(L"NumSetting=") ||
                            line.starts_with(L"CurrUser=") || line.starts_with(L"NumUser=");
        kept += number ? L"" : line + L'\n';
    }
    return kept;
}

void DamagedUse::LookAtEveryPage() {
    Start();
    EXPECT_GE(Combo(IDC_cmbUserName0).Count(), 1);
    OpenPage(1);
    EXPECT_TRUE(NameBox(6).Enabled());
    OpenPage(2);
    EXPECT_TRUE(Item(IDC_chkOnScreen).Enabled());
    EXPECT_TRUE(Combo(IDC_cmbFontSize).Selected().has_value());
    OpenPage(0);
    EXPECT_TRUE(NameBox(1).Enabled());
    ExpectAlive();
    Item(IDC_cmdOK).Press();
    ExpectEnd();
}

void DamagedUse::ExpectUsableAndHarmless() {
    const std::wstring before = DumpWithoutNumbers();
    LookAtEveryPage();
    EXPECT_EQ(DumpWithoutNumbers(), before);
}

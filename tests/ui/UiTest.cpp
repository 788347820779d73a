#include "UiTest.h"

#include "Fonts.h"

#include <algorithm>

using UiDriver::Control;
using UiDriver::Launcher;
using UiDriver::ModalBox;
using UiDriver::Process;
using UiDriver::RegistryKey;
using UiDriver::Mouse::MoveTo;

namespace {

constexpr DWORD kNavy = 0x00804000;
constexpr DWORD kStoredDefaultColor = 8000;
constexpr DWORD kDefaultColor = 0x8000; ///< kStoredDefaultColor's decimal digits read as hexadecimal

StoredButton Single(const std::wstring& name, const std::wstring& program, const std::wstring& title) {
    return {name, L"M", 1, {program}, {title}};
}

StoredPattern Office() {
    return {
        Local(L"Office", L"仕事"),
        {Single(Local(L"Résumé mail", L"メール"), L"C:\\Mail\\mail.exe|/inbox", Local(L"Mail", L"メール")),
         {Local(L"Copy", L"コピー"), L"K", 1, {L"131139"}, {L"Ctrl + C"}},
         {Local(L"Morning", L"朝の用意"),
          L"S",
          3,
          {L"C:\\Office\\words.exe", L"C:\\Office\\sheets.exe|\"new file.xls\" /s",
           L"iexplore.exe|http://example/"},
          {L"Words", L"Sheets", L"Start page"}},
         {Local(L"Côte à côte", L"二つ一緒"), L"P", 2, {L"C:\\a.exe", L"C:\\b.exe|-x"}, {L"A", L"B"}},
         {Local(L"Free", L"空き"), L"M", 0, {}, {}},
         Single(Local(L"Player", L"音楽"), L"C:\\Player\\player.exe", L"Player"),
         {Local(L"Two", L"二つ"), L"S", 2, {L"C:\\one.exe", L"C:\\two.exe"}, {L"", L"Two"}},
         Single(Local(L"Eighth", L"八つ目"), L"C:\\eighth.exe", L"Eighth")}};
}

/// Different from Office in every button, and from the other of its kind by `prefix`.
StoredPattern Other(const std::wstring& name, const std::wstring& prefix) {
    StoredPattern pattern;
    pattern.name = name;
    for (int button = 1; button <= 8; ++button) {
        const std::wstring number = std::to_wstring(button);
        pattern.Button(button) =
            Single(prefix + number, L"C:\\" + prefix + L"\\p" + number + L".exe", L"Title " + number);
    }
    return pattern;
}

} // namespace

UiTest::UiTest() {
    // Away from where the dialog opens, so that no picture is under the mouse by chance.
    MoveTo({2, 2});
    Seed();
}

StoredPattern UiTest::Seeded(int number) {
    switch (number) {
    case 1:
        return Office();
    case 2:
        return Other(Local(L"Café", L"家庭"), Local(L"Home-é-", L"家"));
    default:
        return Other(Local(L"Travel", L"旅行"), Local(L"Away ", L"旅"));
    }
}

StoredPattern UiTest::SeededDefault() {
    StoredPattern pattern = Other(L"Factory", L"Factory ");
    pattern.Button(2).method = L"S";
    pattern.Button(2).count = 2;
    pattern.Button(2).programs[1] = L"C:\\second.exe|/param";
    // The maker's settings have no titles.
    for (StoredButton& button : pattern.buttons) {
        button.titles = {};
    }
    return pattern;
}

StoredOnScreen UiTest::SeededOnScreen() {
    return {1, OfferedFaces().at(0), 2, kNavy};
}

StoredOnScreen UiTest::SeededDefaultOnScreen() {
    return {1, OfferedFaces().at(1), 4, kDefaultColor};
}

void UiTest::Seed() const {
    Machine().SetDword(L"QLBB", 1);
    Machine().SetDword(L"QSTART", 0);
    Machine().SetDword(L"BtnImage", 1);
    Machine().SetDword(L"NTNumAPBtn", 2);
    Machine().SetDword(L"DTNumAPBtn", 5);
    Machine().Sub(L"UTLSetting").SetDword(L"ShowNTTab", 1);

    const StoredPattern defaults = SeededDefault();
    const RegistryKey defaultSet = Machine().Sub(L"Default\\Setting\\Set1");
    WriteText(defaultSet, L"SetName", defaults.name);
    for (int button = 1; button <= 8; ++button) {
        const RegistryKey key = defaultSet.Sub(L"AppKey" + std::to_wstring(button));
        const StoredButton& settings = defaults.Button(button);
        WriteText(key, L"DispTitle", settings.name);
        WriteText(key, L"Execute", settings.method);
        key.SetDword(L"NumAP", settings.count);
        for (std::size_t i = 0; i < settings.programs.size(); ++i) {
            WriteText(key, L"AP" + std::to_wstring(i + 1), settings.programs[i]);
        }
    }
    const RegistryKey defaultOnScreen = Machine().Sub(L"Default\\OnScreen");
    defaultOnScreen.SetDword(L"OnScreen", SeededDefaultOnScreen().on);
    WriteText(defaultOnScreen, L"FontFace", SeededDefaultOnScreen().face);
    defaultOnScreen.SetDword(L"Size", SeededDefaultOnScreen().size);
    defaultOnScreen.SetDword(L"Color", kStoredDefaultColor);

    User().SetDword(L"CurrSetting", 1);
    User().SetDword(L"NumSetting", kPatterns);
    WriteOnScreen(OnScreenKey(), SeededOnScreen());
    // The program knows nothing of this one and has to leave it alone.
    OnScreenKey().SetDword(L"Time", 5);
    for (int number = 1; number <= kPatterns; ++number) {
        WritePattern(Set(number), Seeded(number));
    }
}

void UiTest::SeedIniBackEnd() const {
    User().EraseTree();
    Machine().SetDword(L"QLBINI", 1);
    std::string text = "[KORVOQLB]\r\nQLBKeyboard=0\r\nCurrUser=1\r\nNumUser=" + std::to_string(kPatterns) +
                       "\r\n" + IniSection(SeededOnScreen());
    for (int number = 1; number <= kPatterns; ++number) {
        text += IniSection(number, Seeded(number));
    }
    Ini().SetBytes(text);
    // By the system's own hand, which lays the file out as it will when the program writes.
    Ini().Set("KORVOQLB", "QLBKeyboard", "1");
}

std::wstring UiTest::ProgramPath() {
    return UiDriver::OnDriveZ(QLB_PROGRAM_PATH);
}

std::wstring UiTest::LauncherPath() {
    return UiDriver::OnDriveZ(QLB_LAUNCHER_PATH);
}

void UiTest::Start(const std::wstring& arguments) {
    StartFrom(ProgramPath(), arguments);
}

void UiTest::StartFrom(const std::wstring& programPath, const std::wstring& arguments) {
    program_.emplace(Process::Start(programPath, arguments));
    dialog_.emplace(UiDriver::WaitForForm(*program_, Text(kTitleText)));
    dialog_->WaitUntilAnswers();
    dialog_->BringToFront();
}

void UiTest::OpenPage(int page) const {
    Tabs().Select(page);
    const int onPage = IDC_cmdDefault0 + page;
    UiDriver::WaitUntil([&] { return Dialog().HasControl(onPage) && Item(onPage).Visible(); },
                        L"page " + std::to_wstring(page) + L" to be shown");
}

void UiTest::EndProgram() {
    dialog_.reset();
    program_.reset();
}

std::vector<std::wstring> UiTest::ShownNames(int first, int last) const {
    std::vector<std::wstring> names;
    for (int button = first; button <= last; ++button) {
        names.push_back(NameBox(button).Text());
    }
    return names;
}

std::vector<std::wstring> UiTest::NamesOf(const StoredPattern& pattern, int first, int last) {
    std::vector<std::wstring> names;
    for (int button = first; button <= last; ++button) {
        names.push_back(pattern.Button(button).name);
    }
    return names;
}

void UiTest::Apply() const {
    Item(IDC_cmdApply).Press();
    Dialog().WaitUntilAnswers();
}

ModalBox UiTest::PressAndAwaitQuestion(int id) const {
    Item(id).Press();
    return ModalBox::Wait(Program());
}

void UiTest::ExpectEnd() const {
    EXPECT_EQ(Program().WaitForExit(), 0U);
}

void UiTest::ExpectAlive() const {
    ASSERT_TRUE(Program().Running());
    Dialog().WaitUntilAnswers();
    EXPECT_TRUE(Dialog().Visible());
    EXPECT_TRUE(Dialog().Enabled());
    EXPECT_EQ(UiDriver::FindWindows({Program().Id(), std::nullopt, std::nullopt}).size(), 1U);
}

Launcher& UiTest::StartLauncher(const std::wstring& options) {
    return launcher_.emplace(LauncherPath(), options);
}

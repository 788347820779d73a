#include "PatternManagerUse.h"

#include "driver/Message.h"

using UiDriver::ModalBox;
using UiDriver::ToUtf8;
using UiDriver::WaitUntil;

namespace {

int TitleOf(int button) {
    switch (button) {
    case IDC_cmdAdd:
        return kAddText;
    case IDC_cmdCopy:
        return kCopyText;
    default:
        return kRenameText;
    }
}

} // namespace

void NameQuestion::AwaitSelectedText() const {
    const auto length = static_cast<WORD>(Field().Text().size());
    const auto selected = [&] {
        return Field().Focused() && UiDriver::Send(Field().Hwnd(), EM_GETSEL) == MAKELONG(0, length);
    };
    WaitUntil(selected, L"the name to be selected and to have the focus");
}

void NameQuestion::Accept(const std::wstring& name) const {
    Field().SetText(name);
    PressOk();
    form_.WaitUntilGone();
}

void NameQuestion::Cancel() const {
    form_.Control(IDC_cmdCancel).Press();
    form_.WaitUntilGone();
}

PatternManagerUse::PatternManagerUse() {
    Machine().SetDword(L"NTNumAPBtn", 3);
}

std::vector<StoredPattern> PatternManagerUse::ManyPatterns(int count) {
    std::vector<StoredPattern> patterns;
    for (int number = 1; number <= count; ++number) {
        const std::wstring suffix = L" " + std::to_wstring(number);
        StoredPattern pattern = Named(Seeded(1 + number % 3), Local(L"Été", L"夏") + suffix);
        pattern.Button(1).name += suffix;
        patterns.push_back(pattern);
    }
    return patterns;
}

StoredPattern PatternManagerUse::Named(StoredPattern pattern, const std::wstring& name) {
    pattern.name = name;
    return pattern;
}

std::vector<std::wstring> PatternManagerUse::NamesIn(const std::vector<StoredPattern>& patterns) {
    std::vector<std::wstring> names;
    for (const StoredPattern& pattern : patterns) {
        names.push_back(pattern.name);
    }
    return names;
}

void PatternManagerUse::WriteStore(int current, const std::vector<StoredPattern>& patterns) const {
    User().Sub(L"Setting").EraseTree();
    User().SetDword(L"CurrSetting", static_cast<DWORD>(current));
    User().SetDword(L"NumSetting", static_cast<DWORD>(patterns.size()));
    for (std::size_t i = 0; i < patterns.size(); ++i) {
        WritePattern(Set(static_cast<int>(i) + 1), patterns[i]);
    }
}

void PatternManagerUse::ExpectStore(int current, const std::vector<StoredPattern>& patterns) const {
    const std::wstring found = StoreDump();
    UiDriver::Store::Wipe();
    Seed();
    Machine().SetDword(L"NTNumAPBtn", 3);
    WriteStore(current, patterns);
    EXPECT_EQ(ToUtf8(found), ToUtf8(StoreDump()));
}

void PatternManagerUse::OpenManager(int button) {
    Item(button).Press();
    AwaitManager();
}

void PatternManagerUse::AwaitManager() {
    manager_.emplace(UiDriver::WaitForForm(Program(), Text(kManagerTitleText)));
    manager_->WaitUntilAnswers();
    manager_->BringToFront();
}

void PatternManagerUse::StartManager() {
    Start(L"/t:0");
    OpenManager();
}

void PatternManagerUse::CloseManager() const {
    Button(IDC_cmdClose).Press();
    Manager().WaitUntilGone();
    Dialog().WaitUntilAnswers();
}

void PatternManagerUse::ExpectList(const std::vector<std::wstring>& names, int selected) const {
    const auto shown = [&] {
        return List().Count() == static_cast<int>(names.size()) && List().Selected() == selected &&
               List().SelectedText() == names.at(static_cast<std::size_t>(selected));
    };
    WaitUntil(shown, L"the list to have " + std::to_wstring(names.size()) + L" entries with number " +
                         std::to_wstring(selected) + L" selected");
    Manager().WaitUntilAnswers();
    EXPECT_THAT(List().Items(), testing::ElementsAreArray(names));
}

NameQuestion PatternManagerUse::AskName(int button) const {
    Button(button).Press();
    return AwaitNameQuestion(TitleOf(button));
}

NameQuestion PatternManagerUse::AwaitNameQuestion(int titleText) const {
    const UiDriver::Window form = UiDriver::WaitForForm(Program(), Text(titleText));
    form.WaitUntilAnswers();
    form.BringToFront();
    return NameQuestion(form);
}

ModalBox PatternManagerUse::AskDelete(int index) const {
    List().Choose(index);
    AwaitDelete(true);
    Button(IDC_cmdDelete).Press();
    return ModalBox::Wait(Program());
}

void PatternManagerUse::SendCommand(int button) const {
    UiDriver::SendWithoutWaiting(Manager().Hwnd(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                                 reinterpret_cast<LPARAM>(Button(button).Hwnd()));
    Manager().WaitUntilAnswers();
}

void PatternManagerUse::AwaitFocus(int id) const {
    WaitUntil([&] { return FocusedId() == id; }, L"control " + std::to_wstring(id) + L" to have the focus");
}

void PatternManagerUse::AwaitDelete(bool enabled) const {
    WaitUntil([&] { return Button(IDC_cmdDelete).Enabled() == enabled; },
              enabled ? L"Delete to be enabled" : L"Delete to be disabled");
}

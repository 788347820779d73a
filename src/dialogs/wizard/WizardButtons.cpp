#include "dialogs/wizard/WizardButtons.h"

#include "app/StringTable.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

#include <algorithm>

namespace {

constexpr std::int32_t kDesktopSet = 5;
constexpr std::int32_t kDefaultNotebookKeys = 2;
constexpr std::int32_t kAllDesktopButtons = 4; ///< bit of the keyboard's flags
constexpr const wchar_t* kButtonNameKey = L"Software\\Korvo\\KORVOQLB\\UTLSetting\\ButtonName";

bool IsNotebookKeyCount(std::int32_t count) {
    return count >= 1 && count <= 3;
}

std::wstring ReplaceAll(std::wstring text, const std::wstring& what, const std::wstring& with) {
    for (std::size_t at = text.find(what); at != std::wstring::npos; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
    return text;
}

/// Number of the button behind an option, for the maker's labels; 0 when it can have none.
int LabelNumber(std::int32_t buttonSet, int option) {
    if (buttonSet == kDesktopSet) {
        return option + 1;
    }
    return IsNotebookKeyCount(buttonSet) && option < 3 ? kDesktopButtons + option + 1 : 0;
}

int NamedDefaultButtons(const Pattern& defaults) {
    int count = 0;
    while (count < kDesktopButtons && !defaults.Btn(count + 1).Name.empty()) {
        ++count;
    }
    return count;
}

std::int32_t KeyboardFlags(const RegIniFunc& store) {
    const std::int32_t flags = store.IniGetInt(kProgramSection, L"QLBKeyboard", 0, store.OwnIniFile());
    return flags != 0 ? flags : store.RegGetDword(RegistryHive::LocalMachine, kProductKey, L"QLBB");
}

} // namespace

WizardButtons LoadWizardButtons(const RegIniFunc& store, const StringTable& texts, std::int32_t buttonSet,
                                const Pattern& defaults) {
    WizardButtons buttons;
    const bool fnKeys =
        store.RegGetDword(RegistryHive::LocalMachine, kProductKey, L"QSTART") == 1 && buttonSet == 2;
    for (int option = 0; option < kWizardButtonOptions; ++option) {
        std::wstring& caption = buttons.captions.at(static_cast<std::size_t>(option));
        caption = texts.ResText((fnKeys ? kTextWizardFnKey1 : kTextWizardButton1) + option);
        const int number = LabelNumber(buttonSet, option);
        if (number == 0) {
            continue;
        }
        const std::wstring label =
            store.RegGetString(RegistryHive::LocalMachine, kButtonNameKey, L"AppKey" + DecimalText(number));
        if (!label.empty()) {
            caption = ReplaceAll(texts.ResText(kTextWizardLabelled), L"%s", label);
        }
    }
    buttons.shown = buttonSet;
    if (buttonSet == kDesktopSet && (KeyboardFlags(store) & kAllDesktopButtons) == 0) {
        const std::int32_t desktopButtons =
            store.RegGetDword(RegistryHive::LocalMachine, kProductKey, L"DTNumAPBtn");
        buttons.shown = desktopButtons >= 1 && desktopButtons <= kDesktopButtons
                            ? desktopButtons
                            : NamedDefaultButtons(defaults);
    }
    buttons.shown = std::clamp(buttons.shown, 0, kWizardButtonOptions);
    return buttons;
}

std::int32_t WizardButtonSet(bool desktop, std::int32_t ntNumAPBtn) {
    if (desktop) {
        return kDesktopSet;
    }
    return IsNotebookKeyCount(ntNumAPBtn) ? ntNumAPBtn : kDefaultNotebookKeys;
}

bool IsNotebookSet(std::int32_t buttonSet, std::int32_t ntNumAPBtn) {
    return buttonSet == WizardButtonSet(false, ntNumAPBtn);
}

#include "launcher/frmKeys.h"

#include "launcher/KeyCodes.h"
#include "launcher/Launcher.h"
#include "launcher/LauncherTexts.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "ui/Controls.h"

#include <commctrl.h>

#include <algorithm>

namespace {

// Dialog units.
constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kLabelWidth = 70;
constexpr int kColumnWidth = 90;
constexpr int kLabelHeight = 8;
constexpr int kBoxHeight = 14;
constexpr int kRowHeight = kBoxHeight + kGap;
constexpr int kButtonWidth = 54;
constexpr int kLaunchLeft = kMargin + kLabelWidth + kGap;
constexpr int kCombinationLeft = kLaunchLeft + kColumnWidth + kGap;
constexpr int kWidth = kCombinationLeft + kColumnWidth + kMargin;
constexpr int kRowsTop = kMargin + kLabelHeight + kGap;
constexpr int kProblemTop = kRowsTop + kMaxButtons * kRowHeight + kGap;
constexpr int kProblemHeight = 2 * kLabelHeight;
constexpr int kButtonTop = kProblemTop + kProblemHeight + kMargin;

constexpr std::size_t kButtons = kMaxButtons;

int ProblemText(KeyProblem problem) {
    switch (problem) {
    case KeyProblem::ForTyping:
        return kTextKeyForTyping;
    case KeyProblem::Twice:
        return kTextKeyTwice;
    case KeyProblem::Taken:
        return kTextKeyTaken;
    default:
        return kTextKeysHint;
    }
}

int LaunchKeyEntry(const KeyCode& key) {
    const auto& keys = LaunchKeys();
    const auto found = std::ranges::find(keys, key.key, &LaunchKey::key);
    return found == keys.end() ? 0 : static_cast<int>(found - keys.begin()) + 1;
}

} // namespace

frmKeys::frmKeys(const StringTable& texts, Launcher& launcher)
    : ModalForm(nullptr), texts_(texts), launcher_(launcher), keys_(launcher.StoredKeys()) {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_HOTKEY_CLASS};
    InitCommonControlsEx(&classes);
    CreateHidden(Globals().DialogFontName);
}

void frmKeys::OnCreate() {
    SetTextOf(Window(), texts_.ResText(kTextKeysTitle));
    const auto label = [&](int id, const DluRect& place, const std::wstring& text) {
        AddControl(Window(), {id, WC_STATICW, SS_LEFT | SS_NOPREFIX, place}, text);
    };
    label(IDC_lblLaunchKey, {kLaunchLeft, kMargin, kColumnWidth, kLabelHeight},
          texts_.ResText(kTextKeysLaunchKey));
    label(IDC_lblCombination, {kCombinationLeft, kMargin, kColumnWidth, kLabelHeight},
          texts_.ResText(kTextKeysCombination));
    for (int button = 1; button <= kMaxButtons; ++button) {
        CreateRow(button);
    }
    label(IDC_lblKeyProblem, {kMargin, kProblemTop, kWidth - 2 * kMargin, kProblemHeight}, {});
    const auto push = [&](int id, int left, int text, DWORD style) {
        AddControl(Window(),
                   {id, WC_BUTTONW, style | WS_TABSTOP, {left, kButtonTop, kButtonWidth, kBoxHeight}},
                   texts_.ResText(text));
    };
    const int cancelLeft = kWidth - kMargin - kButtonWidth;
    push(IDC_cmdDefaultKeys, kMargin, kTextKeysDefault, BS_PUSHBUTTON);
    push(IDC_cmdOK, cancelLeft - kGap - kButtonWidth, kTextKeysOk, BS_DEFPUSHBUTTON);
    push(IDC_cmdCancel, cancelLeft, kTextKeysCancel, BS_PUSHBUTTON);
    ShowKeys();
}

void frmKeys::CreateRow(int button) {
    const int top = kRowsTop + (button - 1) * kRowHeight;
    const int index = button - 1;
    // Right in front of its controls: that is where screen readers look for their names.
    const std::wstring name = launcher_.LabelOf(button);
    AddControl(Window(),
               {IDC_lblKeyButton0 + index,
                WC_STATICW,
                SS_LEFT | SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS,
                {kMargin, top, kLabelWidth, kBoxHeight}},
               name);
    AddControl(Window(), {IDC_cmbLaunchKey0 + index,
                          WC_COMBOBOXW,
                          CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                          {kLaunchLeft, top, kColumnWidth, kBoxHeight}});
    const HWND list = Control(IDC_cmbLaunchKey0 + index);
    ComboAdd(list, texts_.ResText(kTextKeyNone));
    for (const LaunchKey& key : LaunchKeys()) {
        ComboAdd(list, texts_.ResText(key.text));
    }
    AddControl(Window(),
               {IDC_hotCombination0 + index,
                HOTKEY_CLASSW,
                WS_TABSTOP,
                {kCombinationLeft, top, kColumnWidth, kBoxHeight},
                WS_EX_CLIENTEDGE},
               name);
}

SIZE frmKeys::OnLayout() {
    return {TextFont().PixelsX(kWidth), TextFont().PixelsY(kButtonTop + kBoxHeight + kMargin)};
}

void frmKeys::ShowKeys() {
    for (int button = 1; button <= kMaxButtons; ++button) {
        ComboSelect(Control(IDC_cmbLaunchKey0 + button - 1), LaunchKeyEntry(keys_(button).launchKey));
        // The control counts keys as the store does, from Shift on.
        SendMessageW(Control(IDC_hotCombination0 + button - 1), HKM_SETHOTKEY,
                     static_cast<WPARAM>(NumberOfKey(keys_(button).combination)), 0);
    }
    ShowProblem(std::nullopt);
}

void frmKeys::OnChange(int button, bool launchKey) {
    const std::size_t place = static_cast<std::size_t>(button) - 1;
    if (launchKey) {
        const int entry = ComboSelection(Control(IDC_cmbLaunchKey0 + button - 1));
        keys_(button).launchKey = {};
        if (entry > 0 && entry <= kLaunchKeys) {
            keys_(button).launchKey.key = LaunchKeys().at(static_cast<std::size_t>(entry) - 1).key;
        }
    } else {
        const LRESULT number = SendMessageW(Control(IDC_hotCombination0 + button - 1), HKM_GETHOTKEY, 0, 0);
        keys_(button).combination = KeyFromNumber(static_cast<std::int32_t>(number));
    }
    ShowProblem(launchKey ? place : kButtons + place);
}

void frmKeys::ShowProblem(std::optional<std::size_t> changed) {
    const std::vector<KeyProblem> problems =
        KeyProblems(keys_, [this](const KeyCode& key) { return launcher_.Keys().IsTakenByOther(key); });
    // The one that was just chosen first, then any other.
    std::size_t shown = changed.value_or(0);
    if (problems[shown] == KeyProblem::None) {
        shown = static_cast<std::size_t>(
            std::ranges::find_if(problems, [](KeyProblem problem) { return problem != KeyProblem::None; }) -
            problems.begin());
    }
    const KeyProblem problem = shown < problems.size() ? problems[shown] : KeyProblem::None;
    std::wstring text = texts_.ResText(ProblemText(problem));
    if (problem != KeyProblem::None) {
        const int button = static_cast<int>(shown % kButtons) + 1;
        const KeyCode& key = shown < kButtons ? keys_(button).launchKey : keys_(button).combination;
        text = launcher_.LabelOf(button) + L", " + launcher_.TextOf(key) + L": " + text;
    }
    SetTextIfOther(Control(IDC_lblKeyProblem), text);
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, Control(IDC_lblKeyProblem), OBJID_CLIENT, CHILDID_SELF);
    // A key of another program may be free tomorrow; the others would never do.
    const bool usable = std::ranges::all_of(
        problems, [](KeyProblem each) { return each == KeyProblem::None || each == KeyProblem::Taken; });
    EnableWindow(Control(IDC_cmdOK), usable ? TRUE : FALSE);
}

void frmKeys::OnCommand(int id, int notification) {
    if (id >= IDC_cmbLaunchKey0 && id < IDC_cmbLaunchKey0 + kMaxButtons) {
        if (notification == CBN_SELCHANGE) {
            OnChange(id - IDC_cmbLaunchKey0 + 1, true);
        }
        return;
    }
    if (id >= IDC_hotCombination0 && id < IDC_hotCombination0 + kMaxButtons) {
        if (notification == EN_CHANGE) {
            OnChange(id - IDC_hotCombination0 + 1, false);
        }
        return;
    }
    switch (id) {
    case IDC_cmdDefaultKeys:
        keys_ = DefaultKeys();
        ShowKeys();
        break;
    case IDC_cmdOK:
        chosen_ = keys_;
        End();
        break;
    case IDC_cmdCancel:
        OnClose();
        break;
    default:
        break;
    }
}

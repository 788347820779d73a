#include "command/Command.h"

#include "app/StringTable.h"
#include "command/TableStrings.h"
#include "dialogs/main/ButtonLabels.h"
#include "settings/PatternStore.h"

#include <algorithm>

PatternView::PatternView(Command& command) : command_(command), switches_(LoadMakerSwitches(command.store)) {
    const TableStrings strings(command.system.tongue);
    const auto labels = ButtonLabels(command.store, StringTable(strings), switches_);
    for (int button = 1; button <= kMaxButtons; ++button) {
        labels_(button) = labels.at(static_cast<std::size_t>(button) - 1);
    }
}

Pattern PatternView::Load(int number) const {
    const PatternStore patterns(command_.store, ButtonCount());
    return patterns.LoadPattern(number, patterns.LoadDefaultPattern());
}

std::vector<int> PatternView::Buttons() const {
    std::vector<int> buttons;
    for (int button = 1; button <= ButtonCount(); ++button) {
        const bool isShown =
            button <= kDesktopButtons ? button <= switches_.DesktopButtonCount() : switches_.ShowNTTab;
        if (isShown) {
            buttons.push_back(button);
        }
    }
    return buttons;
}

int PatternView::StorageSlot(int button) const {
    return PatternStore(command_.store, ButtonCount()).StorageSlot(button);
}

Say MethodName(const ButtonSlot& slot) {
    if (slot.NumAP == 0) {
        return Say::kMethodNone;
    }
    switch (LaunchMethodFromText(slot.Exec)) {
    case LaunchMethod::ShortcutKey:
        return Say::kMethodKey;
    case LaunchMethod::Sequential:
        return Say::kMethodSequential;
    case LaunchMethod::Simultaneous:
        return Say::kMethodSimultaneous;
    default:
        return Say::kMethodSingle;
    }
}

std::vector<ProgramEntry> ProgramsOf(const ButtonSlot& slot) {
    const LaunchMethod method = LaunchMethodFromText(slot.Exec);
    const bool several = method == LaunchMethod::Sequential || method == LaunchMethod::Simultaneous;
    std::vector<ProgramEntry> programs;
    for (int k = 1; k <= std::min<int>(slot.NumAP, several ? kMaxPrograms : 1); ++k) {
        programs.push_back(slot.Program(k));
    }
    return programs;
}

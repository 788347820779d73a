#include "dialogs/main/ProgramTips.h"

#include "dialogs/register/ProgramSources.h"
#include "dialogs/register/ShownPrograms.h"
#include "platform/Platform.h"

void ProgramTips::Enter(HWND form, HWND picture, const ButtonSlot& slot, Look look) {
    if (entered_ == picture && told_ == slot) {
        return;
    }
    entered_ = picture;
    told_ = slot;
    const std::wstring lines = ProgramLines(slot, platform_.files, platform_.drives, [this] {
        ProgramSources sources(store_, platform_.files, platform_.shell, platform_.ansiText);
        sources.LoadShortcutKeys();
        return sources.ShortcutKeys();
    });
    tip_.Give(form, picture, lines, look.font, look.dpi);
}

void ProgramTips::Leave(HWND picture) {
    if (entered_ == picture) {
        Forget();
    }
}

void ProgramTips::Forget() {
    entered_ = nullptr;
    tip_.Take();
}

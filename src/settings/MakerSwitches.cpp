#include "settings/MakerSwitches.h"

#include "settings/Pattern.h"
#include "settings/RegIniFunc.h"

int MakerSwitches::ButtonCount() const {
    constexpr int kUsualNotebookButtons = 2;
    const bool valid = NTNumAPBtn >= 1 && NTNumAPBtn <= kMaxButtons - kDesktopButtons;
    return kDesktopButtons + (valid ? NTNumAPBtn : kUsualNotebookButtons);
}

int MakerSwitches::DesktopButtonCount() const {
    return DTNumAPBtn >= 1 && DTNumAPBtn <= kDesktopButtons ? DTNumAPBtn : kDesktopButtons;
}

MakerSwitches LoadMakerSwitches(const RegIniFunc& store) {
    const auto read = [&](const wchar_t* path, const wchar_t* name) {
        return store.RegGetDword(RegistryHive::LocalMachine, path, name);
    };
    MakerSwitches switches;
    switches.QSTART = read(kProductKey, L"QSTART");
    if (switches.QSTART < 1) {
        switches.BtnImage = read(kProductKey, L"BtnImage");
    }
    switches.NTNumAPBtn = read(kProductKey, L"NTNumAPBtn");
    switches.DTNumAPBtn = read(kProductKey, L"DTNumAPBtn");
    switches.NR1t2 = read(kProductKey, L"NR1t2");
    switches.ShowNTTab = read(kUtilityKey, L"ShowNTTab") != 0;
    return switches;
}

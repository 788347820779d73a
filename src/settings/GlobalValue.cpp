#include "settings/GlobalValue.h"

#include "app/StringTable.h"

GlobalValue& Globals() {
    static GlobalValue values;
    return values;
}

void ResetGlobals(const StringSource& strings) {
    GlobalValue& values = Globals();
    values = GlobalValue{};
    const StringTable table(strings);
    values.IniFileName = table.ResText(kTextIniFileName);
    values.DialogFontName = table.ResText(kTextDialogFontName);
    values.CommandListFileName = table.ResText(kTextCommandListFileName);
    values.MenuFileName = table.ResText(kTextMenuFileName);
}

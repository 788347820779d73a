#include "app/StringTable.h"

#include "settings/GlobalValue.h"

std::wstring StringTable::ResText(int offset) const {
    return source_.Load(Globals().ResourceBase + offset);
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

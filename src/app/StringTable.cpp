#include "app/StringTable.h"

#include "settings/GlobalValue.h"

std::wstring StringTable::ResText(int offset) const {
    return source_.Load(Globals().ResourceBase + offset);
}

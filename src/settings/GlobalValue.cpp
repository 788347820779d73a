#include "settings/GlobalValue.h"

GlobalValue& Globals() {
    static GlobalValue values;
    return values;
}

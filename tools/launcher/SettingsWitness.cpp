#include "SettingsWitness.h"

#include "IniWitness.h"
#include "RegistryWitness.h"

void AddSettings(LogEntry& entry) {
    if (IniBackEndSelected()) {
        entry.Add(L"backend", L"ini");
        AddIniSettings(entry);
    } else {
        entry.Add(L"backend", L"registry");
        AddRegistrySettings(entry);
    }
}

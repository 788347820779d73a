#include "CommandRig.h"

#include "settings/StdModule.h"

CommandRig::CommandRig(StoreKind kind) : TestStore(kind.codePage), iniFile(kind.iniFile) {
    store.IniFileExist = iniFile;
    PutMachine(L"", L"QLBINI", iniFile ? 1 : 0);
    PutMachine(L"UTLSetting", L"ShowNTTab", 1);
}

int CommandRig::Qlb(const std::vector<std::wstring>& arguments) {
    console.out.clear();
    console.error.clear();
    FakeInstanceGuard guard(session);
    return RunCommandLine(arguments, {registry, files, ansiText, wholeFiles, dataFiles, shell, clock, console,
                                      guard, windows, tongue});
}

void CommandRig::PutPattern(int number, const char* name, int count) {
    const std::wstring section = PatternSection(number);
    const auto put = [&](const wchar_t* key, const std::wstring& text) {
        store.IniSetString(section, key, text, kOwnFile);
    };
    store.IniSetString(kProgramSection, L"NumUser", DecimalText(count), kOwnFile);
    put(L"UserName", ansiText.Decode(name));
    put(L"Btn1_Exec", L"P");
    put(L"Btn1_NumAP", L"2");
    put(L"Btn1_Name", L"Mail");
    put(L"Btn1_AP1", L"C:\\mail.exe|/new");
    put(L"Btn1_AP2", L"http://example/?a=b&c");
    put(L"Btn1_Title2", L"Web");
    put(L"Btn2_Exec", L"K");
    put(L"Btn2_NumAP", L"1");
    put(L"Btn2_Name", L"Copy");
    put(L"Btn2_AP1", L"579");
    ForgetOperations();
}

StoredSettings CommandRig::Stored() {
    return {registry, files, ansiText, iniFile ? kOwnFile : L""};
}

std::vector<std::wstring> CommandRig::BackupNames() const {
    return wholeFiles.Names(wholeFiles.localApplicationData + L"\\QLBUtl\\Backups");
}

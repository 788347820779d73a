#include "Store.h"

#include "TextFile.h"
#include "Wait.h"

#include <exception>

namespace UiDriver {
namespace {

constexpr wchar_t kMakerPath[] = L"Software\\Korvo";
constexpr wchar_t kProductPath[] = L"Software\\Korvo\\KORVOQLB";
constexpr wchar_t kIniName[] = L"KORVOQLB.INI";

constexpr REGSAM kOtherHalf = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

std::wstring Widen(const std::string& bytes) {
    return {bytes.begin(), bytes.end()};
}

} // namespace

Store::Store() {
    if (GetFileAttributesW(TestMachineMark().c_str()) == INVALID_FILE_ATTRIBUTES &&
        GetEnvironmentVariableW(L"QLB_ERASE_SETTINGS", nullptr, 0) == 0) {
        Fail(
            L"this test erases the button settings of whoever runs it. Set QLB_ERASE_SETTINGS to have it so");
    }
    Wipe();
}

Store::~Store() {
    try {
        Wipe();
    } catch (const std::exception&) {
        // The next Store wipes again and reports what is wrong then.
    }
}

RegistryKey Store::Machine() {
    return {HKEY_LOCAL_MACHINE, kProductPath};
}

RegistryKey Store::User() {
    return {HKEY_CURRENT_USER, kProductPath};
}

RegistryKey Store::OtherMachine() {
    return {HKEY_LOCAL_MACHINE, kProductPath, kOtherHalf};
}

ProfileFile Store::Ini() {
    return ProfileFile(WindowsDirectory() + L'\\' + kIniName);
}

std::wstring Store::TestMachineMark() {
    return WindowsDirectory() + L"\\qlbutl-test-machine";
}

void Store::Wipe() {
    RegistryKey(HKEY_LOCAL_MACHINE, kMakerPath).EraseTree();
    RegistryKey(HKEY_LOCAL_MACHINE, kMakerPath, kOtherHalf).EraseTree();
    RegistryKey(HKEY_CURRENT_USER, kMakerPath).EraseTree();
    Ini().Remove();
}

std::wstring Store::Dump() {
    return L"HKEY_LOCAL_MACHINE\n" + RegistryKey(HKEY_LOCAL_MACHINE, kMakerPath).Dump() +
           L"HKEY_CURRENT_USER\n" + RegistryKey(HKEY_CURRENT_USER, kMakerPath).Dump() + kIniName + L'\n' +
           Widen(Ini().Bytes());
}

} // namespace UiDriver

#include "common/ScratchKey.h"

namespace {

constexpr const wchar_t* kScratch = L"Software\\QLBUtlBench";

} // namespace

ScratchUserKey::ScratchUserKey() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kScratch);
    HKEY created = nullptr;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kScratch, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                        nullptr, &created, nullptr) != ERROR_SUCCESS) {
        return;
    }
    if (RegOverridePredefKey(HKEY_CURRENT_USER, created) == ERROR_SUCCESS) {
        key_ = created;
    } else {
        RegCloseKey(created);
    }
}

ScratchUserKey::~ScratchUserKey() {
    if (key_ != nullptr) {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(key_);
        RegDeleteTreeW(HKEY_CURRENT_USER, kScratch);
    }
}

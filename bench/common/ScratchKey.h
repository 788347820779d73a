#pragma once

#include <windows.h>

/// For as long as this lives, HKEY_CURRENT_USER is an empty key for this process: nobody's settings are touched.
class ScratchUserKey {
public:
    ScratchUserKey();
    ~ScratchUserKey();
    ScratchUserKey(const ScratchUserKey&) = delete;
    ScratchUserKey& operator=(const ScratchUserKey&) = delete;

    [[nodiscard]] bool Works() const { return key_ != nullptr; }

private:
    HKEY key_ = nullptr;
};

#pragma once

#include "driver/Driver.h"

#include <string>

/// A drive of Wine's that shows a scratch folder, until the object goes.
class TestDrive {
public:
    /// `type` is what GetDriveType answers. The folder lies in ScratchFolder.
    TestDrive(wchar_t letter, DWORD type, const std::string& label = {});
    TestDrive(const TestDrive&) = delete;
    TestDrive& operator=(const TestDrive&) = delete;
    ~TestDrive();

    std::wstring Folder() const;

private:
    wchar_t letter_;
};

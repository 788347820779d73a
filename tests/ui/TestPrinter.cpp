#include "TestPrinter.h"

#include "driver/Driver.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

constexpr UiDriver::Milliseconds kInstallerTime{30000};

void RunInstaller(const std::wstring& arguments) {
    const UiDriver::Process installer =
        UiDriver::Process::Start(UiDriver::OnDriveZ(QLB_INSTALL_PRINTER_PATH),
                                 L'"' + UiDriver::OnDriveZ(QLB_PRINTER_PPD) + L"\" " + arguments);
    if (installer.WaitForExit(kInstallerTime) != EXIT_SUCCESS) {
        UiDriver::Fail(L"the test printer could not be installed or removed");
    }
}

} // namespace

TestPrinter::TestPrinter(const std::wstring& command) {
    RunInstaller(L"\"|" + command + L'"');
}

TestPrinter::~TestPrinter() {
    try {
        RunInstaller(L"x /remove");
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
}

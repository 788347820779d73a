// Gives a Wine prefix a PostScript printer that prints into a file:
//
//   InstallPrinter.exe PPD-FILE PORT [/remove]
//
// PORT is "FILE:" (the print dialog's user names the file) or "|command", whose input is the printout.

#include <windows.h>

#include <winspool.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

std::wstring printerName = L"Test Printer";
std::wstring driverName = L"Test Printer Driver";

int Fail(const char* what) {
    std::printf("%s: error %lu\n", what, GetLastError());
    return EXIT_FAILURE;
}

bool Remove() {
    PRINTER_DEFAULTSW access{nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE printer = nullptr;
    if (OpenPrinterW(printerName.data(), &printer, &access) == FALSE) {
        return true;
    }
    const BOOL deleted = DeletePrinter(printer);
    ClosePrinter(printer);
    return deleted != FALSE;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 3) {
        std::printf("usage: InstallPrinter.exe PPD-FILE PORT [/remove]\n");
        return EXIT_FAILURE;
    }
    if (!Remove()) {
        return Fail("DeletePrinter");
    }
    if (count > 3) {
        return EXIT_SUCCESS;
    }
    std::wstring driverFile = L"wineps.drv";
    std::wstring environment = sizeof(void*) == 8 ? L"Windows x64" : L"Windows NT x86";
    DRIVER_INFO_3W driver{};
    driver.cVersion = 3;
    driver.pName = driverName.data();
    driver.pEnvironment = environment.data();
    driver.pDriverPath = driverFile.data();
    driver.pDataFile = arguments[1];
    driver.pConfigFile = driverFile.data();
    constexpr DWORD kFromDirectory = 0x10; // the files may lie anywhere
    if (AddPrinterDriverExW(nullptr, 3, reinterpret_cast<BYTE*>(&driver),
                            APD_COPY_NEW_FILES | kFromDirectory) == FALSE &&
        GetLastError() != ERROR_PRINTER_DRIVER_ALREADY_INSTALLED) {
        return Fail("AddPrinterDriverEx");
    }
    std::wstring processor = L"WinPrint";
    std::wstring dataType = L"RAW";
    PRINTER_INFO_2W info{};
    info.pPrinterName = printerName.data();
    info.pPortName = arguments[2];
    info.pDriverName = driverName.data();
    info.pPrintProcessor = processor.data();
    info.pDatatype = dataType.data();
    const HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
    if (printer == nullptr) {
        return Fail("AddPrinter");
    }
    ClosePrinter(printer);
    return SetDefaultPrinterW(printerName.c_str()) != FALSE ? EXIT_SUCCESS : Fail("SetDefaultPrinter");
}

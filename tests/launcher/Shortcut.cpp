#include "Shortcut.h"

#include "driver/Driver.h"

#include <objbase.h>
#include <shlobj.h>

void MakeShortcut(const std::wstring& file, const std::wstring& target, const std::wstring& arguments,
                  const std::wstring& directory) {
    CoInitialize(nullptr);
    IShellLinkW* link = nullptr;
    IPersistFile* persist = nullptr;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                reinterpret_cast<void**>(&link))) ||
        FAILED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&persist)))) {
        UiDriver::Fail(L"no shortcuts here");
    }
    link->SetPath(target.c_str());
    link->SetArguments(arguments.c_str());
    link->SetWorkingDirectory(directory.c_str());
    const HRESULT saved = persist->Save(file.c_str(), TRUE);
    persist->Release();
    link->Release();
    CoUninitialize();
    if (FAILED(saved)) {
        UiDriver::Fail(L"writing the shortcut " + file);
    }
}

#include "platform/windows/DesktopShell.h"

#include "platform/windows/Com.h"

#include <windows.h>

#include <exdisp.h>
#include <oleauto.h>
#include <servprov.h>
#include <shldisp.h>
#include <shlobj.h>

namespace {

// The libraries of the compiler do not have all of these.
constexpr IID kShellWindowsInterface{
    0x85CB6900, 0x4D95, 0x11CF, {0x96, 0x0C, 0x00, 0x80, 0xC7, 0xF4, 0xEE, 0x85}};
constexpr CLSID kShellWindowsClass{
    0x9BA05972, 0xF6A8, 0x11CF, {0xA4, 0x42, 0x00, 0xA0, 0xC9, 0x0A, 0x8F, 0x39}};
constexpr GUID kTopLevelBrowserService{
    0x4C96BE40, 0x915C, 0x11CF, {0x99, 0xD3, 0x00, 0xAA, 0x00, 0x4A, 0xE8, 0x37}};
constexpr IID kShellBrowser{0x000214E2, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kServiceProvider{0x6D5140C1, 0x7436, 0x11CE, {0x80, 0x34, 0x00, 0xAA, 0x00, 0x60, 0x09, 0xFA}};
constexpr IID kDispatch{0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr IID kFolderView{0xE7A1AF80, 0x4D96, 0x11CF, {0x96, 0x0C, 0x00, 0x80, 0xC7, 0xF4, 0xEE, 0x85}};
constexpr IID kShellDispatch2{0xA4C6892C, 0x3BA9, 0x11D2, {0x9D, 0xEA, 0x00, 0xC0, 0x4F, 0xB1, 0x61, 0x62}};

/// A text for an automation call.
class Argument {
public:
    explicit Argument(const std::wstring& text) {
        variant_.vt = VT_BSTR;
        variant_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    ~Argument() { VariantClear(&variant_); }
    Argument(const Argument&) = delete;
    Argument& operator=(const Argument&) = delete;

    [[nodiscard]] const VARIANT& Value() const { return variant_; }

private:
    VARIANT variant_{};
};

ComObject<IShellView> DesktopView() {
    const auto windows =
        CreateComObject<IShellWindows>(kShellWindowsClass, kShellWindowsInterface, CLSCTX_LOCAL_SERVER);
    if (!windows) {
        return nullptr;
    }
    VARIANT desktop{};
    desktop.vt = VT_I4;
    desktop.lVal = CSIDL_DESKTOP;
    VARIANT none{};
    long window = 0;
    IDispatch* found = nullptr;
    if (windows->FindWindowSW(&desktop, &none, SWC_DESKTOP, &window, SWFO_NEEDDISPATCH, &found) != S_OK) {
        return nullptr;
    }
    const ComObject<IDispatch> item(found);
    const auto services = QueryComObject<IServiceProvider>(*item, kServiceProvider);
    void* browser = nullptr;
    if (!services || FAILED(services->QueryService(kTopLevelBrowserService, kShellBrowser, &browser))) {
        return nullptr;
    }
    const ComObject<IShellBrowser> owned(static_cast<IShellBrowser*>(browser));
    IShellView* view = nullptr;
    return ComObject<IShellView>(SUCCEEDED(owned->QueryActiveShellView(&view)) ? view : nullptr);
}

/// The shell's object for programs, in the desktop's own process.
ComObject<IShellDispatch2> DesktopDispatch() {
    const auto view = DesktopView();
    void* background = nullptr;
    if (!view || FAILED(view->GetItemObject(SVGIO_BACKGROUND, kDispatch, &background))) {
        return nullptr;
    }
    const ComObject<IDispatch> owned(static_cast<IDispatch*>(background));
    const auto folder = QueryComObject<IShellFolderViewDual>(*owned, kFolderView);
    IDispatch* application = nullptr;
    if (!folder || FAILED(folder->get_Application(&application))) {
        return nullptr;
    }
    const ComObject<IDispatch> ownedApplication(application);
    return QueryComObject<IShellDispatch2>(*ownedApplication, kShellDispatch2);
}

/// "Full" is one of two halves: where there is but one kind of rights, the desktop has the same.
bool HasFullRights(HANDLE process) {
    HANDLE opened = nullptr;
    if (OpenProcessToken(process, TOKEN_QUERY, &opened) == FALSE) {
        return false;
    }
    const KernelHandle token(opened);
    TOKEN_ELEVATION_TYPE type = TokenElevationTypeDefault;
    DWORD size = 0;
    return GetTokenInformation(token.get(), TokenElevationType, &type, sizeof type, &size) != FALSE &&
           type == TokenElevationTypeFull;
}

} // namespace

bool HasMoreRightsThanDesktop() {
    const HWND desktop = GetShellWindow();
    if (desktop == nullptr || !HasFullRights(GetCurrentProcess())) {
        return false;
    }
    DWORD id = 0;
    GetWindowThreadProcessId(desktop, &id);
    const KernelHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id));
    return process && !HasFullRights(process.get());
}

bool StartByDesktop(const StartRequest& request) {
    const auto dispatch = DesktopDispatch();
    if (!dispatch) {
        return false;
    }
    BSTR file = SysAllocStringLen(request.file.data(), static_cast<UINT>(request.file.size()));
    const Argument parameters(request.parameters);
    const Argument directory(request.directory);
    const Argument verb(L"");
    VARIANT show{};
    show.vt = VT_I4;
    show.lVal = ShowCommand(request);
    const HRESULT result =
        dispatch->ShellExecute(file, parameters.Value(), directory.Value(), verb.Value(), show);
    SysFreeString(file);
    return SUCCEEDED(result);
}

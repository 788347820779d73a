#pragma once

#include "platform/Platform.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsDrives.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsInstalledFonts.h"
#include "platform/windows/WindowsInstanceGuard.h"
#include "platform/windows/WindowsProfileFiles.h"
#include "platform/windows/WindowsRegistry.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsShellIcons.h"
#include "platform/windows/WindowsStringSource.h"
#include "platform/windows/WindowsTopLevelWindows.h"

/// Windows itself, behind every interface that the program asks through.
class WindowsPlatform {
public:
    /// `productKey`: where the settings lie in the registry; see WindowsRegistry.
    explicit WindowsPlatform(const std::wstring& productKey) : registry_(productKey) {}

    [[nodiscard]] Platform Interfaces() {
        return {registry_, profileFiles_, ansiText_, strings_, windows_, instanceGuard_,
                fonts_,    shell_,        files_,    drives_,  icons_};
    }

private:
    WindowsRegistry registry_;
    WindowsProfileFiles profileFiles_;
    WindowsAnsiText ansiText_;
    WindowsStringSource strings_;
    WindowsTopLevelWindows windows_;
    WindowsInstanceGuard instanceGuard_;
    WindowsInstalledFonts fonts_;
    WindowsShell shell_;
    WindowsFileSystem files_;
    WindowsDrives drives_;
    WindowsShellIcons icons_;
};

#pragma once

class AnsiText;
class Drives;
class FileSystem;
class InstalledFonts;
class InstanceGuard;
class ProfileFiles;
class Registry;
class Shell;
class ShellIcons;
class StringSource;
class TopLevelWindows;

/// Everything that the program asks of the system, in one hand.
struct Platform {
    Registry& registry;
    ProfileFiles& profileFiles;
    const AnsiText& ansiText;
    const StringSource& strings;
    TopLevelWindows& windows;
    InstanceGuard& instanceGuard;
    const InstalledFonts& fonts;
    Shell& shell;
    const FileSystem& files;
    const Drives& drives;
    const ShellIcons& icons;
};

#pragma once

#include "RawProfile.h"
#include "RawRegistry.h"
#include "Rigs.h"
#include "ScratchFolder.h"
#include "fakes/FakeAnsiText.h"
#include "fakes/FakeProfileFiles.h"
#include "fakes/FakeRegistry.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsProfileFiles.h"
#include "platform/windows/WindowsRegistry.h"
#include "settings/RegIniFunc.h"

/// The settings store on a fake and on the real registry and profile files, and how its settings look to others.
/// Bytes of text are in the code page.

inline constexpr const wchar_t* kOwnIniFile = L"QLBUtlContract.INI";

class FakeStoreRig {
public:
    static constexpr const char* kName = "Fake";

    RegIniFunc store{registry_, profileFiles_, ansiText_, kOwnIniFile};

    [[nodiscard]] static std::wstring OtherFile() { return L"C:\\Contract\\Other.ini"; }

    void PutValue(RegistryHive hive, const std::wstring& path, const std::wstring& name, std::uint32_t type,
                  std::string_view bytes) {
        registry_.PutRaw(hive, path, name, type, bytes);
    }
    [[nodiscard]] std::optional<RegistryValue> Value(const std::wstring& path,
                                                     const std::wstring& name) const {
        return registry_.Stored(RegistryHive::CurrentUser, path, name);
    }
    void PutLine(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                 std::string_view bytes) {
        profileFiles_.PutLine(section, key, file, bytes);
    }
    [[nodiscard]] std::optional<std::string> Line(const std::wstring& file, const std::wstring& section,
                                                  const std::wstring& key) const {
        return profileFiles_.Line(section, key, file);
    }
    /// From now on neither the user's settings in the registry nor the own ini file can be written.
    void RefuseWrites() {
        registry_.refusesWrites = true;
        profileFiles_.refusesWrites = true;
    }

private:
    FakeAnsiText ansiText_{GetACP()};
    FakeRegistry registry_;
    FakeProfileFiles profileFiles_{ansiText_};
};

class WindowsStoreRig {
public:
    static constexpr const char* kName = "Windows";

    RegIniFunc store{registry_, profileFiles_, ansiText_, kOwnIniFile};

    WindowsStoreRig() { RemoveOwnIniFile(); }
    WindowsStoreRig(const WindowsStoreRig&) = delete;
    WindowsStoreRig& operator=(const WindowsStoreRig&) = delete;
    ~WindowsStoreRig() { RemoveOwnIniFile(); }

    [[nodiscard]] std::wstring OtherFile() const { return folder_.File(L"Other.ini"); }

    static void PutValue(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                         std::uint32_t type, std::string_view bytes) {
        RawRegistry::Put(hive, path, name, type, bytes);
    }
    [[nodiscard]] static std::optional<RegistryValue> Value(const std::wstring& path,
                                                            const std::wstring& name) {
        return RawRegistry::Value(RegistryHive::CurrentUser, path, name);
    }
    static void PutLine(const std::wstring& file, const std::wstring& section, const std::wstring& key,
                        std::string_view bytes) {
        RawProfile::PutLine(Full(file), ToAnsi(section), ToAnsi(key), bytes);
    }
    [[nodiscard]] static std::optional<std::string> Line(const std::wstring& file,
                                                         const std::wstring& section,
                                                         const std::wstring& key) {
        return RawProfile::Line(Full(file), ToAnsi(section), ToAnsi(key));
    }
    void RefuseWrites() {
        denied_.emplace(RegistryHive::CurrentUser, kProductKey, KeyRight::Write);
        RemoveOwnIniFile();
        std::filesystem::create_directory(Full(kOwnIniFile));
    }

private:
    [[nodiscard]] static std::wstring Full(const std::wstring& file) {
        return file.find(L'\\') == std::wstring::npos ? WindowsDirectory() + L'\\' + file : file;
    }
    static void RemoveOwnIniFile() { std::filesystem::remove(Full(kOwnIniFile)); }

    ScratchHives hives_;
    ScratchFolder folder_;
    WindowsAnsiText ansiText_;
    WindowsRegistry registry_{kProductKey};
    WindowsProfileFiles profileFiles_;
    std::optional<DeniedRight> denied_;
};

/// Text that a name or a command may hold on a system with this code page.
[[nodiscard]] inline std::wstring LocalText() {
    return GetACP() == 932 ? L"表示アプリ ポ" : L"Größe – œuvre";
}
[[nodiscard]] inline std::string LocalBytes() {
    return GetACP() == 932 ? "\x95\x5C\x8E\xA6\x83\x41\x83\x76\x83\x8A \x83\x7C"
                           : "Gr\xF6\xDF\x65 \x96 \x9Cuvre";
}

#pragma once

#include "fakes/FakeText.h"
#include "platform/Shell.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

/// A disk and a shell that opens everything, until the test says otherwise.
class FakeShell final : public Shell {
public:
    struct Opened {
        std::wstring file;
        std::wstring workingDirectory;
        WindowId owner = 0;

        bool operator==(const Opened&) const = default;
    };

    std::wstring programDirectory = L"C:\\Program Files\\QLBUtl";
    bool opens = true;
    std::vector<Opened> opened; ///< every attempt

    std::wstring windowsDirectory = L"C:\\WINDOWS";
    std::wstring userName = L"hanako";
    std::map<std::wstring, std::wstring> environment;
    std::map<std::int32_t, std::wstring> specialFolders;
    std::map<std::wstring, std::wstring> shortcutTargets;   ///< by file, as the automation object tells them
    std::map<std::wstring, std::wstring> shortcutAddresses; ///< by file, as the shell's own object tells them
    mutable std::vector<std::wstring> shortcutQuestions;    ///< "target FILE" and "address FILE", in order
    mutable WindowId specialFolderOwner = 0;                ///< of the last SpecialFolder

    void AddFile(const std::wstring& path) { files_.insert(Lowered(path)); }

    [[nodiscard]] std::wstring ProgramDirectory() const override { return programDirectory; }
    [[nodiscard]] bool FileExists(const std::wstring& path) const override {
        return files_.contains(Lowered(path));
    }
    bool Open(const std::wstring& file, const std::wstring& workingDirectory, WindowId owner) override {
        opened.push_back({file, workingDirectory, owner});
        return opens;
    }

    [[nodiscard]] std::wstring WindowsDirectory() const override { return windowsDirectory; }
    [[nodiscard]] std::wstring EnvironmentVariable(const std::wstring& name) const override {
        return Find(environment, name).value_or(L"");
    }
    [[nodiscard]] std::wstring UserName() const override { return userName; }
    [[nodiscard]] std::optional<std::wstring> SpecialFolder(std::int32_t folder,
                                                            WindowId owner) const override {
        specialFolderOwner = owner;
        return Find(specialFolders, folder);
    }
    [[nodiscard]] std::optional<std::wstring> SpecialFolderPath(std::int32_t folder) const override {
        return Find(specialFolders, folder);
    }
    [[nodiscard]] std::optional<std::wstring> ShortcutTarget(const std::wstring& file) const override {
        shortcutQuestions.push_back(L"target " + file);
        return Find(shortcutTargets, file);
    }
    [[nodiscard]] std::optional<std::wstring> InternetShortcutAddress(
        const std::wstring& file) const override {
        shortcutQuestions.push_back(L"address " + file);
        return Find(shortcutAddresses, file);
    }

private:
    template <class Map>
    static std::optional<std::wstring> Find(const Map& map, const typename Map::key_type& key) {
        const auto found = map.find(key);
        return found == map.end() ? std::nullopt : std::optional(found->second);
    }

    std::set<std::wstring> files_;
};

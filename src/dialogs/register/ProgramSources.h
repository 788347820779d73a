#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class AnsiText;
class FileSystem;
class RegIniFunc;
class Shell;

/// Where programs are picked from, in the order of the tabs and of the wizard's options.
enum class ProgramSource { StartMenu, MediaCenter, IeFavorites, AllFiles, ShortcutKey };
inline constexpr std::size_t kProgramSourceCount = 5;

/// The two that are lists; the others are trees.
[[nodiscard]] constexpr bool IsList(ProgramSource source) {
    return source == ProgramSource::MediaCenter || source == ProgramSource::ShortcutKey;
}

struct ShortcutKeyRow {
    std::wstring text; ///< key name, a blank, key binding
    std::wstring name;
    std::int32_t keyCode = 0;
};

struct MediaCenterRow {
    std::wstring title; ///< the list's row; kept as the program's title
    std::wstring displayName;
    std::wstring commandLine;
};

/// What the two lists hold and which sources are offered: from the data files in the program's directory, and
/// from the maker's values under HKEY_LOCAL_MACHINE.
class ProgramSources {
public:
    static constexpr std::size_t kMaxMediaCenterRows = 7;

    ProgramSources(const RegIniFunc& store, const FileSystem& files, const Shell& shell,
                   const AnsiText& ansiText);

    /// From the file of string id 3004; from the registry's "Key0", "Key1", ... when that has no record.
    void LoadShortcutKeys();
    /// From the file of string id 3018, when "MCMenu" is 1.
    void LoadMediaCenter();
    /// Asks "IEMenu" and, when that is 1, for the user's Favorites folder.
    void LoadIeFavorites();
    /// Registry: HKCU "Shell Folders", "Start Menu".
    void LoadStartMenu();

    [[nodiscard]] const std::vector<ShortcutKeyRow>& ShortcutKeys() const { return shortcutKeys_; }
    [[nodiscard]] const std::vector<MediaCenterRow>& MediaCenterTable() const { return mediaCenterTable_; }

    /// "MCMenu" is 1 and its file has a record.
    [[nodiscard]] bool OffersMediaCenter() const { return !mediaCenterTable_.empty(); }
    /// "IEMenu" is 1.
    [[nodiscard]] bool OffersIeFavorites() const { return offersIeFavorites_; }
    /// Without trailing "\"; empty when the system names none, or IE Favorites is not offered.
    [[nodiscard]] const std::wstring& FavoritesFolder() const { return favoritesFolder_; }
    /// Empty when the registry names none.
    [[nodiscard]] const std::wstring& StartMenuFolder() const { return startMenuFolder_; }

private:
    void AddShortcutKey(const std::wstring& name, const std::wstring& binding, const std::wstring& code);
    void LoadShortcutKeysFromRegistry();

    const RegIniFunc& store_;
    const FileSystem& files_;
    const Shell& shell_;
    const AnsiText& ansiText_;
    std::vector<ShortcutKeyRow> shortcutKeys_;
    std::vector<MediaCenterRow> mediaCenterTable_;
    bool offersIeFavorites_ = false;
    std::wstring favoritesFolder_;
    std::wstring startMenuFolder_;
};

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
inline constexpr std::array kProgramSources{ProgramSource::StartMenu, ProgramSource::MediaCenter,
                                            ProgramSource::IeFavorites, ProgramSource::AllFiles,
                                            ProgramSource::ShortcutKey};
inline constexpr std::size_t kProgramSourceCount = kProgramSources.size();

/// The two that are lists; the others are trees.
[[nodiscard]] constexpr bool IsList(ProgramSource source) {
    return source == ProgramSource::MediaCenter || source == ProgramSource::ShortcutKey;
}

/// Who offers sources: the registration dialog by its tabs, the wizard for a single program or for several.
enum class SourceOffer { Tabs, SingleProgram, SeveralPrograms };

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

    [[nodiscard]] bool Offers(ProgramSource source, SourceOffer offer) const;
    /// In their order; never empty.
    [[nodiscard]] std::vector<ProgramSource> Offered(SourceOffer offer) const;

    /// Without trailing "\"; empty when the system names none, or "IEMenu" is not 1.
    [[nodiscard]] const std::wstring& FavoritesFolder() const { return favoritesFolder_; }
    /// The user's own; empty when the registry names none.
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
    bool ieMenu_ = false;
    std::wstring favoritesFolder_;
    std::wstring startMenuFolder_;
};

#pragma once

#include "BrowseUse.h"
#include "UiTest.h"

#include <optional>
#include <string>
#include <vector>

enum class Source { StartMenu, MediaCenter, IeFavorites, AllFiles, ShortcutKey };

/// The settings program where every source has something to offer. It runs from a scratch folder with its data
/// files, on a Start Menu, Favorites and files that lie there too.
class SourceUse : public UiTest {
protected:
    using Path = UiDriver::TreeView::Path;
    using Names = std::vector<std::wstring>;

    /// A program that a source offers, and the button that has it as its only one.
    struct Offer {
        int tabText;
        int pane;
        Path node; ///< in a tree
        int row;   ///< in a list
        std::wstring shown;
        StoredButton stored;
    };

    SourceUse();
    void TearDown() override;

    static std::wstring UserMenu() { return ScratchFolder::Path() + L"\\user\\Start Menu"; }
    static std::wstring AllUsersMenu() { return ScratchFolder::Path() + L"\\all\\Start Menu"; }
    static std::wstring Favorites() { return ScratchFolder::Path() + L"\\user\\Favorites"; }
    static std::wstring Files() { return ScratchFolder::Path() + L"\\files"; }

    /// What the system names as the user's Start Menu; nothing for none.
    static void NameUserMenu(const std::optional<std::wstring>& path);
    /// A file for all users, which the user does not have.
    static std::wstring CommonFile() { return L"Common.exe"; }

    static Offer OfferOf(Source source);

    /// One of five files of the Start Menu.
    static constexpr int kMenuFiles = 5;
    static std::wstring MenuFile(int number) { return L"Tool" + std::to_wstring(number) + L".exe"; }
    static Path MenuNode(const std::wstring& name);
    static std::wstring MenuPath(const std::wstring& name) { return UserMenu() + L'\\' + name; }

    /// A folder in the Start Menu, and one in the Favorites.
    static std::wstring FolderName() { return L"Kit.d"; }
    static Path FavoritesNode(const std::wstring& name);

    static void CopyProgram();
    void StartHere(const std::wstring& arguments = L"/k");
    static std::wstring CopiedProgram() { return ScratchFolder::Path() + L"\\program\\QLBUtl.exe"; }

    static UiDriver::TreeView TreeIn(const UiDriver::Window& form, int pane);
    static bool IsTree(int pane);

    /// Waits for the node, opening those above it.
    static void Reveal(const UiDriver::TreeView& tree, const Path& node);
    /// Where the offer stands on the screen.
    static POINT PointOf(const UiDriver::Window& form, const Offer& offer);

    /// Replaces button 1 of the current pattern in the store.
    void Hold(const StoredButton& button);
    /// The current pattern with `button` in it.
    StoredPattern With(int number, const StoredButton& button) const;
    /// Expects the whole store to be what was seeded, with this current pattern. It leaves the store so.
    void ExpectStore(const StoredPattern& current) const;
    void ExpectStoreUntouched() const { ExpectStore(current_); }
    /// The launcher was told once, and read this pattern.
    void ExpectToldOnce(const StoredPattern& current);

private:
    void OfferAll() const;

    ScratchFolder folder_;
    MovedShellFolder userMenu_;
    MovedShellFolder allUsersMenu_;
    MovedShellFolder favorites_;
    StoredPattern current_;
};

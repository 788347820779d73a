#pragma once

#include "Texts.h"
#include "driver/Driver.h"
#include "resources/resource.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

inline constexpr int kMyComputerText = 3100;
inline constexpr int kStartMenuText = 3101;
inline constexpr int kStartMenuTabText = 3290;
inline constexpr int kMediaCenterTabText = 3291;
inline constexpr int kIeFavoritesTabText = 3292;
inline constexpr int kAllFilesTabText = 3293;
inline constexpr int kShortcutKeyTabText = 3294;

/// A folder of the test's own on drive C, empty when the object is made and gone with it.
class ScratchFolder {
public:
    ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder();

    static std::wstring Name() { return L"qlb-browse-test"; }
    static std::wstring Path() { return L"C:\\" + Name(); }
};

/// Shell folders in other places until the object goes.
class MovedShellFolder {
public:
    MovedShellFolder(HKEY root, std::wstring name, const std::wstring& path);
    MovedShellFolder(const MovedShellFolder&) = delete;
    MovedShellFolder& operator=(const MovedShellFolder&) = delete;
    ~MovedShellFolder();

private:
    using Former = std::pair<UiDriver::RegistryKey, std::optional<UiDriver::RawValue>>;

    std::wstring name_;
    std::vector<Former> former_;
};

/// The window for trying the program sources. It runs from a scratch folder, where the data files are looked for,
/// on Start Menu and Favorites folders that lie there too and are empty at first. A program that still runs when
/// the test ends is closed, and has to end well.
class BrowseUse : public testing::Test {
protected:
    using Path = UiDriver::TreeView::Path;
    using Names = std::vector<std::wstring>;

    BrowseUse();
    void TearDown() override;

    static std::wstring UserMenu() { return ScratchFolder::Path() + L"\\user\\Start Menu"; }
    static std::wstring AllUsersMenu() { return ScratchFolder::Path() + L"\\all\\Start Menu"; }
    static std::wstring Favorites() { return ScratchFolder::Path() + L"\\user\\Favorites"; }

    /// Each with the folders above it.
    static void MakeFolder(const std::wstring& path);
    static void MakeFile(const std::wstring& path, const std::string& bytes = {});
    static void MakeFiles(const std::wstring& folder, int count);
    static void Hide(const std::wstring& path);

    /// Beside the program.
    static void MakeDataFile(const std::wstring& name, const std::string& bytes);

    void OfferMediaCenter() const;
    void OfferFavorites() const;
    UiDriver::RegistryKey Machine() const { return store_.Machine(); }

    /// Starts the window and, in the second case, waits until the Start Menu is there.
    void StartWindow();
    void Start();

    const UiDriver::Process& Program() const { return *program_; }
    const UiDriver::Window& Form() const { return *form_; }
    UiDriver::TabControl Tabs() const { return Form().Tab(IDC_tabMenu); }
    UiDriver::TreeView Tree(int id) const { return UiDriver::TreeView(Form().Control(id).Hwnd()); }
    UiDriver::TreeView StartMenu() const { return Tree(IDC_tvTreeView0); }
    UiDriver::TreeView FavoritesTree() const { return Tree(IDC_tvTreeView1); }
    UiDriver::TreeView AllFiles() const { return Tree(IDC_tvTreeView2); }
    UiDriver::ListBox MediaCenter() const { return Form().List(IDC_lstListBox0); }
    UiDriver::ListBox ShortcutKeys() const { return Form().List(IDC_lstListBox1); }
    UiDriver::Control KeyLine() const { return Form().Control(2001); }

    /// Goes to the tab with this caption and waits until this pane is the only one shown.
    void OpenTab(int captionText, int control) const;

    /// A node of the Start Menu, by the names below the root.
    static Path InMenu(const Path& names = {});
    static Path InFavorites(const Path& names = {});

    /// Waits until the node was filled: what stood for its contents is gone, and it is open if it has any.
    static void AwaitFilled(const UiDriver::TreeView& tree, const Path& node,
                            UiDriver::Milliseconds timeout = UiDriver::kDefaultTimeout);
    /// Whether the node was never filled: it has nothing but what stands for its contents.
    static bool Unfilled(const UiDriver::TreeView& tree, const Path& node);
    static void Open(const UiDriver::TreeView& tree, const Path& node);

    /// Opens the folder and answers what is in it.
    static Names ContentsOf(const UiDriver::TreeView& tree, const Path& node);

    /// Selects the node and waits for its key to be `key`.
    void ExpectKey(const UiDriver::TreeView& tree, const Path& node, const std::wstring& key) const;

    /// Closes the window, and expects the program to end by itself, with exit code 0.
    void ExpectGoodEnd();

private:
    UiDriver::Store store_;
    ScratchFolder folder_;
    MovedShellFolder userMenu_;
    MovedShellFolder allUsersMenu_;
    MovedShellFolder favorites_;
    std::optional<UiDriver::Process> program_;
    std::optional<UiDriver::Window> form_;
};

// How long a full folder takes to open in a tree, and how long the window is without an answer meanwhile, against
// a floor in the same run that only reads the folder, sorts the names and inserts bare items. And the longest
// time without an answer while the icons of one page come, beside asking the shell for all of them at once:
//
//   TreeBench.exe [/rounds:N] [/largest:FILES]
//
// The folders are made below the temporary folder, and stay for the next run. 50,000 files are opened alone,
// when /largest asks for them; tools/bench makes their folder, which takes Wine an hour.

#include "browse/BrowseTree.h"
#include "common/Comparison.h"
#include "common/LongestSilence.h"
#include "common/Statistics.h"
#include "platform/NameOrder.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsNameOrder.h"
#include "platform/windows/WindowsShell.h"
#include "platform/windows/WindowsShellIcons.h"
#include "ui/Form.h"
#include "ui/MessagePump.h"

#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr int kPictureId = 2;
constexpr int kSortListId = 3;
constexpr int kPageOfIcons = 1000; ///< in this folder

struct Case {
    int files;
    int folders;
};

std::wstring FolderOf(const Case& what) {
    wchar_t temporary[MAX_PATH] = L"";
    GetTempPathW(MAX_PATH, temporary);
    return std::wstring(temporary) + L"qlbutl-tree-" + std::to_wstring(what.files) + L"-" +
           std::to_wstring(what.folders);
}

/// Names that don't come in their sorted order.
std::wstring NameOf(int number) {
    wchar_t name[64] = L"";
    std::swprintf(name, std::size(name), L"%05u entry of a full folder",
                  static_cast<unsigned>(number) * 7919U % 100000U);
    return name;
}

bool Make(const Case& what) {
    const std::wstring folder = FolderOf(what);
    const std::wstring finished = folder + L".made";
    if (GetFileAttributesW(finished.c_str()) != INVALID_FILE_ATTRIBUTES) {
        return true;
    }
    CreateDirectoryW(folder.c_str(), nullptr);
    for (int i = 0; i < what.folders; ++i) {
        CreateDirectoryW((folder + L'\\' + NameOf(i)).c_str(), nullptr);
    }
    const auto makeFile = [](const std::wstring& path) {
        const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
        if (file == INVALID_HANDLE_VALUE) {
            return false;
        }
        CloseHandle(file);
        return true;
    };
    for (int i = 0; i < what.files; ++i) {
        if (!makeFile(folder + L'\\' + NameOf(i) + L".txt")) {
            return false;
        }
    }
    return makeFile(finished);
}

class BenchForm final : public Form {
public:
    BenchForm() : pump_(*this) {
        CreateHidden(L"MS Shell Dlg 2");
        ShowWindow(Window(), SW_SHOW);
        UpdateWindow(Window());
    }

    /// The program's way. Nothing when the tree did not get every entry.
    std::optional<double> Ours(const Case& what) {
        const NodeId node = Begin(what);
        const double start = NowMilliseconds();
        Open(node);
        const double taken = NowMilliseconds() - start;
        return End(what) ? std::optional(taken) : std::nullopt;
    }

    /// The longest time without an answer meanwhile.
    std::optional<double> OurSilence(const Case& what) {
        const NodeId node = Begin(what);
        const double longest = LongestSilence(
            Window(), [&] { Open(node); }, [] { return true; }, [] { return false; });
        return End(what) ? std::optional(longest) : std::nullopt;
    }

    /// The longest time without an answer while the icons of the rows come that can be seen.
    std::optional<double> IconSilence(const Case& what) {
        Open(Begin(what));
        const double longest = LongestSilence(
            Window(), [&] { RedrawWindow(tree_, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); },
            [&] { return HasIcons(); }, [&] { return shown_->OnIdle(); });
        return End(what) ? std::optional(longest) : std::nullopt;
    }

    /// The shell alone, asked for the same icons.
    double IconFloor(const Case& what) {
        Open(Begin(what));
        std::vector<std::wstring> paths;
        for (const HTREEITEM item : RowsOnScreen()) {
            paths.push_back(shown_->Control().Key(std::bit_cast<NodeId>(item)));
        }
        const double start = NowMilliseconds();
        for (const std::wstring& path : paths) {
            constexpr std::uint32_t kFlags = SHGFI_SYSICONINDEX | SHGFI_TYPENAME | SHGFI_DISPLAYNAME |
                                             SHGFI_SHELLICONSIZE | SHGFI_SMALLICON;
            (void)icons_.Query(path, kFlags);
        }
        const double taken = NowMilliseconds() - start;
        End(what);
        return taken;
    }

    /// Reading, sorting and inserting, and no more. With placeholders when folders are to have their mark.
    double Floor(const Case& what, bool marks) {
        MakeTree();
        const NodeId node = InsertBare(0, L"folder");
        UpdateWindow(tree_);
        const double start = NowMilliseconds();
        FillBare(what, marks, node);
        return NowMilliseconds() - start;
    }
    double FloorSilence(const Case& what) {
        MakeTree();
        const NodeId node = InsertBare(0, L"folder");
        UpdateWindow(tree_);
        return LongestSilence(
            Window(), [&] { FillBare(what, false, node); }, [] { return true; }, [] { return false; });
    }

protected:
    void OnCreate() override {
        AddControl(Window(), {kPictureId, WC_STATICW, SS_ICON, {}});
        AddControl(Window(), {kSortListId, WC_LISTBOXW, LBS_SORT, {}});
        picture_ = std::make_unique<IconPicture>(Control(kPictureId), icons_);
        order_ = std::make_unique<WindowsNameOrder>(Control(kSortListId));
    }
    SIZE OnLayout() override { return {400, 400}; }
    void OnCommand(int /*id*/, int /*notification*/) override {}
    LRESULT OnNotify(NMHDR& header) override { return shown_ == nullptr ? 0 : shown_->OnNotify(header); }

private:
    BrowseServices Services() { return {files_, shell_, icons_, pump_}; }

    /// A tree with the folder, unopened.
    NodeId Begin(const Case& what) {
        view_ = std::make_unique<BrowseTree>(MakeTree(), *picture_, *order_, Services(), L"Internet Shortcut",
                                             16);
        const NodeId node = view_->Control().AddFirst(0, FolderOf(what), L"folder", {});
        view_->Control().AddPlaceholder(node, L"placeholder", kPlaceholderText);
        shown_ = view_.get();
        UpdateWindow(tree_);
        return node;
    }
    void Open(NodeId node) {
        shown_->View().Expand(node);
        Show(node);
    }
    /// False when the tree did not get every entry.
    bool End(const Case& what) {
        const auto expected = static_cast<std::size_t>(1 + what.files + 2 * what.folders);
        const bool complete = shown_->Control().Count() == expected;
        shown_ = nullptr;
        view_.reset();
        return complete;
    }

    [[nodiscard]] std::vector<HTREEITEM> RowsOnScreen() const {
        std::vector<HTREEITEM> rows;
        LRESULT item = SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0);
        for (LRESULT left = SendMessageW(tree_, TVM_GETVISIBLECOUNT, 0, 0); item != 0 && left > 0; --left) {
            rows.push_back(std::bit_cast<HTREEITEM>(item));
            item = SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, item);
        }
        return rows;
    }
    [[nodiscard]] bool HasIcons() const {
        for (const HTREEITEM row : RowsOnScreen()) {
            TVITEMW item{};
            item.mask = TVIF_HANDLE | TVIF_IMAGE;
            item.hItem = row;
            SendMessageW(tree_, TVM_GETITEMW, 0, std::bit_cast<LPARAM>(&item));
            if (item.iImage < 0) {
                return false;
            }
        }
        return true;
    }
    HWND MakeTree() {
        if (tree_ != nullptr) {
            DestroyWindow(tree_);
        }
        tree_ = CreateWindowExW(0, WC_TREEVIEWW, L"",
                                WS_CHILD | WS_VISIBLE | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_HASLINES, 0, 0,
                                400, 400, Window(), nullptr, nullptr, nullptr);
        return tree_;
    }

    void FillBare(const Case& what, bool marks, NodeId node) {
        std::vector<std::wstring> folders;
        std::vector<std::wstring> files;
        Enumerate(FolderOf(what), folders, files);
        Sort(folders);
        Sort(files);
        SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
        for (auto name = files.rbegin(); name != files.rend(); ++name) {
            InsertBare(node, *name);
        }
        for (auto name = folders.rbegin(); name != folders.rend(); ++name) {
            const NodeId folder = InsertBare(node, *name);
            if (marks) {
                InsertBare(folder, kPlaceholderText);
            }
        }
        SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
        Show(node);
    }

    void Sort(std::vector<std::wstring>& names) const {
        std::vector<std::pair<std::string, std::wstring>> sorted;
        sorted.reserve(names.size());
        for (std::wstring& name : names) {
            sorted.emplace_back(order_->SortKey(name), std::move(name));
        }
        std::sort(sorted.begin(), sorted.end());
        for (std::size_t i = 0; i < names.size(); ++i) {
            names[i] = std::move(sorted[i].second);
        }
    }

    void Show(NodeId node) {
        SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, static_cast<LPARAM>(node));
        UpdateWindow(tree_);
    }

    NodeId InsertBare(NodeId parent, std::wstring text) {
        TVINSERTSTRUCTW insert{};
        insert.hParent = parent == 0 ? TVI_ROOT : std::bit_cast<HTREEITEM>(parent);
        insert.hInsertAfter = TVI_FIRST;
        insert.item.mask = TVIF_TEXT;
        insert.item.pszText = text.data();
        return static_cast<NodeId>(SendMessageW(tree_, TVM_INSERTITEMW, 0, std::bit_cast<LPARAM>(&insert)));
    }

    static void Enumerate(const std::wstring& folder, std::vector<std::wstring>& folders,
                          std::vector<std::wstring>& files) {
        WIN32_FIND_DATAA found{};
        const HANDLE search = FindFirstFileExA(ToAnsi(folder + L"\\*.*").c_str(), FindExInfoBasic, &found,
                                               FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
        if (search == INVALID_HANDLE_VALUE) {
            return;
        }
        do {
            const std::string_view name = found.cFileName;
            if (name != "." && name != "..") {
                auto& list = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? folders : files;
                list.push_back(FromAnsi(name));
            }
        } while (FindNextFileA(search, &found) != FALSE);
        FindClose(search);
    }

    WindowsFileSystem files_;
    WindowsShell shell_;
    WindowsShellIcons icons_;
    MessagePump pump_;
    std::unique_ptr<IconPicture> picture_;
    std::unique_ptr<const NameOrder> order_;
    HWND tree_ = nullptr;
    std::unique_ptr<BrowseTree> view_;
    BrowseTree* shown_ = nullptr; ///< whose notifications are answered
};

void Measure(BenchForm& form, Comparison& table, const Case& what) {
    const Timed ours = [&] { return form.Ours(what); };
    if (!Make(what)) {
        std::printf("The folder of %d files can't be made.\n", what.files);
        return;
    }
    const int size = what.files + what.folders;
    const std::string words = what.folders > 0 ? "open a folder of folders" : "open a folder of files";
    table.Row(
        words, size, [&] { return form.Floor(what, false); }, ours);
    if (what.folders > 0) {
        table.Row(
            words + ", marks too", size, [&] { return form.Floor(what, true); }, ours);
    }
    table.Row(
        what.folders > 0 ? "longest silence, folders" : "longest silence, files", size,
        [&] { return form.FloorSilence(what); }, [&] { return form.OurSilence(what); });
    if (what.files == kPageOfIcons) {
        table.Row(
            "longest silence, icons of a page", size, [&] { return form.IconFloor(what); },
            [&] { return form.IconSilence(what); });
    }
}

int LargestFrom(int count, wchar_t** arguments) {
    constexpr std::wstring_view kPrefix = L"/largest:";
    constexpr int kLargest = 10000;
    for (int i = 1; i < count; ++i) {
        if (std::wstring_view(arguments[i]).starts_with(kPrefix)) {
            return static_cast<int>(std::wcstol(arguments[i] + kPrefix.size(), nullptr, 10));
        }
    }
    return kLargest;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    BenchForm form;
    Comparison table(RoundsFrom(count, arguments, 9));
    const int largest = LargestFrom(count, arguments);
    const int smallest = largest > 10000 ? 10001 : 0; // the huge one has a run of its own
    for (const Case& what : {Case{100, 0}, {1000, 0}, {10000, 0}, {50000, 0}, {0, 2000}}) {
        if (what.files <= largest && what.files >= smallest) {
            Measure(form, table, what);
        }
    }
    return table.Finish();
}

#include "dialogs/register/SourcePanes.h"

#include "app/StringTable.h"
#include "browse/CSystemDrive.h"
#include "platform/Platform.h"
#include "platform/windows/WindowsNameOrder.h"
#include "resources/resource.h"
#include "settings/StdModule.h"
#include "ui/Controls.h"
#include "ui/Dpi.h"

#include <commctrl.h>

#include <bit>

namespace {

constexpr int kIconSize = 16; // pixels at 100 %
constexpr DWORD kTreeStyle = TVS_HASBUTTONS | TVS_LINESATROOT | TVS_HASLINES | WS_TABSTOP | WS_GROUP;
constexpr DWORD kListStyle = LBS_NOTIFY | WS_VSCROLL | WS_TABSTOP | WS_GROUP;

struct Pane {
    ProgramSource source;
    int id;
    int labelId;
    int tabText;
    int optionText; ///< in the wizard
};
constexpr std::array<Pane, kProgramSourceCount> kPanes{{
    {ProgramSource::StartMenu, IDC_tvTreeView0, IDC_lblTreeView0, kTextStartMenuTab, kTextFromStartMenu},
    {ProgramSource::MediaCenter, IDC_lstListBox0, IDC_lblListBox0, kTextMediaCenterTab, kTextFromMediaCenter},
    {ProgramSource::IeFavorites, IDC_tvTreeView1, IDC_lblTreeView1, kTextIeFavorites, kTextFromIeFavorites},
    {ProgramSource::AllFiles, IDC_tvTreeView2, IDC_lblTreeView2, kTextAllFilesTab, kTextFromAllFiles},
    {ProgramSource::ShortcutKey, IDC_lstListBox1, IDC_lblListBox1, kTextShortcutKey, kTextFromShortcutKey},
}};

const Pane& PaneOf(ProgramSource source) {
    return kPanes.at(static_cast<std::size_t>(source));
}

void AddRow(HWND list, const std::wstring& text, LPARAM data) {
    const LRESULT row = SendMessageW(list, LB_ADDSTRING, 0, std::bit_cast<LPARAM>(text.c_str()));
    if (row >= 0) {
        SendMessageW(list, LB_SETITEMDATA, static_cast<WPARAM>(row), data);
    }
}

} // namespace

SourcePanes::SourcePanes(Form& form, const Platform& platform, const RegIniFunc& store,
                         const StringTable& texts)
    : platform_(platform), texts_(texts), pump_(form),
      sources_(store, platform.files, platform.shell, platform.ansiText) {}

void SourcePanes::CreateControls(const AddControl& add, UINT dpi) {
    // The two that are never shown: one draws the icons, the other one's locale sorts the names.
    const HWND picture = add({IDC_picIcon, WC_STATICW, SS_ICON, {}});
    const HWND sortList = add({IDC_lstSortList, WC_LISTBOXW, LBS_SORT, {}});
    ShowWindow(picture, SW_HIDE);
    ShowWindow(sortList, SW_HIDE);
    picIcon_ = std::make_unique<IconPicture>(picture, platform_.icons);
    picIcon_->SetIconSize(Scaled(kIconSize, dpi));
    order_ = std::make_unique<WindowsNameOrder>(sortList);
    const BrowseServices services{platform_.files, platform_.shell, platform_.icons, pump_};
    const std::wstring internetShortcut = texts_.ResText(kTextInternetShortcut);
    for (const Pane& pane : kPanes) {
        const bool list = IsList(pane.source);
        // Never seen: what stands before a tree or list is its name for screen readers.
        const HWND label = add({pane.labelId, WC_STATICW, SS_LEFT | SS_NOPREFIX | WS_GROUP, {}});
        SetTextOf(label, texts_.ResText(pane.tabText));
        ShowWindow(label, SW_HIDE);
        const HWND control = add({pane.id,
                                  list ? WC_LISTBOXW : WC_TREEVIEWW,
                                  list ? kListStyle : kTreeStyle,
                                  {},
                                  WS_EX_CLIENTEDGE});
        controls_.at(IndexOf(pane.source)) = control;
        if (!list) {
            trees_.at(IndexOf(pane.source)) = std::make_unique<BrowseTree>(
                control, *picIcon_, *order_, services, internetShortcut, Scaled(kIconSize, dpi));
        }
    }
    Show(std::nullopt);
}

void SourcePanes::Place(const RECT& area) const {
    for (const HWND control : controls_) {
        SetWindowPos(control, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

std::optional<ProgramSource> SourcePanes::SourceOf(HWND control) const {
    for (const Pane& pane : kPanes) {
        if (ControlOf(pane.source) == control) {
            return pane.source;
        }
    }
    return std::nullopt;
}

std::optional<PickedItem> SourcePanes::PickedNode(ProgramSource source, NodeId node) const {
    const TreeControl& tree = TreeOf(source)->Control();
    const std::wstring key = tree.Key(node);
    if (key.empty()) {
        return std::nullopt;
    }
    return PickedItem{.source = source, .command = key, .name = tree.Text(node), .root = tree.IsRoot(node)};
}

std::optional<PickedItem> SourcePanes::SelectionOf(ProgramSource source) const {
    if (BrowseTree* tree = TreeOf(source); tree != nullptr) {
        return PickedNode(source, tree->Control().Selected());
    }
    const LRESULT row = SendMessageW(ControlOf(source), LB_GETCURSEL, 0, 0);
    return row < 0 ? std::nullopt : PickedRow(sources_, source, static_cast<std::size_t>(row));
}

PickedItemServices SourcePanes::Services() const {
    return {sources_, platform_.files, [this](const std::wstring& file) {
                const WaitCursor cursor;
                return TreeOf(ProgramSource::IeFavorites)->View().GetShortcutToURL(file);
            }};
}

void SourcePanes::Load() {
    sources_.LoadStartMenu();
    sources_.LoadIeFavorites();
    sources_.LoadMediaCenter();
    sources_.LoadShortcutKeys();
    const HWND mediaCenter = ControlOf(ProgramSource::MediaCenter);
    for (const MediaCenterRow& row : sources_.MediaCenterTable()) {
        AddRow(mediaCenter, row.title, 0);
    }
    const HWND shortcutKeys = ControlOf(ProgramSource::ShortcutKey);
    for (const ShortcutKeyRow& row : sources_.ShortcutKeys()) {
        AddRow(shortcutKeys, row.text, row.keyCode);
    }
    for (const HWND list : {mediaCenter, shortcutKeys}) {
        SendMessageW(list, LB_SETCURSEL, 0, 0); // does nothing in an empty list
    }
}

std::wstring SourcePanes::OptionText(ProgramSource source) const {
    return WithoutAccessKeys(texts_.ResText(PaneOf(source).optionText));
}

std::vector<ProgramSource> SourcePanes::AddTabs(HWND tabControl) const {
    std::vector<ProgramSource> offered = sources_.Offered(SourceOffer::Tabs);
    for (const ProgramSource source : offered) {
        AddTab(tabControl, texts_.ResText(PaneOf(source).tabText));
    }
    return offered;
}

void SourcePanes::Show(std::optional<ProgramSource> source) {
    for (const Pane& pane : kPanes) {
        const bool shown = pane.source == source;
        if (BrowseTree* tree = TreeOf(pane.source); tree != nullptr) {
            tree->Control().Show(shown);
        } else {
            ShowWindow(ControlOf(pane.source), shown ? SW_SHOW : SW_HIDE);
        }
    }
}

bool SourcePanes::OnIdle() {
    const MessagePump::SlowWork slow(pump_);
    for (const Pane& pane : kPanes) {
        BrowseTree* tree = TreeOf(pane.source);
        if (tree != nullptr && tree->Control().IsShown() && tree->Control().Count() == 0) {
            FillTree(pane.source);
            return tree->Control().Count() != 0; // else it would be filled again and again
        }
        if (tree != nullptr && tree->OnIdle()) {
            return true;
        }
    }
    return false;
}

void SourcePanes::FillTree(ProgramSource source) {
    BrowseTree& tree = *TreeOf(source);
    switch (source) {
    case ProgramSource::StartMenu:
        tree.SetStartMenu(sources_.StartMenuFolder(), texts_.ResText(kTextStartMenu));
        break;
    case ProgramSource::IeFavorites:
        tree.SetIeFavorites(sources_.FavoritesFolder(), texts_.ResText(kTextIeFavorites));
        break;
    default: {
        const WaitCursor cursor; // a disk may have to spin up first
        CSystemDrive drives;
        drives.DriveBoxControl(platform_.drives);
        tree.SetMyComputer(drives, texts_.ResText(kTextMyComputer));
        break;
    }
    }
}

void SourcePanes::SetScaling(UINT dpi) {
    const int size = Scaled(kIconSize, dpi);
    picIcon_->SetIconSize(size);
    for (const auto& tree : trees_) {
        if (tree) {
            tree->Control().SetIconSize(size);
        }
    }
}

std::optional<LRESULT> SourcePanes::OnNotify(NMHDR& header) {
    for (const auto& tree : trees_) {
        if (tree && tree->Control().Window() == reinterpret_cast<WindowId>(header.hwndFrom)) {
            return tree->OnNotify(header);
        }
    }
    return std::nullopt;
}

void SourcePanes::Clear() {
    for (const auto& tree : trees_) {
        if (tree) {
            tree->View().Clear();
        }
    }
}

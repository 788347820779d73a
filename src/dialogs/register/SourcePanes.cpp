#include "dialogs/register/SourcePanes.h"

#include "app/StringTable.h"
#include "browse/CSystemDrive.h"
#include "platform/Platform.h"
#include "platform/windows/WindowsNameOrder.h"
#include "resources/resource.h"
#include "ui/Controls.h"
#include "ui/Dpi.h"

#include <commctrl.h>

#include <bit>
#include <utility>

namespace {

constexpr int kIconSize = 16; // pixels at 100 %
constexpr DWORD kTreeStyle = TVS_HASBUTTONS | TVS_LINESATROOT | TVS_HASLINES | WS_TABSTOP | WS_GROUP;
constexpr DWORD kListStyle = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP | WS_GROUP;

struct Pane {
    ProgramSource source;
    int id;
    int labelId;
};
constexpr std::array<Pane, kProgramSourceCount> kPanes{{
    {ProgramSource::StartMenu, IDC_tvTreeView0, IDC_lblTreeView0},
    {ProgramSource::MediaCenter, IDC_lstListBox0, IDC_lblListBox0},
    {ProgramSource::IeFavorites, IDC_tvTreeView1, IDC_lblTreeView1},
    {ProgramSource::AllFiles, IDC_tvTreeView2, IDC_lblTreeView2},
    {ProgramSource::ShortcutKey, IDC_lstListBox1, IDC_lblListBox1},
}};

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
    const auto order = std::make_shared<WindowsNameOrder>(sortList);
    const BrowseServices services{platform_.files, platform_.shell, platform_.icons, pump_};
    const std::wstring internetShortcut = texts_.ResText(kTextInternetShortcut);
    for (const Pane& pane : kPanes) {
        const bool list = IsList(pane.source);
        // Never seen: what stands before a tree or list is its name for screen readers.
        const HWND label = add({pane.labelId, WC_STATICW, SS_LEFT | SS_NOPREFIX | WS_GROUP, {}});
        SetTextOf(label, texts_.ResText(kTextSourceTab1 + static_cast<int>(pane.source)));
        ShowWindow(label, SW_HIDE);
        const HWND control = add({pane.id,
                                  list ? WC_LISTBOXW : WC_TREEVIEWW,
                                  list ? kListStyle : kTreeStyle,
                                  {},
                                  WS_EX_CLIENTEDGE});
        ShowWindow(control, SW_HIDE);
        controls_.at(IndexOf(pane.source)) = control;
        if (!list) {
            trees_.at(IndexOf(pane.source)) = std::make_unique<BrowseTree>(
                control, *picIcon_, order, services, pump_, internetShortcut, Scaled(kIconSize, dpi));
        }
    }
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

PickedItem SourcePanes::PickedNode(ProgramSource source, NodeId node) const {
    if (node == 0) {
        return {};
    }
    const TreeControl& tree = TreeOf(source)->Control();
    return {PickedItem::Kind::Tree, tree.Key(node), tree.Text(node), tree.Text(tree.RootOf(node))};
}

PickedItem SourcePanes::SelectionOf(ProgramSource source) const {
    if (BrowseTree* tree = TreeOf(source); tree != nullptr) {
        return PickedNode(source, tree->Control().Selected());
    }
    const LRESULT row = SendMessageW(ControlOf(source), LB_GETCURSEL, 0, 0);
    if (row < 0) {
        return {};
    }
    PickedItem item;
    item.kind =
        source == ProgramSource::MediaCenter ? PickedItem::Kind::MediaCenter : PickedItem::Kind::ShortcutKey;
    item.row = static_cast<std::size_t>(row);
    return item;
}

std::wstring SourcePanes::AddressOf(const std::wstring& file) const {
    const WaitCursor cursor;
    return TreeOf(ProgramSource::IeFavorites)->View().GetShortcutToURL(file);
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

bool SourcePanes::Offers(ProgramSource source) const {
    switch (source) {
    case ProgramSource::StartMenu:
        return !sources_.StartMenuFolder().empty();
    case ProgramSource::MediaCenter:
        return sources_.OffersMediaCenter();
    case ProgramSource::IeFavorites:
        return sources_.OffersIeFavorites();
    default:
        return true;
    }
}

std::vector<ProgramSource> SourcePanes::AddTabs(HWND tabControl) const {
    std::vector<ProgramSource> offered;
    for (std::size_t i = 0; i < kProgramSourceCount; ++i) {
        const auto source = static_cast<ProgramSource>(i);
        if (Offers(source)) {
            AddTab(tabControl, texts_.ResText(kTextSourceTab1 + static_cast<int>(i)));
            offered.push_back(source);
        }
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
        if (shown && !IsList(pane.source) && !std::exchange(filled_.at(IndexOf(pane.source)), true)) {
            // When the form stands: filling works off events, and the form must be there to answer them.
            TreeOf(pane.source)->Control().RunLater([this, which = pane.source] { FillTree(which); });
        }
    }
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
    default:
        FillMyComputer(tree);
        break;
    }
}

void SourcePanes::FillMyComputer(BrowseTree& tree) {
    // A disk that has to spin up first must not stop the user interface.
    const MessagePump::SlowWork slow(pump_);
    const auto drives = std::make_shared<CSystemDrive>();
    const bool read =
        pump_.RunBeside([drives, &system = platform_.drives] { drives->DriveBoxControl(system); },
                        [this] { return !closed_; });
    if (read && !closed_) {
        tree.SetMyComputer(*drives, texts_.ResText(kTextMyComputer));
    }
}

void SourcePanes::SetScaling(UINT dpi) {
    const int size = Scaled(kIconSize, dpi);
    picIcon_->SetIconSize(size);
    for (const auto& tree : trees_) {
        if (tree) {
            tree->SetIconSize(size);
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
    closed_ = true;
    for (const auto& tree : trees_) {
        if (tree) {
            tree->View().Clear();
        }
    }
}

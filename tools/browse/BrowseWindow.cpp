#include "BrowseWindow.h"

#include "browse/Paths.h"
#include "platform/Platform.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "ui/Controls.h"

#include <commctrl.h>

namespace {

constexpr int kKeyLine = 2001; // this tool's own control

// Dialog units.
constexpr int kMargin = 7;
constexpr int kWidth = 340;
constexpr int kTabHeight = 14;
constexpr int kPaneTop = kMargin + kTabHeight + 2;
constexpr int kPaneHeight = 200;
constexpr int kLineTop = kPaneTop + kPaneHeight + 4;
constexpr int kLineHeight = 14;

} // namespace

BrowseWindow::BrowseWindow(const Platform& platform)
    : ModalForm(nullptr), platform_(platform), texts_(platform.strings),
      store_(platform.registry, platform.profileFiles, platform.ansiText, Globals().IniFileName),
      panes_(*this, platform, store_, texts_) {
    CreateHidden(Globals().DialogFontName);
}

void BrowseWindow::OnCreate() {
    SetTextOf(Window(), L"Browse");
    const HWND tab = AddControl(
        Window(),
        {IDC_tabMenu, WC_TABCONTROLW, WS_TABSTOP | WS_GROUP, {kMargin, kMargin, kWidth, kTabHeight}});
    panes_.CreateControls([this](const ControlRow& row) { return AddControl(Window(), row); }, Dpi());
    AddControl(Window(), {kKeyLine,
                          WC_EDITW,
                          ES_READONLY | ES_AUTOHSCROLL | WS_TABSTOP,
                          {kMargin, kLineTop, kWidth, kLineHeight},
                          WS_EX_CLIENTEDGE});
    panes_.Load();
    tabs_ = panes_.AddTabs(tab);
    ShowTab(0);
}

SIZE BrowseWindow::OnLayout() {
    panes_.SetScaling(Dpi());
    panes_.Place(TextFont().Pixels({kMargin, kPaneTop, kWidth, kPaneHeight}));
    return {TextFont().PixelsX(kMargin + kWidth + kMargin),
            TextFont().PixelsY(kLineTop + kLineHeight + kMargin)};
}

void BrowseWindow::OnCommand(int id, int /*notification*/) {
    if (id == IDCANCEL) {
        OnClose();
    }
}

void BrowseWindow::OnClose() {
    panes_.Clear();
    End();
}

void BrowseWindow::ShowTab(int tab) {
    if (tab >= 0 && static_cast<std::size_t>(tab) < tabs_.size()) {
        panes_.Show(tabs_[static_cast<std::size_t>(tab)]);
    }
}

void BrowseWindow::ShowSelection(BrowseTree& tree) {
    const NodeId node = tree.Control().Selected();
    std::wstring key = tree.Control().Key(node);
    if (EndsInUrl(key)) {
        key += L" | " + tree.View().GetShortcutToURL(key);
    }
    SetTextOf(Control(kKeyLine), key);
}

LRESULT BrowseWindow::OnNotify(NMHDR& header) {
    if (header.idFrom == IDC_tabMenu && header.code == TCN_SELCHANGE) {
        ShowTab(static_cast<int>(SendMessageW(header.hwndFrom, TCM_GETCURSEL, 0, 0)));
        return 0;
    }
    const LRESULT result = panes_.OnNotify(header).value_or(0);
    if (header.code == TVN_SELCHANGEDW) {
        if (const auto source = panes_.SourceOf(header.hwndFrom)) {
            ShowSelection(*panes_.TreeOf(*source));
        }
    }
    return result;
}

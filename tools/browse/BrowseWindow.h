#pragma once

#include "app/StringTable.h"
#include "dialogs/register/SourcePanes.h"
#include "settings/RegIniFunc.h"
#include "ui/ModalForm.h"

#include <vector>

struct Platform;

/// The program sources without the dialogs around them, to be tried by hand and by tests. The line below shows
/// the selected node's key, and behind it a favourite's address.
class BrowseWindow final : public ModalForm {
public:
    explicit BrowseWindow(const Platform& platform);

protected:
    void OnCreate() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;
    LRESULT OnNotify(NMHDR& header) override;
    [[nodiscard]] bool ShowsHourglass() const override { return panes_.ShowsHourglass(); }
    bool OnIdle() override { return panes_.OnIdle(); }
    void OnClose() override;

private:
    void ShowTab(int tab);
    void ShowSelection(BrowseTree& tree);

    const Platform& platform_;
    StringTable texts_;
    RegIniFunc store_;
    SourcePanes panes_;
    std::vector<ProgramSource> tabs_; ///< only what is offered
};

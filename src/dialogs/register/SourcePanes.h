#pragma once

#include "browse/BrowseTree.h"
#include "dialogs/register/PickedItem.h"
#include "dialogs/register/ProgramSources.h"
#include "platform/NameOrder.h"
#include "ui/Form.h"
#include "ui/MessagePump.h"

#include <windows.h>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class RegIniFunc;
class StringTable;
struct Platform;

/// The controls that show what a button can start, one for each source: three trees and two lists in the same
/// place, of which one is shown.
class SourcePanes {
public:
    /// Creates a control of the form, as Form::AddControl does.
    using AddControl = std::function<HWND(const ControlRow&)>;

    SourcePanes(Form& form, const Platform& platform, const RegIniFunc& store, const StringTable& texts);

    /// All hidden, and without a place.
    void CreateControls(const AddControl& add, UINT dpi);
    /// In pixels of the form's client area.
    void Place(const RECT& area) const;
    /// Fills the lists and finds out which sources are offered. The trees fill when they are first shown.
    void Load();

    /// A tab for each source that is offered; returns those in the order of the tabs.
    [[nodiscard]] std::vector<ProgramSource> AddTabs(HWND tabControl) const;
    /// Of the wizard's options.
    [[nodiscard]] std::wstring OptionText(ProgramSource source) const;
    [[nodiscard]] const ProgramSources& Sources() const { return sources_; }
    [[nodiscard]] PickedItemServices Services() const;

    /// Shows one source's control and hides the others; nothing hides all.
    void Show(std::optional<ProgramSource> source);
    [[nodiscard]] HWND ControlOf(ProgramSource source) const { return controls_.at(IndexOf(source)); }
    /// The source whose control this is.
    [[nodiscard]] std::optional<ProgramSource> SourceOf(HWND control) const;
    /// What a node stands for; nothing for node 0, and for the root of a folder that the system doesn't name.
    [[nodiscard]] std::optional<PickedItem> PickedNode(ProgramSource source, NodeId node) const;
    /// What is selected in a source.
    [[nodiscard]] std::optional<PickedItem> SelectionOf(ProgramSource source) const;
    /// Null for the lists.
    [[nodiscard]] BrowseTree* TreeOf(ProgramSource source) const { return trees_.at(IndexOf(source)).get(); }

    void SetScaling(UINT dpi);
    /// Does one step of what can wait until no event does: the tree that is shown fills, a folder opens, or an icon
    /// comes. False when there was nothing to do.
    bool OnIdle();
    /// Of one of the controls; nothing for other controls.
    std::optional<LRESULT> OnNotify(NMHDR& header);
    [[nodiscard]] bool ShowsHourglass() const { return pump_.ShowsHourglass(); }

    /// Empties the trees: the form closes.
    void Clear();

private:
    [[nodiscard]] static constexpr std::size_t IndexOf(ProgramSource source) {
        return static_cast<std::size_t>(source);
    }
    void FillTree(ProgramSource source);

    const Platform& platform_;
    const StringTable& texts_;
    MessagePump pump_;
    ProgramSources sources_;
    std::unique_ptr<IconPicture> picIcon_;
    std::unique_ptr<const NameOrder> order_;
    std::array<HWND, kProgramSourceCount> controls_{};
    std::array<std::unique_ptr<BrowseTree>, kProgramSourceCount> trees_;
};

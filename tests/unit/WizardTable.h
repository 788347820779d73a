#pragma once

#include "WizardDialog.h"

#include <functional>
#include <iosfwd>
#include <set>

/// What is to be seen of the wizard.
struct WizardScreen {
    int page = 0;
    std::set<std::string> frames;
    bool back = false;
    bool next = false;
    std::string nextCaption = "Next>";
    bool finishVisible = false;
    bool finishEnabled = false;
    int marked = -1;
    int count = 0;
    std::vector<std::wstring> commands = std::vector<std::wstring>(kMaxPrograms);
    std::vector<std::wstring> boxes = std::vector<std::wstring>(kMaxPrograms);
    bool committed = false;

    bool operator==(const WizardScreen&) const = default;
};

void PrintTo(const WizardScreen& screen, std::ostream* stream);

[[nodiscard]] WizardScreen ScreenOf(const WizardFlow& flow);

/// The wizard by its page table, row for row. Rows with next page -1 are done after those of their page.
class WizardTable {
public:
    struct Row {
        int page;
        std::string action; ///< "any", "Next", "not Next", "Back", "Finish"
        std::string condition;
        std::vector<std::string> effects;
        int next;
    };

    static const std::vector<Row>& Rows();

    /// On the first page. `dialog` tells what is offered and selected.
    WizardTable(const WizardDialog& dialog, bool forButton);

    [[nodiscard]] const WizardScreen& Screen() const { return screen_; }
    /// Indexes of the rows that were done so far.
    [[nodiscard]] const std::set<std::size_t>& Done() const { return done_; }

    /// `action`: "", "Next", "Back", "Finish".
    void Step(const std::string& action);

    void ChooseLaunchMethod(int option) { several_ = option != 0; }
    void ChooseSourceForSingle(ProgramSource source) { forSingle_ = source; }
    void ChooseSource(ProgramSource source) {
        forSeveral_ = source;
        ShowSource(source);
    }
    void SetButtonName(const std::wstring& name) {
        hasName_ = !name.empty();
        screen_.next = hasName_;
    }
    void Click(const PickedItem& item);
    [[nodiscard]] const PickedItem& Picked() const { return picked_; }
    /// Of the picked item, as the settings keep it.
    [[nodiscard]] std::wstring Command() const;

private:
    using Effect = std::function<void(WizardTable&)>;
    static const std::map<std::string, Effect>& Effects();

    [[nodiscard]] bool Holds(const std::string& condition) const;
    void HideFrames();
    void Do(const Row& row);
    void ShowSource(ProgramSource source);
    [[nodiscard]] ProgramSource FirstForSeveral() const;

    const WizardDialog& dialog_;
    bool forButton_;
    bool several_ = false;
    bool hasName_ = false;
    bool savedNext_ = false;
    ProgramSource forSeveral_ = FirstForSeveral();
    ProgramSource forSingle_ = forSeveral_;
    PickedItem picked_;
    WizardScreen screen_;
    std::set<std::size_t> done_;
};

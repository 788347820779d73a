#include "WizardTable.h"

#include <algorithm>
#include <ostream>

namespace {

bool IsUrl(const PickedItem& item) {
    return item.key.ends_with(L".url") || item.key.ends_with(L".URL");
}

} // namespace

void PrintTo(const WizardScreen& screen, std::ostream* stream) {
    *stream << "page " << screen.page << ' ' << testing::PrintToString(screen.frames)
            << (screen.back ? ", Back on" : ", Back off") << (screen.next ? ", Next on \"" : ", Next off \"")
            << screen.nextCaption << "\", Finish " << (screen.finishVisible ? "visible " : "hidden ")
            << (screen.finishEnabled ? "on" : "off") << ", marked " << screen.marked << ", count "
            << screen.count << ", commands " << testing::PrintToString(screen.commands) << ", boxes "
            << testing::PrintToString(screen.boxes) << (screen.committed ? ", committed" : "");
}

WizardScreen ScreenOf(const WizardFlow& flow) {
    static const std::vector<std::pair<WizardFrame, std::string>> kNames{
        {WizardFrame::SelectButton, "fraSelectButton"},
        {WizardFrame::SelectLaunchMethod, "fraSelectLaunchMethod"},
        {WizardFrame::SelectMenu, "fraSelectMenu"},
        {WizardFrame::SelectProgramForSingle, "fraSelectProgramForSingle"},
        {WizardFrame::Finish, "fraFinish"},
        {WizardFrame::ButtonName, "fraButtonName"},
        {WizardFrame::SomePrograms, "fraSomePrograms"},
        {WizardFrame::ProgramList, "fraProgramList"}};
    WizardScreen screen;
    screen.page = static_cast<int>(flow.Page());
    for (const auto& [frame, name] : kNames) {
        if (flow.Shows(frame)) {
            screen.frames.insert(name);
        }
    }
    screen.back = flow.BackEnabled();
    screen.next = flow.NextEnabled();
    screen.nextCaption = flow.NextSaysFinish() ? "Finish" : "Next>";
    screen.finishVisible = flow.FinishVisible();
    screen.finishEnabled = flow.FinishEnabled();
    screen.marked = flow.MarkedSlot();
    screen.count = flow.Slot().NumAP;
    screen.commands = WizardDialog::Texts(flow.Slot().AP);
    for (std::size_t slot = 0; slot < screen.boxes.size(); ++slot) {
        screen.boxes[slot] = flow.ProgramText(static_cast<int>(slot));
    }
    screen.committed = flow.Committed();
    return screen;
}

const std::vector<WizardTable::Row>& WizardTable::Rows() {
    static const std::vector<Row> kRows{
        {0, "any", "for a button", {"show fraSelectLaunchMethod", "Back off", "Next on"}, 2},
        {0, "any", "for the dialog", {"show fraSelectButton", "Back off", "Next on"}, 1},
        {1, "any", "", {"show fraSelectLaunchMethod", "Back on"}, 2},
        {2, "not Next", "", {"show fraSelectButton", "Back off"}, 1},
        {2, "Next", "several", {"show fraButtonName", "Next off without a name"}, 6},
        {2, "Next", "single", {"show fraSelectMenu"}, 3},
        {2, "Next", "for a button", {"Back on"}, -1},
        {3, "not Next", "for the dialog", {"show fraSelectLaunchMethod"}, 2},
        {3, "not Next", "for a button", {"Back off", "show fraSelectLaunchMethod"}, 2},
        {3, "Next", "", {"show fraSelectProgramForSingle", "show fraProgramList", "single source"}, 4},
        {4, "not Next", "", {"show fraSelectMenu", "Next on"}, 3},
        {4, "Next", "", {"build", "show fraFinish", "caption Finish", "save Next", "Next on"}, 5},
        {5, "Next", "", {"commit"}, 0},
        {5,
         "not Next",
         "several",
         {"caption Next>", "show fraSomePrograms", "Finish visible", "show fraProgramList", "5 to 4",
          "clear slot [count]", "mark"},
         7},
        {5,
         "not Next",
         "single",
         {"caption Next>", "show fraSelectProgramForSingle", "show fraProgramList", "count 0"},
         4},
        {5, "any", "", {"restore Next"}, -1},
        {6, "not Next", "for the dialog", {"Next on", "show fraSelectLaunchMethod"}, 2},
        {6, "not Next", "for a button", {"Back off", "Next on", "show fraSelectLaunchMethod"}, 2},
        {6,
         "Next",
         "",
         {"show fraSomePrograms", "Finish visible", "Finish off", "several's source", "show fraProgramList",
          "mark"},
         7},
        {7, "Next", "count not 4", {"add", "count + 1", "Finish on"}, 7},
        {7,
         "Next",
         "count 4",
         {"add", "count 5", "Finish hidden", "hide fraSomePrograms", "hide fraProgramList", "caption Finish",
          "show fraFinish", "save Next", "Next on"},
         5},
        {7,
         "Finish",
         "",
         {"hide fraSomePrograms", "hide fraProgramList", "Finish hidden", "caption Finish", "show fraFinish",
          "save Next", "Next on"},
         5},
        {7,
         "Back",
         "count 0",
         {"hide fraSomePrograms", "hide fraProgramList", "show fraButtonName", "Next on", "Finish hidden"},
         6},
        {7, "Back", "count above 0", {"Finish off at count 1", "count - 1", "clear slot [count]"}, 7},
        {7, "any", "count below 5", {"mark"}, -1},
    };
    return kRows;
}

WizardTable::WizardTable(const WizardDialog& dialog, bool forButton)
    : dialog_(dialog), forButton_(forButton) {
    Step("");
}

void WizardTable::Step(const std::string& action) {
    const int page = screen_.page;
    const auto fits = [&](const Row& row) {
        return row.page == page &&
               (row.action == "any" || row.action == action ||
                (row.action == "not Next" && action != "Next")) &&
               Holds(row.condition);
    };
    const auto row = std::find_if(Rows().begin(), Rows().end(),
                                  [&](const Row& each) { return each.next >= 0 && fits(each); });
    if (row == Rows().end()) {
        return;
    }
    HideFrames();
    Do(*row);
    screen_.page = row->next;
    for (const Row& then : Rows()) {
        if (then.next < 0 && fits(then)) {
            Do(then);
        }
    }
}

void WizardTable::Click(const PickedItem& item) {
    picked_ = item;
    if (item.kind == PickedItem::Kind::Tree) {
        screen_.next = item.key != L"My Computer" && (item.rootText != L"IE Favorites" || IsUrl(item));
    }
}
std::wstring WizardTable::Command() const {
    switch (picked_.kind) {
    case PickedItem::Kind::MediaCenter:
        return dialog_.sources.MediaCenterTable().at(picked_.row).commandLine;
    case PickedItem::Kind::ShortcutKey:
        return std::to_wstring(dialog_.sources.ShortcutKeys().at(picked_.row).keyCode);
    default:
        return picked_.rootText == L"IE Favorites"
                   ? L"iexplore.exe|" + dialog_.shell.shortcutAddresses.at(picked_.key)
                   : picked_.key;
    }
}

bool WizardTable::Holds(const std::string& condition) const {
    static const std::map<std::string, std::function<bool(const WizardTable&)>> kConditions{
        {"", [](const WizardTable&) { return true; }},
        {"for a button", [](const WizardTable& self) { return self.forButton_; }},
        {"for the dialog", [](const WizardTable& self) { return !self.forButton_; }},
        {"several", [](const WizardTable& self) { return self.several_; }},
        {"single", [](const WizardTable& self) { return !self.several_; }},
        {"count 0", [](const WizardTable& self) { return self.screen_.count == 0; }},
        {"count above 0", [](const WizardTable& self) { return self.screen_.count > 0; }},
        {"count 4", [](const WizardTable& self) { return self.screen_.count == 4; }},
        {"count not 4", [](const WizardTable& self) { return self.screen_.count != 4; }},
        {"count below 5", [](const WizardTable& self) { return self.screen_.count < 5; }}};
    return kConditions.at(condition)(*this);
}

void WizardTable::HideFrames() {
    static const std::vector<std::vector<std::string>> kFrames{
        {},
        {"fraSelectButton"},
        {"fraSelectLaunchMethod"},
        {"fraSelectMenu"},
        {"fraSelectProgramForSingle", "fraProgramList"},
        {"fraFinish"},
        {"fraButtonName"},
        {}};
    for (const std::string& frame : kFrames.at(static_cast<std::size_t>(screen_.page))) {
        screen_.frames.erase(frame);
    }
}

void WizardTable::Do(const Row& row) {
    done_.insert(static_cast<std::size_t>(&row - Rows().data()));
    for (const std::string& effect : row.effects) {
        if (effect.starts_with("show ")) {
            screen_.frames.insert(effect.substr(5));
        } else if (effect.starts_with("hide ")) {
            screen_.frames.erase(effect.substr(5));
        } else if (effect.starts_with("caption ")) {
            screen_.nextCaption = effect.substr(8);
        } else {
            Effects().at(effect)(*this);
        }
    }
}

const std::map<std::string, WizardTable::Effect>& WizardTable::Effects() {
    using T = WizardTable;
    static const std::map<std::string, Effect> kEffects{
        {"Back on", [](T& self) { self.screen_.back = true; }},
        {"Back off", [](T& self) { self.screen_.back = false; }},
        {"Next on", [](T& self) { self.screen_.next = true; }},
        {"Next off without a name", [](T& self) { self.screen_.next = self.hasName_; }},
        {"save Next", [](T& self) { self.savedNext_ = self.screen_.next; }},
        {"restore Next", [](T& self) { self.screen_.next = self.savedNext_; }},
        {"Finish visible", [](T& self) { self.screen_.finishVisible = true; }},
        {"Finish hidden", [](T& self) { self.screen_.finishVisible = false; }},
        {"Finish on", [](T& self) { self.screen_.finishEnabled = true; }},
        {"Finish off", [](T& self) { self.screen_.finishEnabled = false; }},
        {"Finish off at count 1",
         [](T& self) { self.screen_.finishEnabled = self.screen_.finishEnabled && self.screen_.count != 1; }},
        {"single source", [](T& self) { self.ShowSource(self.forSingle_); }},
        {"several's source", [](T& self) { self.ShowSource(self.forSeveral_); }},
        {"build",
         [](T& self) {
             self.screen_.count = 1;
             self.screen_.commands[0] = self.Command();
         }},
        {"add",
         [](T& self) {
             const auto slot = static_cast<std::size_t>(self.screen_.count);
             self.screen_.commands.at(slot) = self.Command();
             self.screen_.boxes.at(slot) = self.picked_.text;
         }},
        {"count 0", [](T& self) { self.screen_.count = 0; }},
        {"count 5", [](T& self) { self.screen_.count = 5; }},
        {"count + 1", [](T& self) { ++self.screen_.count; }},
        {"count - 1", [](T& self) { --self.screen_.count; }},
        {"5 to 4", [](T& self) { self.screen_.count = std::min(self.screen_.count, 4); }},
        {"clear slot [count]",
         [](T& self) {
             const auto slot = static_cast<std::size_t>(self.screen_.count);
             self.screen_.commands.at(slot).clear();
             self.screen_.boxes.at(slot).clear();
         }},
        {"mark", [](T& self) { self.screen_.marked = self.screen_.count; }},
        {"commit", [](T& self) { self.screen_.committed = true; }}};
    return kEffects;
}

void WizardTable::ShowSource(ProgramSource source) {
    const auto found = dialog_.selected.find(source);
    const PickedItem item = found == dialog_.selected.end() ? PickedItem() : found->second;
    screen_.next = item.kind != PickedItem::Kind::None &&
                   (source != ProgramSource::IeFavorites || IsUrl(item)) &&
                   (source != ProgramSource::AllFiles || item.key != L"My Computer");
    if (screen_.next) {
        picked_ = item;
    }
}

ProgramSource WizardTable::FirstForSeveral() const {
    if (!dialog_.sources.StartMenuFolder().empty()) {
        return ProgramSource::StartMenu;
    }
    return dialog_.sources.OffersIeFavorites() ? ProgramSource::IeFavorites : ProgramSource::AllFiles;
}

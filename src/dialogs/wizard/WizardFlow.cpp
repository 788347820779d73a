#include "dialogs/wizard/WizardFlow.h"

#include "browse/Paths.h"
#include "platform/FileSystem.h"
#include "settings/GlobalValue.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr int kLastSlot = kSlots - 1;

constexpr std::array<ProgramSource, kProgramSourceCount> kAllSources{
    ProgramSource::StartMenu, ProgramSource::MediaCenter, ProgramSource::IeFavorites, ProgramSource::AllFiles,
    ProgramSource::ShortcutKey};

} // namespace

enum class WizardFlow::Condition {
    Always,
    ForButton,
    Several, ///< launch option 1 or 2
    CountIs4,
    CountIs0,
    CountBelow5,
};

enum class WizardFlow::Effect {
    ShowSelectButton,
    ShowSelectLaunchMethod,
    ShowSelectMenu,
    ShowSelectProgramForSingle,
    ShowFinish,
    ShowButtonName,
    ShowSomePrograms,
    ShowProgramList,
    HideSomePrograms, ///< with the program list
    ShowSource,
    SourceForSingle,
    SourceForSeveral,
    BackOn,
    BackOff,
    NextOn,
    NextOff,
    NextByName,
    SaveNext,
    RestoreNext,
    CaptionNext,
    CaptionFinish,
    FinishVisible,
    FinishHidden,
    FinishOn,
    FinishOff,
    BuildSingle,
    AddProgram,
    CountUp,
    CountZero,
    DropFifth,
    RemoveLast,
    MarkSlot,
    Commit,
};

/// The first row of the page that fits the action and the condition is done; after it, every "then" row that
/// fits.
struct WizardFlow::Row {
    enum class When { Any, Next, NotNext, Back, Finish };

    WizardPage page;
    When when;
    Condition condition;
    std::vector<Effect> effects;
    std::optional<WizardPage> next; ///< nothing: a "then" row

    [[nodiscard]] bool Fits(WizardPage current, WizardAction action) const {
        switch (when) {
        case When::Any:
            return page == current;
        case When::Next:
            return page == current && action == WizardAction::Next;
        case When::NotNext:
            return page == current && action != WizardAction::Next;
        case When::Back:
            return page == current && action == WizardAction::Back;
        case When::Finish:
            return page == current && action == WizardAction::Finish;
        }
        return false;
    }
};

// NOLINTNEXTLINE(readability-function-size): one row a page and action
const std::vector<WizardFlow::Row>& WizardFlow::Table() {
    using P = WizardPage;
    using C = Condition;
    using E = Effect;
    using W = Row::When;
    static const std::vector<Row> kTable{
        {P::NotShown,
         W::Any,
         C::ForButton,
         {E::ShowSelectLaunchMethod, E::BackOff, E::NextOn},
         P::SelectLaunchMethod},
        {P::NotShown, W::Any, C::Always, {E::ShowSelectButton, E::BackOff, E::NextOn}, P::SelectButton},

        {P::SelectButton, W::Any, C::Always, {E::ShowSelectLaunchMethod, E::BackOn}, P::SelectLaunchMethod},

        {P::SelectLaunchMethod, W::NotNext, C::Always, {E::ShowSelectButton, E::BackOff}, P::SelectButton},
        {P::SelectLaunchMethod, W::Next, C::Several, {E::ShowButtonName, E::NextByName}, P::ButtonName},
        {P::SelectLaunchMethod, W::Next, C::Always, {E::ShowSelectMenu, E::SourceForSingle}, P::SelectMenu},
        {P::SelectLaunchMethod, W::Next, C::ForButton, {E::BackOn}, std::nullopt},

        {P::SelectMenu,
         W::NotNext,
         C::ForButton,
         {E::BackOff, E::ShowSelectLaunchMethod},
         P::SelectLaunchMethod},
        {P::SelectMenu, W::NotNext, C::Always, {E::ShowSelectLaunchMethod}, P::SelectLaunchMethod},
        {P::SelectMenu,
         W::Next,
         C::Always,
         {E::ShowSelectProgramForSingle, E::ShowProgramList, E::ShowSource},
         P::SelectProgramForSingle},

        {P::SelectProgramForSingle, W::NotNext, C::Always, {E::ShowSelectMenu, E::NextOn}, P::SelectMenu},
        {P::SelectProgramForSingle,
         W::Next,
         C::Always,
         {E::BuildSingle, E::ShowFinish, E::CaptionFinish, E::SaveNext, E::NextOn},
         P::Finish},

        {P::Finish, W::Next, C::Always, {E::Commit}, P::NotShown},
        {P::Finish,
         W::NotNext,
         C::Several,
         {E::CaptionNext, E::ShowSomePrograms, E::FinishVisible, E::ShowProgramList, E::DropFifth,
          E::MarkSlot},
         P::SomePrograms},
        {P::Finish,
         W::NotNext,
         C::Always,
         {E::CaptionNext, E::ShowSelectProgramForSingle, E::ShowProgramList, E::CountZero},
         P::SelectProgramForSingle},
        {P::Finish, W::Any, C::Always, {E::RestoreNext}, std::nullopt},

        {P::ButtonName,
         W::NotNext,
         C::ForButton,
         {E::BackOff, E::NextOn, E::ShowSelectLaunchMethod},
         P::SelectLaunchMethod},
        {P::ButtonName, W::NotNext, C::Always, {E::NextOn, E::ShowSelectLaunchMethod}, P::SelectLaunchMethod},
        {P::ButtonName,
         W::Next,
         C::Always,
         {E::ShowSomePrograms, E::FinishVisible, E::FinishOff, E::SourceForSeveral, E::ShowSource,
          E::ShowProgramList, E::MarkSlot},
         P::SomePrograms},

        {P::SomePrograms,
         W::Next,
         C::CountIs4,
         {E::AddProgram, E::CountUp, E::FinishHidden, E::HideSomePrograms, E::CaptionFinish, E::ShowFinish,
          E::SaveNext, E::NextOn},
         P::Finish},
        {P::SomePrograms, W::Next, C::Always, {E::AddProgram, E::CountUp, E::FinishOn}, P::SomePrograms},
        {P::SomePrograms,
         W::Finish,
         C::Always,
         {E::HideSomePrograms, E::FinishHidden, E::CaptionFinish, E::ShowFinish, E::SaveNext, E::NextOn},
         P::Finish},
        {P::SomePrograms,
         W::Back,
         C::CountIs0,
         {E::HideSomePrograms, E::ShowButtonName, E::NextOn, E::FinishHidden},
         P::ButtonName},
        {P::SomePrograms, W::Back, C::Always, {E::RemoveLast}, P::SomePrograms},
        {P::SomePrograms, W::Any, C::CountBelow5, {E::MarkSlot}, std::nullopt},
    };
    return kTable;
}

WizardFlow::WizardFlow(Surroundings surroundings, bool forButton)
    : surroundings_(std::move(surroundings)), forButton_(forButton) {
    slot_.Exec = L"M";
    const auto several = std::find_if(kAllSources.begin(), kAllSources.end(),
                                      [this](ProgramSource source) { return OffersForSeveral(source); });
    if (several != kAllSources.end()) {
        checkedForSeveral_ = *several;
        checkedForSingle_ = *several;
        source_ = *several;
    }
}

bool WizardFlow::OffersForSingle(ProgramSource source) const {
    const ProgramSources& sources = surroundings_.sources;
    switch (source) {
    case ProgramSource::StartMenu:
        return !sources.StartMenuFolder().empty();
    case ProgramSource::MediaCenter:
        return sources.OffersMediaCenter();
    case ProgramSource::IeFavorites:
        return sources.OffersIeFavorites() && !sources.FavoritesFolder().empty();
    case ProgramSource::ShortcutKey:
        return !sources.ShortcutKeys().empty();
    default:
        return true;
    }
}

bool WizardFlow::OffersForSeveral(ProgramSource source) const {
    return !IsList(source) && OffersForSingle(source);
}

void WizardFlow::Start() {
    if (page_ == WizardPage::NotShown && !committed_) {
        Step(WizardAction::None);
    }
}

void WizardFlow::Next() {
    if (nextEnabled_ && !committed_) {
        Step(WizardAction::Next);
    }
}

void WizardFlow::Back() {
    if (backEnabled_) {
        Step(WizardAction::Back);
    }
}

void WizardFlow::PressFinish() {
    if (finishVisible_ && finishEnabled_) {
        Step(WizardAction::Finish);
    }
}

void WizardFlow::Step(WizardAction action) {
    const WizardPage page = page_;
    const std::vector<Row>& table = Table();
    const auto fits = [&](const Row& row) { return row.Fits(page, action) && Holds(row.condition); };
    const auto chosen = std::find_if(table.begin(), table.end(),
                                     [&](const Row& row) { return row.next.has_value() && fits(row); });
    if (chosen == table.end()) {
        return; // the button does nothing on this page
    }
    HideFramesOfPage();
    for (const Effect effect : chosen->effects) {
        Do(effect);
    }
    page_ = *chosen->next;
    for (const Row& row : table) {
        if (!row.next && fits(row)) {
            for (const Effect effect : row.effects) {
                Do(effect);
            }
        }
    }
}

bool WizardFlow::Holds(Condition condition) const {
    switch (condition) {
    case Condition::Always:
        return true;
    case Condition::ForButton:
        return forButton_;
    case Condition::Several:
        return launchOption_ != 0;
    case Condition::CountIs4:
        return slot_.NumAP == kLastSlot;
    case Condition::CountIs0:
        return slot_.NumAP <= 0;
    case Condition::CountBelow5:
        return slot_.NumAP < kMaxPrograms;
    }
    return false;
}

void WizardFlow::HideFramesOfPage() {
    switch (page_) {
    case WizardPage::SelectButton:
        Show(WizardFrame::SelectButton, false);
        break;
    case WizardPage::SelectLaunchMethod:
        Show(WizardFrame::SelectLaunchMethod, false);
        break;
    case WizardPage::SelectMenu:
        Show(WizardFrame::SelectMenu, false);
        break;
    case WizardPage::SelectProgramForSingle:
        Show(WizardFrame::SelectProgramForSingle, false);
        Show(WizardFrame::ProgramList, false);
        break;
    case WizardPage::Finish:
        Show(WizardFrame::Finish, false);
        break;
    case WizardPage::ButtonName:
        Show(WizardFrame::ButtonName, false);
        break;
    default:
        break; // the page of several programs often follows itself: its rows hide it
    }
}

void WizardFlow::Do(Effect effect) {
    switch (effect) {
    case Effect::ShowSelectButton:
        return Show(WizardFrame::SelectButton);
    case Effect::ShowSelectLaunchMethod:
        return Show(WizardFrame::SelectLaunchMethod);
    case Effect::ShowSelectMenu:
        return Show(WizardFrame::SelectMenu);
    case Effect::ShowSelectProgramForSingle:
        return Show(WizardFrame::SelectProgramForSingle);
    case Effect::ShowFinish:
        return Show(WizardFrame::Finish);
    case Effect::ShowButtonName:
        return Show(WizardFrame::ButtonName);
    case Effect::ShowSomePrograms:
        return Show(WizardFrame::SomePrograms);
    case Effect::ShowProgramList:
        return Show(WizardFrame::ProgramList);
    case Effect::HideSomePrograms:
        Show(WizardFrame::SomePrograms, false);
        return Show(WizardFrame::ProgramList, false);
    case Effect::ShowSource:
        return ShowSource();
    case Effect::SourceForSingle:
        source_ = checkedForSingle_;
        return;
    case Effect::SourceForSeveral:
        source_ = checkedForSeveral_;
        return;
    case Effect::BackOn:
        backEnabled_ = true;
        return;
    case Effect::BackOff:
        backEnabled_ = false;
        return;
    case Effect::NextOn:
        nextEnabled_ = true;
        return;
    case Effect::NextOff:
        nextEnabled_ = false;
        return;
    case Effect::NextByName:
        nextEnabled_ = nextEnabled_ && !buttonName_.empty();
        return;
    case Effect::SaveNext:
        savedNextEnabled_ = nextEnabled_;
        return;
    case Effect::RestoreNext:
        nextEnabled_ = savedNextEnabled_;
        return;
    case Effect::CaptionNext:
        nextSaysFinish_ = false;
        return;
    case Effect::CaptionFinish:
        nextSaysFinish_ = true;
        return;
    default:
        return DoToPrograms(effect);
    }
}

void WizardFlow::DoToPrograms(Effect effect) {
    switch (effect) {
    case Effect::FinishVisible:
        finishVisible_ = true;
        return;
    case Effect::FinishHidden:
        finishVisible_ = false;
        return;
    case Effect::FinishOn:
        finishEnabled_ = true;
        return;
    case Effect::FinishOff:
        finishEnabled_ = false;
        return;
    case Effect::BuildSingle:
        return BuildSingleProgram();
    case Effect::AddProgram:
        return AddProgram();
    case Effect::CountUp:
        ++slot_.NumAP;
        return;
    case Effect::CountZero:
        slot_.NumAP = 0;
        return;
    case Effect::DropFifth:
        return DropFifthProgram();
    case Effect::RemoveLast:
        return RemoveLastProgram();
    case Effect::MarkSlot:
        markedSlot_ = slot_.NumAP;
        return;
    case Effect::Commit:
        Globals().EditedButtonSlot = slot_;
        committed_ = true;
        return;
    default:
        return;
    }
}

void WizardFlow::ChooseLaunchMethod(int option) {
    launchOption_ = option;
    letter_ = option == 1 ? L"S" : option == 2 ? L"P" : L"M";
}

void WizardFlow::ChooseSourceForSingle(ProgramSource source) {
    checkedForSingle_ = source;
    source_ = source;
    letter_ = source == ProgramSource::ShortcutKey ? L"K" : L"M";
}

void WizardFlow::ChooseSource(ProgramSource source) {
    checkedForSeveral_ = source;
    source_ = source;
    ShowSource();
}

void WizardFlow::SetButtonName(const std::wstring& name) {
    buttonName_ = name;
    nextEnabled_ = !name.empty();
}

bool WizardFlow::CanPick(ProgramSource source, const PickedItem& item) const {
    if (item.kind == PickedItem::Kind::None) {
        return false;
    }
    switch (source) {
    case ProgramSource::IeFavorites:
        return EndsInUrl(item.key);
    case ProgramSource::AllFiles:
        return !EqualsIgnoreCase(item.key, surroundings_.myComputer);
    default:
        return true;
    }
}

void WizardFlow::ShowSource() {
    shownSource_ = source_;
    nextEnabled_ = false;
    if (!source_) {
        return;
    }
    const PickedItem selected = surroundings_.selectionOf(*source_);
    if (CanPick(*source_, selected)) {
        nextEnabled_ = true;
        Pick(selected);
    }
}

void WizardFlow::Pick(const PickedItem& item) {
    const ProgramSources& sources = surroundings_.sources;
    bool& fromMediaCenter = Globals().MediaCenterPicked;
    fromMediaCenter = false;
    switch (item.kind) {
    case PickedItem::Kind::Tree:
        command_ = item.key;
        displayName_ = item.text;
        break;
    case PickedItem::Kind::MediaCenter: {
        const MediaCenterRow& row = sources.MediaCenterTable().at(item.row);
        command_ = row.commandLine;
        displayName_ = row.title;
        fromMediaCenter = true;
        break;
    }
    case PickedItem::Kind::ShortcutKey: {
        const ShortcutKeyRow& row = sources.ShortcutKeys().at(item.row);
        command_ = DecimalText(row.keyCode);
        displayName_ = row.name;
        break;
    }
    case PickedItem::Kind::None:
        break;
    }
}

void WizardFlow::ClickNode(const PickedItem& node) {
    if (node.kind != PickedItem::Kind::Tree) {
        return;
    }
    Pick(node);
    if (letter_ == L"K") {
        letter_ = L"M";
    }
    const bool favorite = EqualsIgnoreCase(node.rootText, surroundings_.favoritesRoot);
    nextEnabled_ =
        !EqualsIgnoreCase(node.key, surroundings_.myComputer) && (!favorite || EndsInUrl(node.key));
}

void WizardFlow::ClickRow(const PickedItem& row) {
    Pick(row);
}

void WizardFlow::PlaceAddress(int slot) {
    if (source_ != ProgramSource::IeFavorites || !EndsInUrl(command_)) {
        return;
    }
    const std::wstring address = surroundings_.addressOf(command_);
    slot_.AP(slot + 1) = BrowserCommand(address);
    slot_.Param(slot + 1) = address;
    slot_.Title(slot + 1) = displayName_;
}

void WizardFlow::BuildSingleProgram() {
    slot_.Name = IsFolder(surroundings_.files, command_) ? displayName_ : WithoutExtension(displayName_);
    slot_.Exec = source_ == ProgramSource::ShortcutKey ? L"K" : L"M";
    slot_.NumAP = 1;
    slot_.AP(1) = command_; // the parameter stays what an earlier pass made it
    slot_.Title(1).clear();
    if (Globals().MediaCenterPicked && source_ == ProgramSource::MediaCenter) {
        for (const MediaCenterRow& row : surroundings_.sources.MediaCenterTable()) {
            if (EqualsIgnoreCase(row.title, displayName_)) {
                slot_.Name = row.displayName;
                slot_.Title(1) = row.title;
            }
        }
    }
    if (source_ == ProgramSource::IeFavorites && EndsInUrl(command_)) {
        slot_.Name = displayName_;
    }
    PlaceAddress(0);
}

void WizardFlow::AddProgram() {
    const int slot = slot_.NumAP;
    ClearSlot(slot); // of what a single program may have left there
    slot_.Name = buttonName_;
    slot_.Exec = letter_;
    slot_.AP(slot + 1) = command_;
    programTexts_.at(static_cast<std::size_t>(slot)) = displayName_;
    PlaceAddress(slot);
}

void WizardFlow::ClearSlot(int slot) {
    slot_.AP(slot + 1).clear();
    slot_.Param(slot + 1).clear();
    slot_.Title(slot + 1).clear();
    programTexts_.at(static_cast<std::size_t>(slot)).clear();
}

void WizardFlow::DropFifthProgram() {
    if (slot_.NumAP == kMaxPrograms) {
        slot_.NumAP = kLastSlot;
    }
    ClearSlot(slot_.NumAP);
}

void WizardFlow::RemoveLastProgram() {
    if (slot_.NumAP == 1) {
        finishEnabled_ = false;
    }
    --slot_.NumAP;
    ClearSlot(slot_.NumAP);
}

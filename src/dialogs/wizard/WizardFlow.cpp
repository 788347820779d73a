#include "dialogs/wizard/WizardFlow.h"

#include "settings/GlobalValue.h"
#include "settings/StdModule.h"

#include <utility>

WizardFlow::WizardFlow(PickedItemServices services, bool forButton)
    : services_(std::move(services)), forButton_(forButton),
      page_(forButton ? WizardPage::SelectLaunchMethod : WizardPage::SelectButton),
      single_(services_.sources.Offered(SourceOffer::SeveralPrograms).front()), several_(single_) {
    for (const ProgramSource source : services_.sources.Offered(SourceOffer::SingleProgram)) {
        if (IsList(source)) { // opens with its first row selected
            selected_.at(static_cast<std::size_t>(source)) = PickedRow(services_.sources, source, 0);
        }
    }
}

bool WizardFlow::BackEnabled() const {
    return page_ != (forButton_ ? WizardPage::SelectLaunchMethod : WizardPage::SelectButton);
}

bool WizardFlow::NextEnabled() const {
    switch (page_) {
    case WizardPage::ButtonName:
        return !buttonName_.empty();
    case WizardPage::SelectProgramForSingle:
    case WizardPage::SomePrograms:
        return Selected() && IsProgram(*Selected());
    default:
        return true;
    }
}

std::optional<ProgramSource> WizardFlow::ShownSource() const {
    const bool picks = page_ == WizardPage::SelectProgramForSingle || page_ == WizardPage::SomePrograms;
    return picks ? std::optional(Source()) : std::nullopt;
}

const std::optional<PickedItem>& WizardFlow::Selected() const {
    return selected_.at(static_cast<std::size_t>(Source()));
}

void WizardFlow::Next() {
    if (!NextEnabled()) {
        return;
    }
    switch (page_) {
    case WizardPage::SelectButton:
        return GoTo(WizardPage::SelectLaunchMethod);
    case WizardPage::SelectLaunchMethod:
        return GoTo(Several() ? WizardPage::ButtonName : WizardPage::SelectMenu);
    case WizardPage::SelectMenu:
        return GoTo(WizardPage::SelectProgramForSingle);
    case WizardPage::SelectProgramForSingle:
        BuildSingleProgram();
        return GoTo(WizardPage::Finish);
    case WizardPage::ButtonName:
        return GoTo(WizardPage::SomePrograms);
    case WizardPage::SomePrograms:
        AddProgram();
        return GoTo(slot_.NumAP < kMaxPrograms ? WizardPage::SomePrograms : WizardPage::Finish);
    case WizardPage::Finish:
        Globals().EditedButtonSlot = slot_;
        return GoTo(WizardPage::NotShown);
    case WizardPage::NotShown:
        return;
    }
}

void WizardFlow::Back() {
    if (!BackEnabled()) {
        return;
    }
    switch (page_) {
    case WizardPage::SelectLaunchMethod:
        return GoTo(WizardPage::SelectButton);
    case WizardPage::SelectMenu:
    case WizardPage::ButtonName:
        return GoTo(WizardPage::SelectLaunchMethod);
    case WizardPage::SelectProgramForSingle:
        return GoTo(WizardPage::SelectMenu);
    case WizardPage::Finish:
        if (!Several()) {
            slot_.NumAP = 0;
            return GoTo(WizardPage::SelectProgramForSingle);
        }
        if (slot_.NumAP == kMaxPrograms) { // the fifth led here; Finish takes nothing away
            RemoveLastProgram();
        }
        return GoTo(WizardPage::SomePrograms);
    case WizardPage::SomePrograms:
        if (slot_.NumAP == 0) {
            return GoTo(WizardPage::ButtonName);
        }
        return RemoveLastProgram();
    case WizardPage::SelectButton:
    case WizardPage::NotShown:
        return;
    }
}

void WizardFlow::PressFinish() {
    if (FinishEnabled()) {
        GoTo(WizardPage::Finish);
    }
}

void WizardFlow::GoTo(WizardPage page) {
    page_ = page;
    TellWhatIsPicked();
}

void WizardFlow::ChooseSource(ProgramSource source) {
    several_ = source;
    TellWhatIsPicked();
}

void WizardFlow::TellWhatIsPicked() const {
    if (ShownSource() && NextEnabled()) {
        Globals().MediaCenterPicked = ShownSource() == ProgramSource::MediaCenter;
    }
}

void WizardFlow::Click(const std::optional<PickedItem>& item) {
    selected_.at(static_cast<std::size_t>(Source())) = item;
    Globals().MediaCenterPicked = Source() == ProgramSource::MediaCenter;
}

void WizardFlow::BuildSingleProgram() {
    const PickedItem& item = *Selected();
    ProgramEntry program = ProgramOf(item, services_);
    if (!IsFavorite(item)) {
        program.Param = slot_.Program(1).Param; // stays what an earlier pass made it
    }
    slot_.Program(1) = program;
    slot_.Name = NameOf(item, services_.files);
    slot_.Exec = item.source == ProgramSource::ShortcutKey ? L"K" : L"M";
    slot_.NumAP = 1;
    if (item.source == ProgramSource::MediaCenter) {
        for (const MediaCenterRow& row : services_.sources.MediaCenterTable()) {
            if (EqualsIgnoreCase(row.title, item.name)) {
                slot_.Name = row.displayName;
                slot_.Program(1).Title = row.title;
            }
        }
    }
}

void WizardFlow::AddProgram() {
    const auto number = ++slot_.NumAP;
    slot_.Name = buttonName_;
    slot_.Exec = launchOption_ == 1 ? L"S" : L"P";
    slot_.Program(number) = ProgramOf(*Selected(), services_);
    programTexts_.at(static_cast<std::size_t>(number - 1)) = Selected()->name;
}

void WizardFlow::RemoveLastProgram() {
    slot_.Program(slot_.NumAP) = {};
    programTexts_.at(static_cast<std::size_t>(slot_.NumAP - 1)).clear();
    --slot_.NumAP;
}

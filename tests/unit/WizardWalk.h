#pragma once

#include "WizardTable.h"

/// The wizard and its page table side by side: after each event both must have come to the same.
struct WizardWalk : WizardDialog {
    void Begin(bool forButton) {
        table.reset();
        Open(forButton);
        table.emplace(*this, forButton);
        Compare();
    }
    void Next() {
        flow->Next();
        table->Step("Next");
        Compare();
    }
    void Back() {
        flow->Back();
        table->Step("Back");
        Compare();
    }
    void Finish() {
        flow->PressFinish();
        table->Step("Finish");
        Compare();
    }
    void Method(int option) {
        flow->ChooseLaunchMethod(option);
        table->ChooseLaunchMethod(option);
        Compare();
    }
    void SingleSource(Source source) {
        flow->ChooseSourceForSingle(source);
        table->ChooseSourceForSingle(source);
        Compare();
    }
    void SeveralSource(Source source) {
        flow->ChooseSource(source);
        table->ChooseSource(source);
        Compare();
    }
    void Name(const std::wstring& name) {
        flow->SetButtonName(name);
        table->SetButtonName(name);
        Compare();
    }
    void Pick(const PickedItem& item) {
        Click(item);
        table->Click(item);
        Compare();
    }

    void Compare() const { EXPECT_EQ(ScreenOf(*flow), table->Screen()); }

    std::optional<WizardTable> table;
};

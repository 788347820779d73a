#pragma once

#include "Figures.h"
#include "Scene.h"
#include "SourceUse.h"
#include "TestPrinter.h"
#include "Watch.h"

#include <memory>
#include <string>

/// A number that the caller of the tests may set.
int Wanted(const char* environmentVariable, int otherwise);

/// The program with something in every source and with a printer, and the ways into all of its forms.
class StormUse : public SourceUse {
protected:
    StormUse();
    void TearDown() override;

    /// Starts the program, and watches it from then on.
    void StartWatched(const std::wstring& arguments);

    /// The same, and has every form shown once, so that what is made only once is there.
    void StartWarm();

    void ShowPage(int page) const;
    /// Presses a button and waits for what it opens.
    void OpenFrom(int page, int control) const;
    void PressIn(const UiDriver::Window& form, int control) const;
    /// From the settings dialog, to the end.
    void Print() const;
    UiDriver::Window AwaitOver(const UiDriver::Window& owner) const;
    /// The question for a parameter, from the registration dialog on the first button.
    void AskParameter() const;

    /// Until nothing changes any more. Fails when the program doesn't answer in time, or has two dialogs enabled.
    void Settle() const;

    /// Null before the program was started.
    [[nodiscard]] const Watch* TheWatch() const { return watch_.get(); }

    /// Whether the settings dialog is all there is to act on.
    bool Alone() const;

    /// Closes menus and dialogs until the settings dialog is alone, or the program has ended.
    void CloseAll() const;

    /// The same, and the dialog shows its first page and is at rest.
    void BackToDialog() const;

    /// Whether it isn't about to close.
    static bool Stays(const UiDriver::Window& window);

    /// Taken when the program is done with closing and drawing.
    Figures Held() const;

private:
    void CloseTop(const Scene& scene) const;

    TestPrinter printer_;
    std::unique_ptr<Watch> watch_;
};

#pragma once

#include "Figures.h"
#include "Scene.h"
#include "SourceUse.h"
#include "TestPrinter.h"

#include <string>

/// The program with something in every source and with a printer, and the ways into all of its forms.
class StormUse : public SourceUse {
protected:
    StormUse();
    void TearDown() override;

    /// A number that the caller of the tests may set.
    static int Number(const char* environmentVariable, int otherwise);

    /// Starts the program and has every form shown once, so that what is made only once is there.
    void StartWarm();

    void ShowPage(int page) const;
    /// Presses a button and waits for what it opens.
    void OpenFrom(int page, int control) const;
    void PressIn(const UiDriver::Window& form, int control) const;
    /// From the settings dialog, to the end.
    void Print() const;
    UiDriver::Window AwaitOver(const UiDriver::Window& owner) const;

    /// Until nothing changes any more. Fails when the program dies, or doesn't answer in time.
    void Settle() const;

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
};

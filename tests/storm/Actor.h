#pragma once

#include "Journal.h"
#include "Random.h"
#include "Scene.h"

#include <string>

/// A user who does anything anywhere, and other programs that send what they like. What comes next depends on
/// the random numbers and on what the program shows, and on nothing else.
class Actor {
public:
    Actor(Random& random, Journal& journal, UiDriver::Window dialog, std::wstring programPath)
        : random_(&random), journal_(&journal), dialog_(dialog), programPath_(std::move(programPath)) {}

    void Act(const Scene& scene);

    /// The settings dialog is left, in one of the ways there are.
    void Leave();

private:
    void InMenu(const UiDriver::Window& menu);
    void OnControl(const UiDriver::Window& form);
    void OnControl(const UiDriver::Window& form, const UiDriver::Control& control);
    void OnEdit(const UiDriver::Control& control);
    void OnCombo(const UiDriver::Control& control);
    void OnTabs(const UiDriver::Control& control);
    void OnItems(const UiDriver::Window& form, const UiDriver::Control& control);
    void DragFrom(const UiDriver::Window& form, const UiDriver::Control& control);
    void PressKey(const UiDriver::Window& form);
    void Type();
    void Move(const UiDriver::Window& form);
    void SendSystemMessage(const UiDriver::Window& form);
    void SendStrayCommand(const Scene& scene);
    void Scale(const UiDriver::Window& form);
    void Hover(const UiDriver::Window& form);
    void StartAgain();
    void Close(const Scene& scene);
    void Do(const std::string& kind, const std::string& on = {}) { journal_->Act(kind, on); }

    [[nodiscard]] POINT PointIn(const RECT& rect);
    [[nodiscard]] bool Spares(const UiDriver::Window& form);

    Random* random_;
    Journal* journal_;
    UiDriver::Window dialog_;
    std::wstring programPath_;
};

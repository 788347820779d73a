#pragma once

#include "driver/Driver.h"

#include <optional>
#include <string>
#include <vector>

/// What a program's user can act on at one moment.
struct Scene {
    std::optional<UiDriver::Window> menu;  ///< the innermost one
    std::vector<UiDriver::Window> active;  ///< forms and the system's dialogs that take input: should be one
    std::vector<UiDriver::Window> dialogs; ///< the same and those that wait for another

    bool inMenuMode = false;   ///< the keys go to a menu, even though none is shown
    bool activeIsForm = false; ///< and not one of the system's

    static Scene Of(DWORD processId);

    [[nodiscard]] const UiDriver::Window& Active() const { return active.front(); }

    /// The system's chooser of files, in which a random key could delete one.
    [[nodiscard]] bool ShowsFiles() const;
};

/// A fingerprint of all that a process shows: equal for two looks between which nothing has changed.
std::vector<std::size_t> Appearance(const UiDriver::Process& process);

/// Controls of the form that a click can reach now.
std::vector<UiDriver::Control> Reachable(const UiDriver::Window& form);

/// For logs: the same in every run, which window handles aren't.
std::string NameOf(const UiDriver::Window& window);
std::string NameOf(const UiDriver::Control& control);
std::string Description(const Scene& scene);

/// The same, the focus, and a fingerprint of what all controls show: the same in every run too.
std::string Outcome(const Scene& scene);

#pragma once

#include "launcher/LauncherKeys.h"
#include "ui/ModalForm.h"

#include <optional>
#include <vector>

class Launcher;
class StringTable;

/// The keys of the buttons: for each a launch key from a list, and any other key that is pressed in a box. What is
/// wrong with a key is said at once.
class frmKeys final : public ModalForm {
public:
    frmKeys(const StringTable& texts, Launcher& launcher);

    /// The keys after OK; nothing after Cancel.
    [[nodiscard]] const std::optional<AllKeys>& Chosen() const { return chosen_; }

protected:
    void OnCreate() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;

private:
    void CreateRow(int button);
    void ShowKeys();
    /// Reads the control, whose key has changed.
    void OnChange(int button, bool launchKey);
    void ShowProblem(std::optional<std::size_t> changed);

    const StringTable& texts_;
    Launcher& launcher_;
    AllKeys keys_;
    std::optional<AllKeys> chosen_;
};

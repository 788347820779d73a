#pragma once

#include "ui/Form.h"

#include <functional>

/// A form that stands over another one, or alone, until it ends. What it found out is read from it afterwards;
/// its window goes with it.
class ModalForm : public Form {
public:
    /// Shows the form and returns when it has ended. Until then its owner hears nobody; then the owner has the
    /// keyboard again, where it had it.
    void ShowModal() {
        ShowWhile([this] { RunLoop(); });
    }
    /// Early what the destructor does.
    void UnloadForm() { Unload(); }

protected:
    explicit ModalForm(Form* owner) : Form(owner) {}

    /// The same for something else than answering the user.
    void ShowWhile(const std::function<void()>& work);

    /// Prepares what is shown first. Returns what gets the keyboard; null: the first tab stop.
    virtual HWND OnShow() { return nullptr; }
    void OnClose() override { End(); }

private:
    void ShowOver(HWND owner, const std::function<void()>& work);
};

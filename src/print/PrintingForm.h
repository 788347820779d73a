#pragma once

#include "ui/Form.h"

#include <atomic>
#include <functional>
#include <memory>
#include <string>

class StringTable;

/// Stands over the form while the printer works, with a Cancel button.
class PrintingForm final : public Form {
public:
    PrintingForm(HWND owner, const StringTable& texts);

    /// Set when the user has given up.
    [[nodiscard]] std::shared_ptr<const std::atomic<bool>> GivenUp() const { return givenUp_; }

    /// Runs `print` on another thread, and returns when it has ended. A printer that doesn't notice soon that
    /// it was given up is left alone: `print` must own whatever it touches. False then, and when no thread could
    /// be had.
    bool Run(std::function<void()> print);

protected:
    void OnCreate() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;
    void OnClose() override;
    void OnTimer() override;
    bool OnPrivateMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    const StringTable& texts_;
    HANDLE ended_ = nullptr; ///< set when the printer has let go
    bool cancelled_ = false;
    ULONGLONG givenUpAt_ = 0; ///< ticks, in milliseconds
    std::shared_ptr<std::atomic<bool>> givenUp_ = std::make_shared<std::atomic<bool>>(false);
};

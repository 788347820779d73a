#pragma once

#include "ui/MessagePump.h"
#include "ui/ModalForm.h"

#include <functional>

class StringTable;

/// Stands over the form while something is printed, with a Cancel button.
class PrintingForm final : public ModalForm {
public:
    PrintingForm(Form& owner, const StringTable& texts);

    /// `print` runs while the form is shown, and asks GoOn.
    void PrintWhile(const std::function<void()>& print);

    /// Works off what waits, for `print` to ask again and again. False: the user has given up, or the program
    /// ends.
    [[nodiscard]] bool GoOn();

protected:
    void OnCreate() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;
    void OnClose() override;

private:
    const StringTable& texts_;
    MessagePump pump_{*this};
    bool givenUp_ = false;
};

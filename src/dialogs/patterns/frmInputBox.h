#pragma once

#include "ui/ModalForm.h"

#include <cstdint>
#include <string>
#include <vector>

class AnsiText;
class StringTable;

/// Answers of a modal dialog.
inline constexpr std::int16_t kStatusOk = 1;
inline constexpr std::int16_t kStatusCancel = 2;

/// A one-line question: a Pattern's name, checked, or any text with NoCheckFlag. Created for one question:
/// give it its texts, ShowModal, read the answer.
class frmInputBox final : public ModalForm {
public:
    frmInputBox(Form& owner, const StringTable& texts, const AnsiText& ansiText);

    void SetUserName(const std::wstring& name) { InputText(name); }
    [[nodiscard]] const std::wstring& GetUserName() const { return userName_; }
    /// kStatusOk after OK; kStatusCancel after Cancel, the close box or no answer at all.
    [[nodiscard]] std::int16_t GetButtonStatus() const { return buttonStatus_; }
    /// Names that are refused as already used.
    void SetUserNameList(std::vector<std::wstring> names) { usedNames_ = std::move(names); }

    /// True: any text is accepted.
    void NoCheckFlag(bool noCheck) { noCheck_ = noCheck; }
    /// The prompt.
    void SetMsgLabel(const std::wstring& text);
    [[nodiscard]] const std::wstring& InputText() const { return userName_; }
    void InputText(const std::wstring& text);
    void InputTitle(const std::wstring& title);

protected:
    void OnCreate() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;
    void OnClose() override;
    void OnActivate() override;

private:
    void Accept();
    [[nodiscard]] bool Refuse();
    void SelectAll();

    const StringTable& texts_;
    const AnsiText& ansiText_;
    std::vector<std::wstring> usedNames_;
    std::wstring userName_;
    std::int16_t buttonStatus_ = kStatusCancel;
    bool noCheck_ = false;
};

#pragma once

#include "ui/ModalForm.h"

#include <optional>
#include <string>

class AnsiText;
class PatternList;
class StringTable;

/// The pattern manager: adds, deletes, copies and renames Patterns. What it did is in the store when it
/// closes.
class frmManager final : public ModalForm {
public:
    frmManager(Form& owner, PatternList& patterns, const StringTable& texts, const AnsiText& ansiText);

protected:
    void OnCreate() override;
    SIZE OnLayout() override;
    void OnCommand(int id, int notification) override;
    void OnListKey(int id, WORD key) override;

private:
    void FillList(int selected);
    void EnableButtons();
    [[nodiscard]] int Selected() const;
    /// The name that the user chose, or nothing after Cancel.
    [[nodiscard]] std::optional<std::wstring> AskForName(int titleText, const std::wstring& initial);
    void Add();
    void Delete();
    void Copy();
    void Rename();

    const StringTable& texts_;
    const AnsiText& ansiText_;
    PatternList& patterns_;
};

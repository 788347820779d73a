#pragma once

#include "UiTest.h"

inline constexpr int kManagerTitleText = 3040;
inline constexpr int kNameListText = 3041;
inline constexpr int kAddText = 3042;
inline constexpr int kDeleteText = 3043;
inline constexpr int kCopyText = 3044;
inline constexpr int kRenameText = 3045;
inline constexpr int kCloseText = 3046;
inline constexpr int kWillBeDeletedText = 3047;
inline constexpr int kNameOkText = 3051;
inline constexpr int kNameCancelText = 3052;
inline constexpr int kEnterNameText = 3053;
inline constexpr int kNameUsedText = 3055;
inline constexpr int kInputErrorText = 3056;
inline constexpr int kNameEmptyText = 3057;
inline constexpr int kNameTooLongText = 3058;

/// The small form that asks for a pattern's name.
class NameQuestion {
public:
    explicit NameQuestion(UiDriver::Window form) : form_(form) {}

    const UiDriver::Window& Form() const { return form_; }
    UiDriver::Control Field() const { return form_.Control(IDC_txtInputBox); }

    /// Waits until the field has the focus and all of its text is selected.
    void AwaitSelectedText() const;

    void PressOk() const { form_.Control(IDC_cmdOK).Press(); }
    /// The last two wait until the form is gone.
    void Accept(const std::wstring& name) const;
    void Cancel() const;

private:
    UiDriver::Window form_;
};

/// The pattern manager over the settings dialog, on a keyboard that has all eight buttons.
class PatternManagerUse : public UiTest {
protected:
    PatternManagerUse();

    static std::wstring NewName() { return Local(L"Œuvre", L"作品"); }
    static std::vector<StoredPattern> SeededPatterns() { return {Seeded(1), Seeded(2), Seeded(3)}; }
    static std::vector<StoredPattern> ManyPatterns(int count);
    static StoredPattern Named(StoredPattern pattern, const std::wstring& name);
    static std::vector<std::wstring> NamesIn(const std::vector<StoredPattern>& patterns);

    /// Replaces the user's patterns in the registry.
    void WriteStore(int current, const std::vector<StoredPattern>& patterns) const;

    /// Expects the whole store to be what was seeded with these patterns in it. It leaves the store so.
    void ExpectStore(int current, const std::vector<StoredPattern>& patterns) const;
    void ExpectStoreUntouched() const { ExpectStore(1, SeededPatterns()); }

    void OpenManager(int button = IDC_cmdUserManager0);
    /// Waits for the manager that was asked for in another way.
    void AwaitManager();
    void StartManager();
    void CloseManager() const;

    const UiDriver::Window& Manager() const { return *manager_; }
    UiDriver::ListBox List() const { return Manager().List(IDC_lstUserList); }
    UiDriver::Control Button(int id) const { return Manager().Control(id); }

    /// Waits for the list to have this many entries and this one selected, and expects these names in it.
    void ExpectList(const std::vector<std::wstring>& names, int selected) const;

    /// Presses Add, Copy or Rename.
    NameQuestion AskName(int button) const;
    NameQuestion AwaitNameQuestion(int titleText) const;

    UiDriver::ModalBox AskDelete(int index) const;

    /// What a button sends when it is pressed, whether or not it is enabled.
    void SendCommand(int button) const;

    int FocusedId() const { return GetDlgCtrlID(Manager().FocusedHwnd()); }
    void AwaitFocus(int id) const;

    void AwaitDelete(bool enabled) const;

private:
    std::optional<UiDriver::Window> manager_;
};

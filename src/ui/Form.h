#pragma once

#include "ui/DialogFont.h"
#include "ui/ScopedFlag.h"

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

/// One control of a form: what it is, the row in which it stands on its parent, how it looks.
struct ControlRow {
    int id = 0;
    const wchar_t* windowClass = nullptr;
    DWORD style = 0;
    DluRect place;
    DWORD exStyle = 0;
};

/// A top-level window of the class "QLBUtlForm": a dialog that creates its controls from tables, in dialog
/// units of its own font, and lays them out anew when the scaling changes. One that is larger than its
/// monitor's work area scrolls.
class Form {
public:
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form();

    [[nodiscard]] HWND Window() const { return window_; }

    /// The control with this id of resource.h; the form must have it.
    [[nodiscard]] HWND Control(int id) const;
    [[nodiscard]] bool HasControl(int id) const { return controls_.contains(id); }

    /// Runs something modal over this form, a dialog or menu of the system's, which gets the form's window.
    /// Meanwhile IsAsking is true: the form is disabled for its user, but not for another program's messages,
    /// which must not open a second dialog underneath or close the form.
    template <class Dialog> auto RunOver(Dialog dialog) {
        const ScopedFlag asking(asking_);
        return dialog(window_);
    }
    [[nodiscard]] bool IsAsking() const { return asking_; }
    /// End was called; the loop is on its way out.
    [[nodiscard]] bool HasEnded() const { return ended_; }
    /// A message box over this form. Returns the button (IDYES, ...), or 0 when the box could not be shown.
    int Ask(const std::wstring& text, const std::wstring& title, UINT style);

    /// Answers messages until the form has ended, or the program.
    void RunLoop();
    /// Answers one message of a loop.
    void Answer(MSG& message);

protected:
    /// A form over another one, or with null on its own.
    explicit Form(Form* owner = nullptr) : owner_(owner) {}

    /// Creates the hidden window, then calls OnCreate. False when the system refuses.
    bool CreateHidden(const std::wstring& fontName);
    void Close() { DestroyWindow(window_); }
    /// The loop of the form ends, and the form hears nobody any more. Its window stays.
    void End();

    [[nodiscard]] Form* Owner() const { return owner_; }
    [[nodiscard]] HWND OwnerWindow() const { return owner_ == nullptr ? nullptr : owner_->window_; }
    /// What the destructor does: the window goes, without a word to what derives from this.
    void Unload();

    /// The focus to the first tab stop of the form or of one of its pages.
    void FocusFirst(HWND parent);
    void Focus(HWND control);
    void FocusControl(int id) { Focus(Control(id)); }

    /// A hidden child dialog that holds a page's controls; its messages come to this form. It lies on top of
    /// the form's other controls and comes first in the tab order. `place` in pixels of the client area.
    HWND AddPage(const std::wstring& name, const RECT& place);
    /// A hidden child dialog with an id, for controls that come and go together; anywhere on the form. Screen
    /// readers say its name.
    HWND AddFrame(int id, const std::wstring& name);
    /// Creates a control on the form or on a page. One whose place has no width is placed by OnLayout, and
    /// stands at `pixels` until then.
    HWND AddControl(HWND parent, const ControlRow& row, const std::wstring& text = {}, RECT pixels = {});

    [[nodiscard]] const DialogFont& TextFont() const { return *font_; }
    [[nodiscard]] UINT Dpi() const { return font_->Dpi(); }

    virtual void OnCreate() = 0;
    /// Places what dialog units can't; returns the client size in pixels.
    virtual SIZE OnLayout() = 0;
    virtual void OnCommand(int id, int notification) = 0;
    /// Returns what the control wants to know.
    virtual LRESULT OnNotify(NMHDR& /*header*/) { return 0; }
    /// True while the pointer over the form is an hourglass.
    [[nodiscard]] virtual bool ShowsHourglass() const { return false; }
    virtual void OnDrawItem(const DRAWITEMSTRUCT& /*item*/) {}
    virtual void OnMouseOverPage() {}
    /// F1. False leaves it to the form's owner.
    virtual bool OnHelpKey() { return false; }
    virtual void OnActivate() {}
    /// Does one step of what can wait until no message does. False when there was nothing to do.
    virtual bool OnIdle() { return false; }
    /// A key in a list box with LBS_WANTKEYBOARDINPUT.
    virtual void OnListKey(int /*id*/, WORD /*key*/) {}
    /// The close box.
    virtual void OnClose() { Close(); }
    virtual void OnDestroy() {}
    /// Messages from WM_APP on. True when handled.
    virtual bool OnPrivateMessage(UINT /*message*/, WPARAM /*wParam*/, LPARAM /*lParam*/) { return false; }
    /// A key on its way to a control. True keeps it from there.
    virtual bool OnKeyDown(WPARAM /*key*/) { return false; }
    /// A mouse message on its way to the form or a control. True keeps it from there.
    virtual bool OnMouseMessage(const MSG& /*message*/) { return false; }
    /// The mouse was taken away from the window that had captured it.
    virtual void OnCaptureLost() {}
    /// A right click at a point of the screen, or nothing for the keyboard's menu key. True when handled.
    virtual bool OnContextMenu(HWND /*control*/, std::optional<POINT> /*at*/) { return false; }
    /// The background of a static or read-only control; null for the usual one.
    virtual HBRUSH OnStaticColour(HWND /*control*/, HDC /*hdc*/) { return nullptr; }

private:
    /// First look at a message of a loop. True when the form has dealt with it.
    bool HandleDialogMessage(MSG& message);

    struct Placed {
        HWND window = nullptr;
        DluRect place;
    };

    static INT_PTR CALLBACK FormProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static INT_PTR CALLBACK PageProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<INT_PTR> OnControlMessage(HWND receiver, UINT message, WPARAM wParam, LPARAM lParam);
    void SetScaling(UINT dpi);
    /// Has OnLayout place what it places; returns the size of the whole window, within the work area.
    SIZE LayOut(const RECT& work);
    /// The same for a scaling.
    SIZE LayOutFor(UINT dpi, const RECT& work);
    /// Of the whole window, were it on a large monitor of that scaling.
    SIZE SizeAt(UINT dpi);
    /// The controls to where their rows say.
    void PlaceRows();
    /// Laid out, in the middle of the owner or of the screen.
    void Centre();
    /// A form with scroll bars follows the keyboard.
    void ShowFocus();
    void OnScalingChanged(UINT dpi, const RECT& suggested);

    HWND window_ = nullptr;
    Form* owner_;
    /// Of what stood over this form last, hidden and empty; goes with the window.
    HWND formerFrame_ = nullptr;
    bool ended_ = false;
    HWND shownFocus_ = nullptr; ///< the control that was last scrolled into view
    bool scaling_ = false;
    bool asking_ = false;
    std::wstring fontName_;
    std::unique_ptr<DialogFont> font_;
    std::vector<Placed> placed_;
    std::unordered_map<int, HWND> controls_;
};

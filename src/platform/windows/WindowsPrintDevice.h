#pragma once

#include "platform/PrintDevice.h"
#include "platform/windows/Handles.h"

#include <windows.h>

#include <functional>
#include <optional>
#include <string>

/// A device context of a printer (or of anything else that can be drawn on, for a look at the page).
class WindowsPrintDevice final : public PrintDevice {
public:
    /// Takes the context. `goOn` is asked before each line, and by the printer while it works; false: the user
    /// has given up. `page`: what the context is a picture of, where it is no printer's.
    explicit WindowsPrintDevice(
        HDC hdc, std::function<bool()> goOn = [] { return true; },
        const std::optional<PrintPage>& page = std::nullopt);
    ~WindowsPrintDevice() override;
    WindowsPrintDevice(const WindowsPrintDevice&) = delete;
    WindowsPrintDevice& operator=(const WindowsPrintDevice&) = delete;

    /// The document goes to this file or port instead of the printer's own.
    void OutputTo(const std::wstring& output) { output_ = output; }
    /// The face in use: "ＭＳ ゴシック", or another one with Japanese characters.
    [[nodiscard]] std::wstring FaceName() const;
    /// Why the first call failed, after which nothing more is printed: ERROR_PRINT_CANCELLED when the user has
    /// given up. ERROR_SUCCESS: none did.
    [[nodiscard]] DWORD Error() const { return error_; }

    [[nodiscard]] PrintPage Page() const override { return page_; }
    [[nodiscard]] PrintExtent Extent(const std::wstring& text, PrintFont font) const override;
    [[nodiscard]] bool StartDocument(const std::wstring& name) override;
    [[nodiscard]] bool StartPage() override;
    [[nodiscard]] bool EndPage() override;
    [[nodiscard]] bool EndDocument() override;
    void Abort() override;
    void Text(int x, int y, const std::wstring& text, PrintFont font) override;
    void Frame(const PrintRect& frame) override;

private:
    [[nodiscard]] HFONT FontFor(PrintFont font) const;
    /// Calls the system, unless something failed before. For calls that answer a number, at most 0 is failure.
    template <class Call> bool Succeeds(const Call& call);

    MemoryDc hdc_;
    PrintPage page_;
    std::function<bool()> goOn_;
    std::wstring output_;
    Font body_;
    Font title_;
    DWORD error_ = ERROR_SUCCESS;
};

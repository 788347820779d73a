#pragma once

#include "platform/PrintDevice.h"
#include "ui/Handles.h"

#include <windows.h>

#include <atomic>
#include <memory>
#include <optional>
#include <string>

/// A device context of a printer (or of anything else that can be drawn on, for a look at the page).
class WindowsPrintDevice final : public PrintDevice {
public:
    /// Takes the context. `givenUp` is asked while the printer works. `page`: what the context is a picture of,
    /// where it is no printer's.
    WindowsPrintDevice(HDC hdc, std::shared_ptr<const std::atomic<bool>> givenUp,
                       const std::optional<PrintPage>& page = std::nullopt);

    /// The document goes to this file or port instead of the printer's own.
    void OutputTo(const std::wstring& output) { output_ = output; }
    /// The face in use: "ＭＳ ゴシック", or another one with Japanese characters.
    [[nodiscard]] std::wstring FaceName() const;
    /// What GetLastError said of the first call that failed; 0: none did.
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
    [[nodiscard]] bool GivenUp() const { return *givenUp_; }
    /// Calls the system, and remembers why it failed. For calls that answer a number, at most 0 is failure.
    template <class Call> bool Succeeds(const Call& call);

    MemoryDc hdc_;
    PrintPage page_;
    std::shared_ptr<const std::atomic<bool>> givenUp_;
    std::wstring output_;
    Font body_;
    Font title_;
    DWORD error_ = 0;
};

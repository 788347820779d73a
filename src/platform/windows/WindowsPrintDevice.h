#pragma once

#include "platform/PrintDevice.h"
#include "ui/Handles.h"

#include <windows.h>

#include <atomic>
#include <memory>

/// A device context of a printer (or of anything else that can be drawn on, for a look at the page).
class WindowsPrintDevice final : public PrintDevice {
public:
    /// Takes the context. `givenUp` is asked while the printer works.
    WindowsPrintDevice(HDC hdc, std::shared_ptr<const std::atomic<bool>> givenUp);

    /// The document goes to this file or port instead of the printer's own ("FILE:": the system asks).
    void OutputTo(const std::wstring& output) { output_ = output; }
    /// The face in use: "ＭＳ ゴシック", or another fixed-pitch one with Japanese characters.
    [[nodiscard]] std::wstring FaceName() const;

    [[nodiscard]] PrintPage Page() const override;
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

    MemoryDc hdc_;
    std::shared_ptr<const std::atomic<bool>> givenUp_;
    std::wstring output_;
    Font body_;
    Font title_;
};

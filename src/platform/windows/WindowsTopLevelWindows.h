#pragma once

#include "platform/TopLevelWindows.h"

class WindowsTopLevelWindows final : public TopLevelWindows {
public:
    [[nodiscard]] WindowId Find(const std::wstring& className,
                                const std::optional<std::wstring>& title) const override;
    bool Post(WindowId window, std::uint32_t message, std::uintptr_t wParam,
              const std::int32_t* lParam) override;
    bool Send(WindowId window, std::uint32_t message, std::uintptr_t wParam,
              const std::int32_t* lParam) override;
    void BringForward(WindowId window) override;
};

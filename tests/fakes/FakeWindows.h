#pragma once

#include "fakes/FakeText.h"
#include "platform/TopLevelWindows.h"

#include <functional>
#include <map>
#include <set>
#include <vector>

/// Other programs' windows, and what was done to them. Class names and titles count without regard to case.
class FakeWindows final : public TopLevelWindows {
public:
    enum class Deed { Posted, Sent, BroughtForward };

    struct Event {
        Deed deed = Deed::Posted;
        WindowId window = 0;
        std::uint32_t message = 0;
        std::uintptr_t wParam = 0;
        std::optional<std::int32_t> lParamValue; ///< what lParam pointed to; nothing for a null pointer

        bool operator==(const Event&) const = default;
    };

    struct Search {
        std::wstring className;
        std::optional<std::wstring> title;

        bool operator==(const Search&) const = default;
    };

    /// Called while a message is sent, before it counts as answered.
    std::function<void()> whileSending;

    /// Where several windows fit, the one added first is found first.
    WindowId Add(const std::wstring& className, const std::wstring& title = {}) {
        const WindowId window = nextWindow_++;
        windows_[window] = {className, title};
        return window;
    }
    void Close(WindowId window) { windows_.erase(window); }
    /// The window exists, but no longer answers what is sent to it.
    void Hang(WindowId window) { hung_.insert(window); }

    [[nodiscard]] WindowId Find(const std::wstring& className,
                                const std::optional<std::wstring>& title) const override {
        searches_.push_back({className, title});
        for (const auto& [window, names] : windows_) {
            if (Lowered(names.className) == Lowered(className) &&
                (!title || Lowered(names.title) == Lowered(*title))) {
                return window;
            }
        }
        return 0;
    }

    bool Post(WindowId window, std::uint32_t message, std::uintptr_t wParam,
              const std::int32_t* lParam) override {
        events_.push_back({Deed::Posted, window, message, wParam, ValueAt(lParam)});
        return windows_.contains(window);
    }

    bool Send(WindowId window, std::uint32_t message, std::uintptr_t wParam,
              const std::int32_t* lParam) override {
        events_.push_back({Deed::Sent, window, message, wParam, ValueAt(lParam)});
        if (whileSending) {
            whileSending();
        }
        return windows_.contains(window) && !hung_.contains(window);
    }

    void BringForward(WindowId window) override {
        events_.push_back({Deed::BroughtForward, window, 0, 0, std::nullopt});
    }

    [[nodiscard]] const std::vector<Event>& Events() const { return events_; }
    [[nodiscard]] const std::vector<Search>& Searches() const { return searches_; }
    void ForgetEvents() {
        events_.clear();
        searches_.clear();
    }

private:
    struct Names {
        std::wstring className;
        std::wstring title;
    };

    [[nodiscard]] static std::optional<std::int32_t> ValueAt(const std::int32_t* lParam) {
        return lParam == nullptr ? std::nullopt : std::optional(*lParam);
    }

    WindowId nextWindow_ = 100;
    std::map<WindowId, Names> windows_;
    std::set<WindowId> hung_;
    std::vector<Event> events_;
    mutable std::vector<Search> searches_;
};

#pragma once

#include "Gate.h"
#include "fakes/FakeShellIcons.h"

#include <mutex>

/// A shell that answers when the test lets it, and may be asked by other threads.
class GatedIcons final : public ShellIcons {
public:
    mutable Gate gate;
    std::uint32_t refusedFlags = 0;

    void Put(const std::wstring& path, std::int32_t iconIndex, const std::wstring& typeName,
             const std::wstring& displayName) {
        icons_.Put(path, iconIndex, typeName, displayName);
    }
    /// Takes the answers of another shell.
    void AnswerLike(const ShellIcons& other) { other_ = &other; }

    [[nodiscard]] ShellFileInfo Query(const std::wstring& path, std::uint32_t flags) const override {
        {
            const std::lock_guard locked(lock_);
            asked_.push_back(path);
        }
        gate.Await();
        if ((flags & refusedFlags) != 0) {
            return {};
        }
        if (other_ != nullptr) {
            return other_->Query(path, flags);
        }
        const std::lock_guard locked(lock_);
        return icons_.Query(path, flags);
    }

    /// Paths, in the order of asking.
    [[nodiscard]] std::vector<std::wstring> Asked() const {
        const std::lock_guard locked(lock_);
        return asked_;
    }

private:
    mutable std::mutex lock_;
    mutable std::vector<std::wstring> asked_;
    FakeShellIcons icons_;
    const ShellIcons* other_ = nullptr;
};

#pragma once

#include "fakes/FakeText.h"
#include "platform/ShellIcons.h"

#include <map>
#include <utility>
#include <vector>

/// A shell that knows the icons it was given; every other path has icon 1 and the type "File".
class FakeShellIcons final : public ShellIcons {
public:
    static constexpr ImageListId kSystemImageList = 77;

    struct Question {
        std::wstring path;
        std::uint32_t flags = 0;

        bool operator==(const Question&) const = default;
    };

    bool fails = false;
    std::uint32_t refusedFlags = 0; ///< a query with any of these comes back empty
    mutable std::vector<Question> questions;

    void Put(const std::wstring& path, std::int32_t iconIndex, const std::wstring& typeName,
             const std::wstring& displayName = {}) {
        icons_[Lowered(path)] = {kSystemImageList, iconIndex, 0, displayName, typeName};
    }
    /// What even a query that fails leaves in the record.
    void PutFailing(const std::wstring& path, ShellFileInfo left) {
        left.imageList = 0;
        icons_[Lowered(path)] = std::move(left);
    }

    [[nodiscard]] ShellFileInfo Query(const std::wstring& path, std::uint32_t flags) const override {
        questions.push_back({path, flags});
        if (fails || (flags & refusedFlags) != 0) {
            return {};
        }
        const auto found = icons_.find(Lowered(path));
        return found == icons_.end() ? ShellFileInfo{kSystemImageList, 1, 0, path, L"File"} : found->second;
    }

private:
    std::map<std::wstring, ShellFileInfo> icons_;
};

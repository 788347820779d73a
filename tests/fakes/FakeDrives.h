#pragma once

#include "fakes/FakeText.h"
#include "platform/Drives.h"

#include <map>

/// Drives of any type; one that was never added is of no known type (1).
class FakeDrives final : public Drives {
public:
    static constexpr std::uint32_t kNoRoot = 1;
    static constexpr std::uint32_t kRamDisk = 6;

    std::vector<std::wstring> entries;
    mutable std::vector<std::wstring> questions; ///< roots whose type was asked for, in order

    void Add(const std::wstring& entry, const std::wstring& root, std::uint32_t type) {
        entries.push_back(entry);
        types_[Lowered(root)] = type;
    }

    [[nodiscard]] std::vector<std::wstring> Entries() const override { return entries; }
    [[nodiscard]] std::uint32_t Type(const std::wstring& root) const override {
        questions.push_back(root);
        const auto found = types_.find(Lowered(root));
        return found == types_.end() ? kNoRoot : found->second;
    }

private:
    std::map<std::wstring, std::uint32_t> types_;
};

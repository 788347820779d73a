#pragma once

#include "fakes/FakeText.h"
#include "platform/FileSystem.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// Disks in memory. Paths count without regard to case; a folder's entries keep the order in which they were
/// added. The first drive added is the current one.
class FakeFileSystem final : public FileSystem {
public:
    std::size_t blockSize = 4096;                ///< of Read
    mutable std::vector<std::wstring> searches;  ///< patterns of Find, in order
    mutable std::vector<std::wstring> reads;     ///< paths of Read, in order
    mutable std::vector<std::wstring> questions; ///< paths of Attributes, in order
    mutable std::size_t reportedEntries = 0;     ///< by Find, "." and ".." too
    mutable std::size_t reportedBytes = 0;       ///< by Read

    /// The folders above it are added where they are missing.
    void AddFolder(const std::wstring& path, std::uint32_t attributes = kAttributeDirectory) {
        Ensure(path, attributes);
    }
    void AddFile(const std::wstring& path, const std::string& content = {},
                 std::uint32_t attributes = kAttributeArchive) {
        Ensure(path, attributes).content = content;
    }
    /// A folder that shows what `target` holds, which may be a folder above it.
    void AddLink(const std::wstring& path, const std::wstring& target) {
        const Entry& shown = Ensure(target, kAttributeDirectory);
        Ensure(path, kAttributeDirectory).link = &shown;
    }
    /// Searches in the folder can't start.
    void MakeUnreadable(const std::wstring& path) { Ensure(path, kAttributeDirectory).readable = false; }
    /// The attributes can't be asked for; searches in the folder tell them all the same.
    void HideAttributes(const std::wstring& path) {
        Ensure(path, kAttributeDirectory).tellsAttributes = false;
    }
    void FailOpening(const std::wstring& file) { FailReadingAfter(file, kNeverOpens); }
    void FailReadingAfter(const std::wstring& file, std::size_t bytes) {
        Ensure(file, kAttributeArchive).readableBytes = bytes;
    }
    void Forget() {
        searches.clear();
        reads.clear();
        questions.clear();
        reportedEntries = 0;
        reportedBytes = 0;
    }

    [[nodiscard]] std::uint32_t Attributes(const std::wstring& path) const override {
        questions.push_back(path);
        const Entry* entry = path.empty() ? nullptr : At(path);
        return entry == nullptr || !entry->tellsAttributes ? kAttributesUnknown : entry->attributes;
    }

    [[nodiscard]] bool Find(const std::wstring& pattern,
                            const std::function<bool(const FoundFile&)>& take) const override {
        searches.push_back(pattern);
        const std::size_t end = pattern.rfind(L'\\');
        const Entry* folder = end == std::wstring::npos ? nullptr : At(pattern.substr(0, end));
        if (folder == nullptr || !IsFolder(*folder) || !folder->readable) {
            return false;
        }
        std::vector<FoundFile> found;
        if (!folder->isDrive) {
            found.push_back({L".", kAttributeDirectory});
            found.push_back({L"..", kAttributeDirectory});
        }
        for (const auto& entry : folder->Shown().entries) {
            found.push_back({entry->name, entry->attributes});
        }
        const std::wstring mask = Lowered(pattern.substr(end + 1));
        std::erase_if(found, [&](const FoundFile& file) { return !Matches(Lowered(file.name), mask); });
        for (const FoundFile& file : found) {
            ++reportedEntries;
            if (!take(file)) {
                break;
            }
        }
        return !found.empty();
    }

    [[nodiscard]] bool Read(const std::wstring& path,
                            const std::function<bool(std::string_view)>& take) const override {
        reads.push_back(path);
        const Entry* file = At(path);
        if (file == nullptr || IsFolder(*file) || file->readableBytes == kNeverOpens) {
            return false;
        }
        const std::string_view content = file->content;
        const std::string_view readable = content.substr(0, file->readableBytes.value_or(content.size()));
        for (std::size_t begin = 0; begin < readable.size(); begin += blockSize) {
            const std::string_view block = readable.substr(begin, blockSize);
            reportedBytes += block.size();
            if (!take(block)) {
                return true;
            }
        }
        return !file->readableBytes.has_value();
    }

private:
    static constexpr std::size_t kNeverOpens = static_cast<std::size_t>(-1);

    struct Entry {
        std::wstring name;
        std::uint32_t attributes = kAttributeDirectory;
        std::string content;
        bool isDrive = false;
        bool readable = true;
        bool tellsAttributes = true;
        std::optional<std::size_t> readableBytes; ///< nothing: all
        const Entry* link = nullptr;
        std::vector<std::unique_ptr<Entry>> entries;
        std::map<std::wstring, Entry*> byName; ///< lower case

        [[nodiscard]] const Entry& Shown() const { return link == nullptr ? *this : *link; }
        [[nodiscard]] Entry* Named(const std::wstring& wanted) const {
            const auto found = byName.find(Lowered(wanted));
            return found == byName.end() ? nullptr : found->second;
        }
    };

    [[nodiscard]] static bool IsFolder(const Entry& entry) {
        return (entry.attributes & kAttributeDirectory) != 0;
    }

    [[nodiscard]] static std::vector<std::wstring> Parts(const std::wstring& path) {
        std::vector<std::wstring> parts(1);
        for (const wchar_t c : path) {
            if (c == L'\\') {
                parts.emplace_back();
            } else {
                parts.back() += c;
            }
        }
        if (parts.size() > 1 && parts.back().empty()) {
            parts.pop_back();
        }
        return parts;
    }

    [[nodiscard]] const Entry* At(const std::wstring& path) const {
        const Entry* entry = &computer_;
        for (const std::wstring& part : Parts(path)) {
            if (entry == &computer_ && part.empty()) {
                entry = computer_.entries.empty() ? nullptr : computer_.entries.front().get();
            } else {
                entry = entry->Shown().Named(part);
            }
            if (entry == nullptr) {
                break;
            }
        }
        return entry;
    }

    Entry& Ensure(const std::wstring& path, std::uint32_t attributes) {
        Entry* entry = &computer_;
        bool added = false;
        for (const std::wstring& part : Parts(path)) {
            Entry* next = entry->Named(part);
            added = next == nullptr;
            if (added) {
                auto made = std::make_unique<Entry>();
                made->name = part;
                made->isDrive = entry == &computer_;
                next = entry->entries.emplace_back(std::move(made)).get();
                entry->byName[Lowered(part)] = next;
            }
            entry = next;
        }
        if (added) {
            entry->attributes = attributes;
        }
        return *entry;
    }

    [[nodiscard]] static bool Matches(std::wstring_view name, std::wstring_view mask) {
        if (mask.empty() || mask == L"*.*") {
            return !mask.empty();
        }
        if (mask.front() == L'*') {
            return mask.size() == 1 || Matches(name, mask.substr(1)) ||
                   (!name.empty() && Matches(name.substr(1), mask));
        }
        if (name.empty() || (mask.front() != L'?' && mask.front() != name.front())) {
            return false;
        }
        return mask.size() == 1 ? name.size() == 1 : Matches(name.substr(1), mask.substr(1));
    }

    Entry computer_;
};

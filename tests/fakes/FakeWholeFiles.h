#pragma once

#include "fakes/FakeText.h"
#include "platform/WholeFiles.h"

#include <map>
#include <set>

/// Files in memory. Names count without regard to case; "\\" and "/" both part folders.
class FakeWholeFiles final : public WholeFiles {
public:
    std::wstring localApplicationData = L"C:\\Users\\hanako\\AppData\\Local";
    bool refusesWrites = false;
    std::set<std::wstring> unreadable; ///< in lower case

    void Put(const std::wstring& path, const std::string& bytes) { files_[Lowered(path)] = {path, bytes}; }
    [[nodiscard]] std::optional<std::string> Content(const std::wstring& path) const {
        const auto found = files_.find(Lowered(path));
        return found == files_.end() ? std::nullopt : std::optional(found->second.bytes);
    }

    [[nodiscard]] std::optional<std::string> Read(const std::wstring& path,
                                                  std::size_t longest) const override {
        const auto content = Content(path);
        return unreadable.contains(Lowered(path)) || (content && content->size() > longest) ? std::nullopt
                                                                                            : content;
    }
    [[nodiscard]] FileWriting Write(const std::wstring& path, std::string_view bytes,
                                    bool mayReplace) override {
        if (Exists(path) && !mayReplace) {
            return FileWriting::AlreadyThere;
        }
        if (refusesWrites) {
            return FileWriting::Failed;
        }
        Put(path, std::string(bytes));
        return FileWriting::Done;
    }
    [[nodiscard]] bool Exists(const std::wstring& path) const override { return Content(path).has_value(); }
    [[nodiscard]] std::vector<std::wstring> Names(const std::wstring& folder) const override {
        std::vector<std::wstring> names;
        for (const auto& [key, file] : files_) {
            const std::size_t end = file.path.rfind(L'\\');
            if (end != std::wstring::npos && Lowered(file.path.substr(0, end)) == Lowered(folder)) {
                names.push_back(file.path.substr(end + 1));
            }
        }
        return names;
    }
    [[nodiscard]] bool MakeFolder(const std::wstring& /*folder*/) override { return !refusesWrites; }
    bool Remove(const std::wstring& path) override { return files_.erase(Lowered(path)) != 0; }
    [[nodiscard]] std::wstring LocalApplicationData() const override { return localApplicationData; }

private:
    struct File {
        std::wstring path;
        std::string bytes;
    };
    std::map<std::wstring, File> files_;
};

#pragma once

#include "fakes/FakeText.h"
#include "platform/Shell.h"

#include <set>
#include <vector>

/// A disk and a shell that opens everything, until the test says otherwise.
class FakeShell final : public Shell {
public:
    struct Opened {
        std::wstring file;
        std::wstring workingDirectory;
        WindowId owner = 0;

        bool operator==(const Opened&) const = default;
    };

    std::wstring programDirectory = L"C:\\Program Files\\QLBUtl";
    bool opens = true;
    std::vector<Opened> opened; ///< every attempt

    void AddFile(const std::wstring& path) { files_.insert(Lowered(path)); }

    [[nodiscard]] std::wstring ProgramDirectory() const override { return programDirectory; }
    [[nodiscard]] bool FileExists(const std::wstring& path) const override {
        return files_.contains(Lowered(path));
    }
    bool Open(const std::wstring& file, const std::wstring& workingDirectory, WindowId owner) override {
        opened.push_back({file, workingDirectory, owner});
        return opens;
    }

private:
    std::set<std::wstring> files_;
};

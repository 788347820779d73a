#include "Rigs.h"
#include "ScratchFolder.h"
#include "fakes/FakeShell.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsShell.h"

#include <gtest/gtest.h>

namespace {

constexpr std::int32_t kMyComputer = 17; // CSIDL_DRIVES: has no path
constexpr WindowId kNoWindow = 0;

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeShell shell;

    FakeRig() {
        shell.specialFolders[kFolderFavorites] = L"C:\\Users\\hanako\\Favorites";
        shell.specialFolders[kFolderAllUsersStartMenu] = L"C:\\ProgramData\\Start Menu";
    }
    void SetVariable(const std::wstring& name, const std::wstring& value) { shell.environment[name] = value; }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsShell shell;

    WindowsRig() = default;
    WindowsRig(const WindowsRig&) = delete;
    WindowsRig& operator=(const WindowsRig&) = delete;
    ~WindowsRig() {
        if (!variable_.empty()) {
            SetEnvironmentVariableW(variable_.c_str(), nullptr);
        }
    }
    void SetVariable(const std::wstring& name, const std::wstring& value) {
        variable_ = name;
        ASSERT_NE(SetEnvironmentVariableW(name.c_str(), value.c_str()), FALSE);
    }

private:
    std::wstring variable_;
};

template <class Rig> class ShellFoldersContract : public testing::Test {
protected:
    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(ShellFoldersContract, Rigs, RigName);

bool IsFullPath(const std::wstring& path) {
    return path.size() > 3 && path.substr(1, 2) == L":\\" && path.find(L'\0') == std::wstring::npos &&
           !path.ends_with(L'\\');
}

TYPED_TEST(ShellFoldersContract, TheWindowsDirectoryIsAFullPath) {
    EXPECT_TRUE(IsFullPath(this->rig_.shell.WindowsDirectory()));
}

TYPED_TEST(ShellFoldersContract, TheUserHasAName) {
    const std::wstring name = this->rig_.shell.UserName();
    EXPECT_FALSE(name.empty());
    EXPECT_EQ(name.find_first_of(std::wstring_view(L"\\\0", 2)), std::wstring::npos);
}

TYPED_TEST(ShellFoldersContract, TheStartMenuAndTheFavouritesHaveAPathBothWays) {
    for (const std::int32_t folder : {kFolderAllUsersStartMenu, kFolderFavorites}) {
        const auto path = this->rig_.shell.SpecialFolderPath(folder);
        ASSERT_TRUE(path.has_value()) << folder;
        EXPECT_TRUE(IsFullPath(*path)) << folder;
        EXPECT_EQ(this->rig_.shell.SpecialFolder(folder, kNoWindow), path) << folder;
    }
    EXPECT_NE(this->rig_.shell.SpecialFolderPath(kFolderFavorites),
              this->rig_.shell.SpecialFolderPath(kFolderAllUsersStartMenu));
}

TYPED_TEST(ShellFoldersContract, AFolderThatTheShellDoesNotKnowIsNothing) {
    for (const std::int32_t folder : {0x7777, 0x77, -5, kMyComputer}) {
        EXPECT_EQ(this->rig_.shell.SpecialFolder(folder, kNoWindow), std::nullopt) << folder;
        EXPECT_EQ(this->rig_.shell.SpecialFolderPath(folder), std::nullopt) << folder;
    }
}

TYPED_TEST(ShellFoldersContract, AVariableOfTheEnvironmentIsRead) {
    this->rig_.SetVariable(L"QLBUtlContract", L"C:\\表示\\Größe");
    EXPECT_EQ(this->rig_.shell.EnvironmentVariable(L"QLBUtlContract"), L"C:\\表示\\Größe");
}

TYPED_TEST(ShellFoldersContract, AVariableMayBeOfAnyLength) {
    for (const std::size_t length :
         {std::size_t{259}, std::size_t{260}, std::size_t{261}, std::size_t{20'000}}) {
        const std::wstring value = std::wstring(length - 1, L'v') + L'!';
        this->rig_.SetVariable(L"QLBUtlContract", value);
        EXPECT_EQ(this->rig_.shell.EnvironmentVariable(L"QLBUtlContract"), value);
    }
}

TYPED_TEST(ShellFoldersContract, AMissingVariableIsEmpty) {
    EXPECT_EQ(this->rig_.shell.EnvironmentVariable(L"QLBUtlContractMissing"), L"");
}

TEST(WindowsShellFolders, TheWindowsDirectoryIsTheSystems) {
    const WindowsShell shell;
    EXPECT_EQ(shell.WindowsDirectory(), WindowsDirectory());
    EXPECT_TRUE(std::filesystem::is_directory(shell.WindowsDirectory()));
}

TEST(WindowsShellFolders, TheUserIsTheSystems) {
    std::wstring name(257, L'\0');
    auto size = static_cast<DWORD>(name.size());
    ASSERT_NE(GetUserNameW(name.data(), &size), FALSE);
    name.resize(size - 1);
    EXPECT_EQ(WindowsShell().UserName(), name);
}

TEST(WindowsShellFolders, TheFavouritesAreTheUsers) {
    const WindowsShell shell;
    const std::wstring profile = shell.EnvironmentVariable(L"USERPROFILE");
    ASSERT_FALSE(profile.empty());
    const std::wstring favourites = shell.SpecialFolderPath(kFolderFavorites).value_or(L"");
    EXPECT_TRUE(favourites.starts_with(profile + L'\\')) << ToAnsi(favourites);
}

} // namespace

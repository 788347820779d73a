#include "Rigs.h"
#include "ScratchFolder.h"
#include "Waiting.h"
#include "fakes/FakeShell.h"
#include "platform/windows/Ansi.h"
#include "platform/windows/WindowsShell.h"

namespace {

std::wstring ThisProgram() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return path;
}

class FakeRig {
public:
    static constexpr const char* kName = "Fake";
    FakeShell shell;

    FakeRig() {
        const std::wstring program = ThisProgram();
        shell.programDirectory = program.substr(0, program.rfind(L'\\'));
        shell.AddFile(program);
    }
    [[nodiscard]] std::wstring AddFile(const std::wstring& name) {
        shell.AddFile(L"C:\\Contract\\" + name);
        return L"C:\\Contract\\" + name;
    }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";
    WindowsShell shell;

    [[nodiscard]] std::wstring AddFile(const std::wstring& name) const {
        WriteBytes(folder_.File(name), "x");
        return folder_.File(name);
    }

private:
    ScratchFolder folder_;
};

template <class Rig> class ShellContract : public testing::Test {
protected:
    Rig rig_;
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(ShellContract, Rigs, RigName);

TYPED_TEST(ShellContract, TheProgramDirectoryHoldsTheProgram) {
    const std::wstring program = ThisProgram();
    const std::wstring directory = this->rig_.shell.ProgramDirectory();
    EXPECT_FALSE(directory.ends_with(L'\\'));
    EXPECT_EQ(directory + program.substr(program.rfind(L'\\')), program);
    EXPECT_TRUE(this->rig_.shell.FileExists(program));
}

TYPED_TEST(ShellContract, AFileExists) {
    EXPECT_TRUE(this->rig_.shell.FileExists(this->rig_.AddFile(L"QLBUTL.CHM")));
}

TYPED_TEST(ShellContract, AMissingFileDoesNot) {
    const std::wstring file = this->rig_.AddFile(L"QLBUTL.CHM");
    EXPECT_FALSE(this->rig_.shell.FileExists(file + L"X"));
    EXPECT_FALSE(this->rig_.shell.FileExists(file.substr(0, file.rfind(L'\\')) + L"\\missing\\QLBUTL.CHM"));
    EXPECT_FALSE(this->rig_.shell.FileExists(L""));
}

TYPED_TEST(ShellContract, AFolderIsNoFile) {
    const std::wstring file = this->rig_.AddFile(L"QLBUTL.CHM");
    EXPECT_FALSE(this->rig_.shell.FileExists(file.substr(0, file.rfind(L'\\'))));
}

TYPED_TEST(ShellContract, FileNamesCountWithoutRegardToCase) {
    const std::wstring file = this->rig_.AddFile(L"QLBUTL.CHM");
    EXPECT_TRUE(this->rig_.shell.FileExists(file.substr(0, file.rfind(L'\\')) + L"\\qlbutl.chm"));
}

TYPED_TEST(ShellContract, AFileNameMayUseTheWholeCodePage) {
    EXPECT_TRUE(
        this->rig_.shell.FileExists(this->rig_.AddFile(GetACP() == 932 ? L"表示.chm" : L"Größe.chm")));
}

class WindowsShellOpen : public testing::Test {
protected:
    /// A program that writes the folder it runs in.
    WindowsShellOpen() : program_(folder_.File(L"note.bat")), workingDirectory_(folder_.File(L"working")) {
        WriteBytes(program_, "@cd >opened.txt\r\n");
        std::filesystem::create_directory(workingDirectory_);
    }
    [[nodiscard]] std::string Noted() const {
        const std::string text = ReadBytes(workingDirectory_ + L"\\opened.txt");
        return text.substr(0, text.find('\r'));
    }

    ScratchFolder folder_;
    std::wstring program_;
    std::wstring workingDirectory_;
    WindowsShell shell_;
};

TEST_F(WindowsShellOpen, StartsWhatItIsGivenInTheWorkingDirectory) {
    EXPECT_TRUE(shell_.Open(program_, workingDirectory_, 0));
    EXPECT_TRUE(WaitUntil([&] { return Noted() == ToAnsi(workingDirectory_); })) << Noted();
}

TEST_F(WindowsShellOpen, OpensNothingWhereThereIsNoFile) {
    EXPECT_FALSE(shell_.Open(folder_.File(L"missing.chm"), workingDirectory_, 0));
    EXPECT_FALSE(shell_.Open(folder_.File(L"missing.bat"), workingDirectory_, 0));
}

TEST_F(WindowsShellOpen, OpensNothingThatNoProgramIsMeantFor) {
    const std::wstring file = folder_.File(L"data.qlbcontract");
    WriteBytes(file, "x");
    EXPECT_FALSE(shell_.Open(file, workingDirectory_, 0));
}

} // namespace

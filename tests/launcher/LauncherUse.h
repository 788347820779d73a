#pragma once

#include "StoredSettings.h"
#include "Texts.h"
#include "driver/Driver.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

/// One line of a probe program.
struct ProbeReport {
    std::wstring event{}; ///< "started", "shown", "ended"
    std::wstring file{};
    std::wstring commandLine{};
    std::wstring directory{};
    long long time = 0; ///< of the performance counter
};

/// Our own launcher on an empty store, and probe programs for it to start. What a test starts ends with it.
class LauncherUse : public testing::Test {
protected:
    LauncherUse();
    ~LauncherUse() override;

    static UiDriver::RegistryKey Machine() { return UiDriver::Store::Machine(); }
    static UiDriver::RegistryKey User() { return UiDriver::Store::User(); }
    static UiDriver::RegistryKey LauncherKey() { return User().Sub(L"Launcher"); }

    /// Starts the launcher and waits until it has taken its keys.
    void Start(const std::wstring& arguments = {});
    const UiDriver::Process& Program() const { return *program_; }
    UiDriver::Window Window() const { return UiDriver::Window(window_); }
    void End();

    /// Stores a button of Pattern 1, and tells a launcher that runs.
    void SetButton(int number, const StoredButton& button);
    void Reload() const;

    /// "Press button" as a program asks for it; waits until it was done.
    void Request(int button) const;

    /// The probe program under another name, in a folder of its own that goes with the test.
    std::wstring Probe(const std::wstring& name = L"probe.exe") const;
    const std::wstring& Folder() const { return folder_; }
    StoredButton Single(const std::wstring& parameters = {}) const;

    /// What probe programs have reported so far; or as soon as there are so many reports.
    static std::vector<ProbeReport> Reports(const std::wstring& event = L"started");
    static std::vector<ProbeReport> AwaitReports(std::size_t count, const std::wstring& event = L"started");
    static std::vector<std::wstring> CommandLines(const std::vector<ProbeReport>& reports);

    /// The window of a probe program whose parameters are these.
    static UiDriver::Window AwaitProbeWindow(const std::wstring& parameters);
    static void CloseProbes();

    /// Names of the backups that there are.
    static std::vector<std::wstring> Backups();

    /// Asks for the icon's menu.
    UiDriver::PopupMenu OpenMenu() const;

private:
    static std::wstring LogFile();

    UiDriver::Store store_;
    std::wstring folder_;
    StoredPattern pattern_;
    std::optional<UiDriver::Process> program_;
    HWND window_ = nullptr;
};

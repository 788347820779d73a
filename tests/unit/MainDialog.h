#pragma once

#include "TestStore.h"
#include "app/LauncherNotification.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/MainSettings.h"
#include "dialogs/patterns/PatternList.h"
#include "fakes/FakeFonts.h"
#include "fakes/FakeWindows.h"

/// Answers to the question whether to save. AskNothing fails when the question comes.
inline SaveAnswer AnswerYes() {
    return SaveAnswer::Yes;
}
inline SaveAnswer AnswerNo() {
    return SaveAnswer::No;
}
inline SaveAnswer AnswerCancel() {
    return SaveAnswer::Cancel;
}
inline SaveAnswer AskNothing() {
    ADD_FAILURE() << "asked whether to save";
    return SaveAnswer::Cancel;
}

/// The settings of a dialog with two Patterns, "Home" (current) and "Work".
struct MainDialog : TestStore {
    MainDialog() {
        FakeFonts installed;
        installed.Add(L"Arial");
        installed.Add(L"MS Shell Dlg 2");
        fonts.EnumerateFonts(installed);
        launcher = windows.Add(L"KORVOQLBCLASS");

        PutMachine(L"Default\\Setting\\Set1", L"SetName", "Standard");
        PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"DispTitle", "Default");
        PutMachine(L"Default\\Setting\\Set1\\AppKey1", L"Execute", "M");
        PutMachine(L"Default\\Setting\\Set1\\AppKey6", L"DispTitle", "Default key");
        PutMachine(L"Default\\Setting\\Set1\\AppKey6", L"Execute", "M");
        PutMachine(L"Default\\OnScreen", L"FontFace", "Arial");
        PutUser(L"", L"CurrSetting", 1);
        PutUser(L"", L"NumSetting", 2);
        PutPattern(1, "Home", "Mail");
        PutPattern(2, "Work", "Report");
    }

    void PutPattern(int number, const char* name, const char* firstButton) {
        const std::wstring subkey = L"Setting\\Set" + std::to_wstring(number);
        PutUser(subkey, L"SetName", name);
        PutUser(subkey + L"\\AppKey1", L"DispTitle", firstButton);
        for (int button = 1; button <= kMaxButtons; ++button) {
            PutUser(subkey + L"\\AppKey" + std::to_wstring(button), L"Execute", "S");
            PutUser(subkey + L"\\AppKey" + std::to_wstring(button), L"NumAP", 1);
        }
    }

    /// The pattern manager opens, `manage` works with it, and it closes.
    void UseManager(const std::function<void(PatternList&)>& manage) {
        settings.ManagePatterns([&](PatternList& list) {
            list.Load();
            manage(list);
        });
    }
    void OpenAndCloseManager() {
        UseManager([](PatternList& /*list*/) {});
    }

    /// Written() without the lines that begin so.
    [[nodiscard]] std::vector<std::string> WrittenElsewhere(const std::string& start) const {
        std::vector<std::string> lines = Written();
        std::erase_if(lines, [&](const std::string& line) { return line.starts_with(start); });
        return lines;
    }

    FontList fonts{L"MS Shell Dlg 2"};
    FakeWindows windows;
    WindowId launcher = 0;
    LauncherNotification notification{windows};
    MainSettings settings{store, notification, fonts};
};

/// The same, loaded.
struct LoadedMainDialog : MainDialog {
    LoadedMainDialog() {
        settings.Load();
        ForgetOperations();
    }
};

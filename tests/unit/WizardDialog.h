#pragma once

#include "RegistrationDialog.h"
#include "dialogs/wizard/WizardFlow.h"

#include <optional>

/// The wizard, where every source is offered.
struct WizardDialog : RegistrationDialog {
    using Source = ProgramSource;

    static constexpr const wchar_t* kMail = L"C:\\Apps\\Mail.exe";
    static constexpr const wchar_t* kNews = L"C:\\Favorites\\News.url";
    static constexpr const wchar_t* kNewsAddress = L"http://news.example/";

    WizardDialog() { Offer(true, true, true); }

    void Offer(bool mediaCenter, bool favorites, bool shortcutKeys) {
        PutMachine(L"UTLSetting\\ProgramGroup", L"MCMenu", mediaCenter ? 1 : 0);
        PutMachine(L"UTLSetting\\ProgramGroup", L"IEMenu", favorites ? 1 : 0);
        shell.specialFolders[kFolderFavorites] = L"C:\\Favorites";
        // A directory without shortcut keys.
        disk.AddFile(L"C:\\NoKeys\\QLBMCMNU.DAT", "Music,My Music,C:\\mc\\mc.exe /music\n"
                                                  "Films,My Films,C:\\mc\\mc.exe /films\n");
        shell.programDirectory = shortcutKeys ? L"C:\\Program Files\\QLBUtl" : L"C:\\NoKeys";
        LoadSources();
    }
    void LoadSources() {
        sources.LoadMediaCenter();
        sources.LoadIeFavorites();
        sources.LoadShortcutKeys();
    }

    void Open(bool forButton = false) { flow.emplace(Services(), forButton); }

    // From the first page on.

    /// The page of sources of a single program.
    void GoToMenu(bool forButton = false) {
        GoToLaunchMethod(forButton);
        flow->ChooseLaunchMethod(0);
        flow->Next();
    }
    void GoToSingle(Source source, bool forButton = false) {
        GoToMenu(forButton);
        flow->ChooseSourceForSingle(source);
        flow->Next();
    }
    void GoToButtonName(int method = 1, bool forButton = false) {
        GoToLaunchMethod(forButton);
        flow->ChooseLaunchMethod(method);
        flow->Next();
    }
    void GoToSeveral(int method = 1, bool forButton = false) {
        GoToButtonName(method, forButton);
        flow->SetButtonName(L"Morning");
        flow->Next();
    }

    /// A click in the tree or list that is shown.
    void Click(const PickedItem& item) {
        ASSERT_EQ(flow->ShownSource(), item.source);
        flow->Click(item);
    }
    void Add(const PickedItem& item) {
        Click(item);
        flow->Next();
    }
    void AddFromItsSource(const PickedItem& item) {
        flow->ChooseSource(item.source);
        Add(item);
    }
    /// The first of five programs.
    void AddPrograms(int count) {
        for (int i = 0; i < count; ++i) {
            Add(Node(L"C:\\Apps\\App" + std::to_wstring(i + 1) + L".exe"));
        }
    }

    [[nodiscard]] std::vector<std::wstring> ProgramTexts() const {
        std::vector<std::wstring> texts;
        for (int slot = 0; slot < kSlots; ++slot) {
            texts.push_back(flow->ProgramText(slot));
        }
        return texts;
    }
    [[nodiscard]] static std::vector<std::wstring> Texts(const ButtonSlot& slot,
                                                         std::wstring ProgramEntry::*field) {
        std::vector<std::wstring> texts;
        for (int number = 1; number <= kMaxPrograms; ++number) {
            texts.push_back(slot.Program(number).*field);
        }
        return texts;
    }

    std::optional<WizardFlow> flow;

private:
    void GoToLaunchMethod(bool forButton) {
        Open(forButton);
        if (!forButton) {
            flow->Next();
        }
    }
};

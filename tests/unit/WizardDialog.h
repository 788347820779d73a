#pragma once

#include "RegistrationDialog.h"
#include "dialogs/wizard/WizardFlow.h"

#include <map>
#include <optional>

/// The wizard where every source is offered; what is selected in a tree or list is the test's choice.
struct WizardDialog : RegistrationDialog {
    using Source = ProgramSource;

    static constexpr const wchar_t* kShellFolders =
        L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
    static constexpr const wchar_t* kMail = L"C:\\Apps\\Mail.exe";
    static constexpr const wchar_t* kNews = L"C:\\Favorites\\News.url";
    static constexpr const wchar_t* kNewsAddress = L"http://news.example/";

    WizardDialog() {
        Offer(true, true, true, true);
        SelectFirstRows();
    }

    void Offer(bool startMenu, bool mediaCenter, bool favorites, bool shortcutKeys) {
        registry.PutString(RegistryHive::CurrentUser, kShellFolders, L"Start Menu",
                           startMenu ? "C:\\Menu" : "");
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
        sources.LoadStartMenu();
        sources.LoadMediaCenter();
        sources.LoadIeFavorites();
        sources.LoadShortcutKeys();
    }
    /// As the lists and trees are once they are filled.
    void SelectFirstRows() {
        selected.clear();
        if (!sources.MediaCenterTable().empty()) {
            selected[Source::MediaCenter] = MediaCenter(kMusic);
        }
        if (!sources.ShortcutKeys().empty()) {
            selected[Source::ShortcutKey] = Key(kCopyKey);
        }
    }

    void Open(bool forButton = false) {
        const StringTable texts(strings);
        flow.emplace(WizardFlow::Surroundings{sources, disk,
                                              [this](const std::wstring& file) {
                                                  return shell.InternetShortcutAddress(file).value_or(L"");
                                              },
                                              [this](Source source) { return selected[source]; },
                                              texts.ResText(kTextIeFavorites),
                                              texts.ResText(kTextMyComputer)},
                     forButton);
        flow->Start();
    }

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
        selected[*flow->ShownSource()] = item;
        item.kind == PickedItem::Kind::Tree ? flow->ClickNode(item) : flow->ClickRow(item);
    }
    void Add(const PickedItem& item) {
        Click(item);
        flow->Next();
    }
    void AddFrom(Source source, const PickedItem& item) {
        flow->ChooseSource(source);
        Add(item);
    }
    /// The first of five programs.
    void AddPrograms(int count) {
        for (int i = 0; i < count; ++i) {
            Add(Node(L"C:\\Apps\\App" + std::to_wstring(i + 1) + L".exe"));
        }
    }

    [[nodiscard]] PickedItem MyComputer() const {
        const std::wstring name = StringTable(strings).ResText(kTextMyComputer);
        return {PickedItem::Kind::Tree, name, name, name};
    }
    [[nodiscard]] static PickedItem File(const std::wstring& path) { return Node(path, L"My Computer"); }

    [[nodiscard]] std::vector<std::wstring> ProgramTexts() const {
        std::vector<std::wstring> texts;
        for (int slot = 0; slot < kSlots; ++slot) {
            texts.push_back(flow->ProgramText(slot));
        }
        return texts;
    }
    [[nodiscard]] static std::vector<std::wstring> Texts(
        const NumberedFrom1<std::wstring, kMaxPrograms>& array) {
        std::vector<std::wstring> texts;
        for (int number = 1; number <= kMaxPrograms; ++number) {
            texts.push_back(array(number));
        }
        return texts;
    }

    std::map<Source, PickedItem> selected;
    std::optional<WizardFlow> flow;

private:
    void GoToLaunchMethod(bool forButton) {
        Open(forButton);
        if (!forButton) {
            flow->Next();
        }
    }
};

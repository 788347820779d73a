#pragma once

#include "TestStore.h"
#include "app/StringTable.h"
#include "dialogs/register/ButtonSlotEditor.h"
#include "dialogs/register/ProgramSources.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeStrings.h"
#include "settings/GlobalValue.h"

#include <string>
#include <vector>

/// What surrounds the registration dialog: two shortcut keys, two Media Center items, a disk and two favourites.
struct RegistrationDialog : TestStore {
    enum KeyRow : std::size_t { kCopyKey, kPasteKey };
    enum MediaCenterItem : std::size_t { kMusic, kFilms };

    RegistrationDialog() {
        ResetGlobals(strings);
        disk.AddFile(L"C:\\Program Files\\QLBUtl\\QLBCODE.DAT", "Ctrl+C,46,Copy\nCtrl+V,47,Paste\n");
        disk.AddFile(L"C:\\Program Files\\QLBUtl\\QLBMCMNU.DAT",
                     "Music,My Music,C:\\mc\\mc.exe /music\nFilms,My Films,C:\\mc\\mc.exe /films\n");
        PutMachine(L"UTLSetting\\ProgramGroup", L"MCMenu", 1);
        sources.LoadShortcutKeys();
        sources.LoadMediaCenter();

        for (const wchar_t* file :
             {L"C:\\Apps\\Mail.exe", L"C:\\Apps\\app.v2.exe", L"C:\\Apps\\Paint.exe", L"C:\\Apps\\Calc.exe",
              L"C:\\Apps\\Clock.exe", L"C:\\Apps\\Notes.exe", L"C:\\Menu\\News.url",
              L"C:\\Favorites\\News.url", L"C:\\Favorites\\MAPS.URL", L"C:\\Favorites\\desktop.ini"}) {
            disk.AddFile(file);
        }
        disk.AddFolder(L"C:\\Apps\\Tools.d");
        disk.AddFolder(L"C:\\Favorites\\Travel");
        shell.shortcutAddresses[L"C:\\Favorites\\News.url"] = L"http://news.example/";
        shell.shortcutAddresses[L"C:\\Favorites\\MAPS.URL"] = L"http://maps.example/?q=1";
    }

    [[nodiscard]] PickedItemServices Services() const {
        return {sources, disk, [this](const std::wstring& file) {
                    return shell.InternetShortcutAddress(file).value_or(L"");
                }};
    }
    [[nodiscard]] ButtonSlotEditor Open(const ButtonSlot& slot) const { return {slot, Services()}; }

    /// A button that starts these programs.
    [[nodiscard]] static ButtonSlot Button(const wchar_t* letter, const std::vector<std::wstring>& commands) {
        ButtonSlot slot;
        slot.Name = L"Button";
        slot.Exec = letter;
        slot.NumAP = static_cast<std::int16_t>(commands.size());
        int number = 0;
        for (const std::wstring& command : commands) {
            slot.Program(++number).AP = command;
        }
        return slot;
    }
    /// The first `count` of five programs that exist.
    [[nodiscard]] static ButtonSlot Sequence(std::size_t count) {
        std::vector<std::wstring> commands{L"C:\\Apps\\Mail.exe", L"C:\\Apps\\app.v2.exe",
                                           L"C:\\Apps\\Paint.exe", L"C:\\Apps\\Calc.exe",
                                           L"C:\\Apps\\Clock.exe"};
        commands.resize(count);
        return Button(L"S", commands);
    }
    /// A button with a Media Center item, as it is stored.
    [[nodiscard]] static ButtonSlot MusicButton() {
        ButtonSlot slot = Button(L"M", {L"C:\\mc\\mc.exe /music"});
        slot.Program(1).Title = L"Music";
        return slot;
    }

    [[nodiscard]] static PickedItem Node(const std::wstring& path,
                                         ProgramSource source = ProgramSource::StartMenu) {
        return {source, path, path.substr(path.rfind(L'\\') + 1)};
    }
    [[nodiscard]] static PickedItem File(const std::wstring& path) {
        return Node(path, ProgramSource::AllFiles);
    }
    [[nodiscard]] static PickedItem Favorite(const std::wstring& path) {
        return Node(path, ProgramSource::IeFavorites);
    }
    [[nodiscard]] static PickedItem MyComputer() {
        PickedItem root = File(L"My Computer");
        root.root = true;
        return root;
    }
    [[nodiscard]] PickedItem Key(KeyRow row) const {
        return PickedRow(sources, ProgramSource::ShortcutKey, row).value();
    }
    [[nodiscard]] PickedItem MediaCenter(MediaCenterItem row) const {
        return PickedRow(sources, ProgramSource::MediaCenter, row).value();
    }

    // As the form does it, from the press of the mouse button on.
    static void DragOnto(ButtonSlotEditor& editor, int slot, const PickedItem& item) {
        editor.Begin(item);
        editor.Drop(slot, item);
    }
    static void SendTo(ButtonSlotEditor& editor, int slot, const PickedItem& item) {
        editor.Begin(item);
        editor.Send(slot, item);
    }

    [[nodiscard]] static std::vector<std::wstring> Shown(const ButtonSlotEditor& editor) {
        std::vector<std::wstring> texts;
        for (int slot = 0; slot < kSlots; ++slot) {
            texts.push_back(editor.ShownText(slot));
        }
        return texts;
    }
    [[nodiscard]] static std::vector<std::wstring> Commands(const ButtonSlotEditor& editor) {
        return Texts(editor.Slot(), &ProgramEntry::AP);
    }
    [[nodiscard]] static std::vector<std::wstring> Parameters(const ButtonSlotEditor& editor) {
        return Texts(editor.Slot(), &ProgramEntry::Param);
    }
    [[nodiscard]] static std::vector<std::wstring> Titles(const ButtonSlotEditor& editor) {
        return Texts(editor.Slot(), &ProgramEntry::Title);
    }

    FakeStrings strings;
    FakeFileSystem disk;
    FakeShell shell;
    ProgramSources sources{store, disk, shell, ansiText};

private:
    [[nodiscard]] static std::vector<std::wstring> Texts(const ButtonSlot& slot,
                                                         std::wstring ProgramEntry::*field) {
        std::vector<std::wstring> texts;
        for (int number = 1; number <= kMaxPrograms; ++number) {
            texts.push_back(slot.Program(number).*field);
        }
        return texts;
    }
};

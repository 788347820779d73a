#include "Fuzz.h"
#include "FuzzStore.h"
#include "app/StringTable.h"
#include "browse/Paths.h"
#include "dialogs/register/ButtonSlotEditor.h"
#include "dialogs/register/ProgramSources.h"
#include "fakes/FakeFileSystem.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeStrings.h"
#include "settings/PatternStore.h"
#include "settings/StdModule.h"

namespace {

constexpr int kButtons = 6;

void PutButton(FuzzStore& settings, FuzzInput& input) {
    const std::wstring key = FuzzStore::Path(L"Setting\\Set1\\AppKey1");
    const auto put = [&](const std::wstring& name, std::string_view bytes) {
        settings.registry.PutRaw(RegistryHive::CurrentUser, key, name, kRegistryString, bytes);
    };
    settings.registry.PutDword(RegistryHive::CurrentUser, key, L"NumAP", input.Byte() % 8);
    put(L"Execute", input.Line());
    put(L"DispTitle", input.Line());
    for (int k = 1; k <= kMaxPrograms; ++k) {
        put(L"AP" + std::to_wstring(k), input.Line());
        put(L"ProgName" + std::to_wstring(k), input.Line());
    }
}

void CheckSlot(const ButtonSlot& slot) {
    Require(slot.NumAP >= 0 && slot.NumAP <= kMaxPrograms, "a number of programs that can't be");
    Require(TrimBlanks(slot.Exec) == slot.Exec, "blanks around the letter");
    for (int k = 1; k <= kMaxPrograms; ++k) {
        Require(slot.Program(k).AP.find(L'|') == std::wstring::npos, "a command holds parameters");
    }
}

/// As a slot comes back that was stored: parameters of blanks alone are none.
ButtonSlot AsStored(ButtonSlot slot) {
    slot.Name = slot.Name.empty() ? L" " : slot.Name;
    for (int k = 1; k <= kMaxPrograms; ++k) {
        if (TrimBlanks(slot.Program(k).Param).empty()) {
            slot.Program(k).Param.clear();
        }
    }
    return slot;
}

ButtonSlot CheckStore(FuzzStore& settings) {
    PatternStore patterns(settings.store, kButtons);
    Pattern loaded = patterns.LoadPattern(1, Pattern{});
    CheckSlot(loaded.Btn(1));
    const ButtonSlot first = loaded.Btn(1);
    patterns.SavePattern(1, loaded);
    Require(patterns.LoadPattern(1, Pattern{}).Btn(1) == AsStored(first), "saving changes what was loaded");
    return first;
}

void CheckShowing(const ButtonSlot& slot, const FuzzStore& settings) {
    static const FakeStrings strings;
    ResetGlobals(strings);
    FakeFileSystem disk;
    disk.AddFolder(L"C:\\Apps\\Tools.d");
    disk.AddFile(L"C:\\Program Files\\QLBUtl\\QLBCODE.DAT", "Ctrl+C,46,Copy\nCtrl+V,47,Paste\n");
    const FakeShell shell;
    ProgramSources sources(settings.store, disk, shell, settings.ansiText);
    sources.LoadShortcutKeys();
    ButtonSlotEditor editor(slot, {sources, disk, [](const std::wstring&) { return L"http://a.example/"; }});
    Require(editor.Slot() == slot, "looking at a button changes it");
    Require(editor.Option() >= 0 && editor.Option() <= 2, "a launch method that is none");

    for (int k = 0; k < kSlots; ++k) {
        const PickedItem item = PickedPath(slot.Program(k + 1).AP);
        Require(item.name.find(L'\\') == std::wstring::npos, "a folder in a name");
        Require(editor.SendTargets(item) >= 0 && editor.SendTargets(item) <= kSlots, "targets to send to");
        ButtonSlotEditor dropped = editor;
        dropped.DropPaths(k, {slot.Program(1).AP, L"C:\\Apps\\Tools.d", slot.Program(2).AP});
        CheckSlot(dropped.Slot());
        ButtonSlotEditor chosen = editor;
        chosen.ChooseOption(k % 3);
        Require(chosen.Option() == k % 3 || chosen.IsMethodLocked(), "a method that can't be chosen");
        CheckSlot(chosen.Slot());
    }
    for (int deletions = 0; deletions < kSlots; ++deletions) {
        editor.DeleteByKey(0);
        CheckSlot(editor.Slot());
    }
}

void CheckPaths(const std::wstring& text, const std::wstring& name) {
    std::wstring joined;
    for (const std::wstring& part : SplitPath(text)) {
        Require(part.find(L'\\') == std::wstring::npos, "a part of a path that has parts");
        joined += L'\\' + part;
    }
    Require(joined == L'\\' + text, "the parts are not the path");
    const std::wstring path = JoinPath(text, name);
    Require(path.starts_with(text) && path.ends_with(name), "a path lost a part");
    const std::wstring folder = WithoutTrailingBackslash(text);
    if (!folder.empty() && !folder.ends_with(L'\\')) {
        Require(LiesUnder(JoinPath(folder, name), folder), "not in its own folder");
    }
    Require(name.starts_with(WithoutExtension(name)), "more without the extension than with it");
    const std::wstring lowered = LoweredAscii(name);
    Require(EndsInUrl(name) == lowered.ends_with(L".url"), "the ending of a shortcut");
}

} // namespace

/// A byte of the code page, one of the number of programs; then letter, name, and five times program and title, a
/// line each.
// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    FuzzStore settings(FuzzStore::CodePage(input.Byte() % 2 != 0));
    PutButton(settings, input);
    const ButtonSlot slot = CheckStore(settings);
    CheckShowing(slot, settings);
    for (int k = 1; k <= kMaxPrograms; ++k) {
        CheckPaths(slot.Program(k).AP, slot.Program(k).Title);
    }
    return 0;
}

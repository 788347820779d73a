// Opening each form until it is painted, beside a bare dialog of the same controls; and filling the list of
// shortcut keys, beside adding bare rows:
//
//   FormsBench.exe [/rounds:N]

#include "app/LauncherNotification.h"
#include "app/StringTable.h"
#include "common/Comparison.h"
#include "common/FullPattern.h"
#include "common/ScratchKey.h"
#include "common/Statistics.h"
#include "dialogs/main/EnumFont.h"
#include "dialogs/main/frmMain.h"
#include "dialogs/patterns/PatternList.h"
#include "dialogs/patterns/frmInputBox.h"
#include "dialogs/patterns/frmManager.h"
#include "dialogs/register/frmSetAp.h"
#include "dialogs/wizard/frmWizard.h"
#include "forms/BareForm.h"
#include "forms/Opening.h"
#include "platform/InstanceGuard.h"
#include "platform/windows/Com.h"
#include "platform/windows/WindowsPlatform.h"
#include "print/PrintingForm.h"
#include "resources/resource.h"
#include "settings/GlobalValue.h"
#include "settings/PatternStore.h"
#include "settings/RegIniFunc.h"

#include <bit>
#include <cstdio>

namespace {

constexpr int kButtons = 7;

/// So that the settings dialog opens again and again.
class NoOtherInstance final : public InstanceGuard {
public:
    bool AnotherInstanceRuns() override { return false; }
    void GiveUp() override {}
};

/// What the forms open over.
class OwnerForm final : public Form {
public:
    OwnerForm() {
        CreateHidden(Globals().DialogFontName);
        ShowWindow(Window(), SW_SHOW);
        PaintNow(Window());
    }

protected:
    void OnCreate() override {}
    SIZE OnLayout() override { return {600, 400}; }
    void OnCommand(int /*id*/, int /*notification*/) override {}
};

/// A form with the sources of programs, as the registration dialog has them.
class SourcesForm final : public Form {
public:
    SourcesForm(const Platform& platform, const RegIniFunc& store, const StringTable& texts)
        : panes_(*this, platform, store, texts) {
        CreateHidden(Globals().DialogFontName);
    }

    [[nodiscard]] HWND KeyList() const { return panes_.ControlOf(ProgramSource::ShortcutKey); }
    void Load() { panes_.Load(); }

protected:
    void OnCreate() override {
        panes_.CreateControls([this](const ControlRow& row) { return AddControl(Window(), row); }, Dpi());
    }
    SIZE OnLayout() override { return {400, 400}; }
    void OnCommand(int /*id*/, int /*notification*/) override {}

private:
    SourcePanes panes_;
};

/// The data file that the program reads, beside this one, for as long as this lives.
class KeyFile {
public:
    KeyFile(const std::wstring& directory, int keys)
        : path_(directory + L"\\" + Globals().CommandListFileName) {
        std::FILE* file = _wfopen(path_.c_str(), L"wb");
        for (int key = 1; file != nullptr && key <= keys; ++key) {
            std::fprintf(file, "\"Ctrl + Shift + %d\",%d,\"Key number %d\"\r\n", key, key, key);
        }
        written_ = file != nullptr && std::fclose(file) == 0;
    }
    ~KeyFile() { DeleteFileW(path_.c_str()); }
    KeyFile(const KeyFile&) = delete;
    KeyFile& operator=(const KeyFile&) = delete;

    [[nodiscard]] bool Written() const { return written_; }

private:
    std::wstring path_;
    bool written_ = false;
};

class Bench {
public:
    explicit Bench(int rounds)
        : platform_(system_.Interfaces()), table_(rounds), texts_(Texts(platform_)),
          store_(platform_.registry, platform_.profileFiles, platform_.ansiText, Globals().IniFileName) {}

    void MainDialog() {
        NoOtherInstance alone;
        const Platform& all = platform_;
        const Platform platform{all.registry, all.profileFiles, all.ansiText, all.strings, all.windows, alone,
                                all.fonts,    all.shell,        all.files,    all.drives,  all.icons};
        std::optional<BareForm> bare;
        const auto ours = [&]() -> std::optional<double> {
            const double start = NowMilliseconds();
            RegIniFunc store(platform.registry, platform.profileFiles, platform.ansiText,
                             Globals().IniFileName);
            LauncherNotification launcher(platform.windows);
            FontList fonts(Globals().DialogFontName);
            MainSettings settings(store, launcher, fonts);
            frmMain dialog(platform, texts_, store, fonts, settings);
            if (!dialog.Load(L"/k")) {
                return std::nullopt;
            }
            dialog.Show();
            PaintNow(dialog.Window());
            const double taken = NowMilliseconds() - start;
            if (!bare) {
                bare.emplace(dialog.Window());
            }
            return taken;
        };
        ours();
        table_.Row(
            "open the settings dialog", 0, [&] { return TimeOfBare(bare, nullptr); }, ours);
    }

    void Forms() {
        Globals().EditedButtonSlot = FullPattern(1).Btn(1);
        Compare("open the input box", 0, [this](Form& owner) {
            frmInputBox box(owner, texts_, platform_.ansiText);
            box.InputTitle(L"Question");
            box.SetMsgLabel(L"What is it?");
            box.InputText(L"This");
            box.ShowModal();
        });
        Compare("open the registration dialog", 0,
                [this](Form& owner) { frmSetAp(owner, platform_, store_, texts_).ShowModal(); });
        const Pattern defaults = FullPattern(1);
        Compare("open the wizard", 0,
                [&](Form& owner) { frmWizard(&owner, platform_, store_, texts_, defaults).ShowModal(); });
        Compare("open the printing form", 0, [this](Form& owner) {
            PrintingForm form(owner, texts_);
            form.PrintWhile([&] {
                while (form.GoOn()) {
                }
            });
        });
        const ScratchUserKey scratch;
        for (const int count : {1, kMaxPatterns}) {
            StorePatterns(count);
            PatternStore stored(store_, kButtons);
            PatternList patterns(store_, stored, defaults);
            Compare("open the pattern manager", count, [&](Form& owner) {
                frmManager(owner, patterns, texts_, platform_.ansiText).ShowModal();
            });
        }
    }

    void ShortcutKeys() {
        for (const int count : {10, 100, 1000, 10000}) {
            const KeyFile file(platform_.shell.ProgramDirectory(), count);
            table_.Row(
                "list shortcut keys", count, [&] { return AddBareRows(count); },
                [&]() -> std::optional<double> {
                    SourcesForm form(platform_, store_, texts_);
                    const double start = NowMilliseconds();
                    form.Load();
                    const double taken = NowMilliseconds() - start;
                    const bool all = SendMessageW(form.KeyList(), LB_GETCOUNT, 0, 0) == count;
                    return all && file.Written() ? std::optional(taken) : std::nullopt;
                });
        }
    }

    [[nodiscard]] int Finish() const { return table_.Finish(); }

private:
    static StringTable Texts(const Platform& platform) {
        ResetGlobals(platform.strings);
        return StringTable(platform.strings);
    }

    template <class Open> void Compare(const char* what, int size, Open open) {
        OwnerForm owner;
        std::optional<BareForm> bare;
        opening_.LookAtNext([&](HWND form) { bare.emplace(form); });
        const auto ours = [&] { return opening_.TimeOf([&] { open(owner); }); };
        ours();
        table_.Row(
            what, size, [&] { return TimeOfBare(bare, owner.Window()); }, ours);
    }

    static std::optional<double> TimeOfBare(const std::optional<BareForm>& bare, HWND owner) {
        if (!bare) {
            return std::nullopt;
        }
        const double start = NowMilliseconds();
        const HWND form = bare->Open(owner);
        const double taken = NowMilliseconds() - start;
        EnableWindow(owner, TRUE);
        DestroyWindow(form);
        return taken;
    }

    void StorePatterns(int count) {
        for (int number = 1; number <= count; ++number) {
            Pattern pattern = FullPattern(number);
            PatternStore(store_, kButtons).SavePattern(number, pattern);
        }
        store_.IniSetString(kProgramSection, L"NumUser", std::to_wstring(count), store_.OwnIniFile());
    }

    std::optional<double> AddBareRows(int count) {
        const SourcesForm form(platform_, store_, texts_);
        const double start = NowMilliseconds();
        for (int key = 1; key <= count; ++key) {
            const std::wstring text =
                L"Key number " + std::to_wstring(key) + L" Ctrl + Shift + " + std::to_wstring(key);
            SendMessageW(form.KeyList(), LB_ADDSTRING, 0, std::bit_cast<LPARAM>(text.c_str()));
        }
        return NowMilliseconds() - start;
    }

    ComApartment com_;
    WindowsPlatform system_{kProductKey};
    Platform platform_;
    Comparison table_;
    StringTable texts_;
    RegIniFunc store_;
    Opening opening_;
};

} // namespace

int wmain(int count, wchar_t** arguments) {
    Bench bench(RoundsFrom(count, arguments, 15));
    bench.MainDialog();
    bench.Forms();
    bench.ShortcutKeys();
    return bench.Finish();
}

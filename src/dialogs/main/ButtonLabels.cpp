#include "dialogs/main/ButtonLabels.h"

#include "app/StringTable.h"
#include "settings/RegIniFunc.h"
#include "settings/StdModule.h"

namespace {

/// Fn keys that one keyboard model names so.
constexpr int kFnKeys = 2;

std::wstring BuiltInLabel(int index, const StringTable& texts, const MakerSwitches& switches) {
    const int onPage = index < kDesktopButtons ? index + 1 : index - kDesktopButtons + 1;
    const bool notebook = index >= kDesktopButtons;
    if (notebook && switches.QSTART == 1 && onPage <= kFnKeys) {
        return texts.ResText(kTextFnKey) + DecimalText(onPage);
    }
    if (notebook && switches.QSTART != 0) {
        // The text that the form was built with: the number among all buttons.
        return texts.ResText(kTextButtonNumber) + DecimalText(index + 1);
    }
    return texts.ResText(kTextButtonNumber) + DecimalText(onPage);
}

} // namespace

std::array<std::wstring, kMaxButtons> ButtonLabels(const RegIniFunc& store, const StringTable& texts,
                                                   const MakerSwitches& switches) {
    const std::wstring path = std::wstring(kUtilityKey) + L"\\ButtonName";
    std::array<std::wstring, kMaxButtons> labels;
    for (int index = 0; index < kMaxButtons; ++index) {
        std::wstring label =
            store.RegGetString(RegistryHive::LocalMachine, path, L"AppKey" + DecimalText(index + 1));
        if (label.empty()) {
            label = BuiltInLabel(index, texts, switches);
        }
        labels.at(static_cast<std::size_t>(index)) = std::move(label);
    }
    return labels;
}

std::array<std::wstring, 3> PageCaptions(const RegIniFunc& store, const StringTable& texts) {
    const std::wstring path = std::wstring(kUtilityKey) + L"\\TabName";
    std::array<std::wstring, 3> captions{texts.ResText(kTextButtonSettings),
                                         texts.ResText(kTextButtonSettings),
                                         texts.ResText(kTextOnScreenSettings)};
    for (std::size_t page = 0; page < 2; ++page) {
        std::wstring own = store.RegGetString(RegistryHive::LocalMachine, path, L"Tab" + DecimalText(page));
        if (!own.empty()) {
            captions.at(page) = std::move(own);
        }
    }
    return captions;
}

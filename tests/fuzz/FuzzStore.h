#pragma once

#include "fakes/FakeAnsiText.h"
#include "fakes/FakeProfileFiles.h"
#include "fakes/FakeRegistry.h"
#include "settings/RegIniFunc.h"

/// A settings store over an empty registry and no ini file.
struct FuzzStore {
    explicit FuzzStore(const AnsiText& codePage) : ansiText(codePage) {}

    static constexpr const wchar_t* kOwnFile = L"KORVOQLB.INI";

    [[nodiscard]] static const AnsiText& CodePage(bool japanese) {
        static const FakeAnsiText western(FakeAnsiText::kWestern);
        static const FakeAnsiText eastern(FakeAnsiText::kJapanese);
        return japanese ? eastern : western;
    }
    [[nodiscard]] static std::wstring Path(const std::wstring& subkey) {
        return subkey.empty() ? kProductKey : std::wstring(kProductKey) + L"\\" + subkey;
    }

    const AnsiText& ansiText;
    FakeRegistry registry;
    FakeProfileFiles files{ansiText};
    RegIniFunc store{registry, files, ansiText, kOwnFile};
};

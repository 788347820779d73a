#pragma once

#include "fakes/FakeAnsiText.h"
#include "fakes/FakeProfileFiles.h"
#include "fakes/FakeRegistry.h"
#include "settings/RegIniFunc.h"

#include "settings/Pattern.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iosfwd>

void PrintTo(const ButtonSlot& slot, std::ostream* stream);
void PrintTo(const Pattern& pattern, std::ostream* stream);

/// A settings store over an empty registry and no ini file. Subkeys are those below the product's key.
struct TestStore {
    explicit TestStore(unsigned codePage = FakeAnsiText::kWestern) : ansiText(codePage) {}

    static constexpr const wchar_t* kOwnFile = L"KORVOQLB.INI";

    FakeAnsiText ansiText;
    FakeRegistry registry;
    FakeProfileFiles files{ansiText};
    RegIniFunc store{registry, files, ansiText, kOwnFile};

    [[nodiscard]] static std::wstring Path(const std::wstring& subkey);

    void PutMachine(const std::wstring& subkey, const std::wstring& name, std::int32_t number);
    void PutMachine(const std::wstring& subkey, const std::wstring& name, const char* text);
    void PutUser(const std::wstring& subkey, const std::wstring& name, std::int32_t number);
    void PutUser(const std::wstring& subkey, const std::wstring& name, const char* text);
    void PutLine(const std::wstring& section, const std::wstring& key, const char* text);

    /// What is stored for the user; nothing when there is none, or of another type.
    [[nodiscard]] std::optional<std::string> UserString(const std::wstring& subkey,
                                                        const std::wstring& name) const;
    [[nodiscard]] std::optional<std::int32_t> UserDword(const std::wstring& subkey,
                                                        const std::wstring& name) const;
    [[nodiscard]] std::optional<std::string> Line(const std::wstring& section, const std::wstring& key) const;

    /// The writes so far, in order, to the registry and then to profile files. Lines such as
    /// `Setting\Set1 SetName = "Home"`, `Setting\Set1\AppKey1 NumAP = 3`, `[USER1] UserName = "Home"`,
    /// `delete Setting\Set3 `, `delete [USER3]`.
    [[nodiscard]] std::vector<std::string> Written() const;

    /// The reads so far, in order, of the registry and then of profile files. Lines such as
    /// `HKLM UTLSetting ShowNTTab`, `HKCU Setting\Set1 SetName`, `[USER1] UserName`.
    [[nodiscard]] std::vector<std::string> Asked() const;

    void ForgetOperations();
};

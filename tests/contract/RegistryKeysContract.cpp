#include "RawRegistry.h"
#include "RegistryValues.h"
#include "Rigs.h"
#include "fakes/FakeRegistry.h"
#include "platform/windows/WindowsRegistry.h"
#include "settings/StdModule.h"

#include <windows.h>

#include <gmock/gmock.h>

using testing::Optional;

namespace {

using namespace std::string_literals;

constexpr auto kUser = RegistryHive::CurrentUser;
const std::wstring kPath = L"Software\\QLBUtlContract";

class FakeRig {
public:
    static constexpr const char* kName = "Fake";

    FakeRegistry registry;
    void DenyReading() { registry.refusesReads = true; }
    void DenyWriting() { registry.refusesWrites = true; }
};

class WindowsRig {
public:
    static constexpr const char* kName = "Windows";

    WindowsRegistry registry{kPath};
    void DenyReading() { denied_.emplace(kUser, kPath, KeyRight::Read); }
    void DenyWriting() { denied_.emplace(kUser, kPath, KeyRight::Write); }

private:
    ScratchHives hives_;
    std::optional<DeniedRight> denied_;
};

/// Keys as a whole: their values, and how values and keys go.
template <class Rig> class RegistryKeys : public testing::Test {
protected:
    Rig rig_;

    void Put(const std::wstring& name, const RegistryValue& value, const std::wstring& path = kPath) {
        ASSERT_TRUE(rig_.registry.Set(kUser, path, name, value));
    }
    /// By their names, which count without regard to case.
    std::map<std::wstring, RegistryValue, LessIgnoreCase> Values() {
        std::map<std::wstring, RegistryValue, LessIgnoreCase> values;
        for (const NamedRegistryValue& each : rig_.registry.Values(kUser, kPath)) {
            EXPECT_TRUE(each.exact);
            EXPECT_TRUE(values.insert({each.name, each.value}).second);
        }
        return values;
    }
};

using Rigs = testing::Types<FakeRig, WindowsRig>;
TYPED_TEST_SUITE(RegistryKeys, Rigs, RigName);

TYPED_TEST(RegistryKeys, AMissingKeyHasNoValues) {
    EXPECT_TRUE(this->Values().empty());
}

TYPED_TEST(RegistryKeys, HaveEachOfTheirValuesAsQueryGivesIt) {
    const std::string kLong(5000, 'x');
    const RegistryValue kinds[] = {{kRegistryString, "abc\0"s},  {kRegistryString, "\0\0"s},
                                   {kRegistryString, "a\0b\0"s}, {kRegistryDword, "\1\0\0\0"s},
                                   {REG_BINARY, "abc"s},         {REG_EXPAND_SZ, "%x%\0"s},
                                   {REG_MULTI_SZ, "a\0b\0\0"s},  {kRegistryString, kLong + '\0'},
                                   {REG_BINARY, kLong},          {REG_NONE, ""}};
    for (std::size_t i = 0; i < std::size(kinds); ++i) {
        this->Put(L"Name" + std::to_wstring(i), kinds[i]);
    }
    this->Put(L"", {kRegistryString, "default\0"s});
    this->Put(L"Below", {kRegistryString, "x\0"s}, kPath + L"\\Sub");
    auto values = this->Values();
    EXPECT_EQ(values.size(), std::size(kinds) + 1);
    for (std::size_t i = 0; i < std::size(kinds); ++i) {
        const std::wstring name = L"Name" + std::to_wstring(i);
        EXPECT_EQ(values[name], kinds[i]) << i;
        EXPECT_THAT(this->rig_.registry.Query(kUser, kPath, name), Optional(kinds[i])) << i;
    }
}

TYPED_TEST(RegistryKeys, HaveNoValuesThatMayNotBeRead) {
    this->Put(L"Name", {kRegistryString, "x\0"s});
    this->rig_.DenyReading();
    EXPECT_TRUE(this->Values().empty());
}

TYPED_TEST(RegistryKeys, LoseOneValueAlone) {
    this->Put(L"One", {kRegistryString, "x\0"s});
    this->Put(L"Other", {kRegistryString, "y\0"s});
    EXPECT_TRUE(this->rig_.registry.DeleteValue(kUser, kPath, L"ONE"));
    EXPECT_EQ(this->Values().size(), 1U);
    EXPECT_TRUE(this->rig_.registry.DeleteValue(kUser, kPath, L"One")) << "it was not there";
    EXPECT_TRUE(this->rig_.registry.DeleteValue(kUser, kPath + L"\\None", L"One"));
}

TYPED_TEST(RegistryKeys, KeepAValueThatMayNotBeDeleted) {
    this->Put(L"One", {kRegistryString, "x\0"s});
    this->rig_.DenyWriting();
    EXPECT_FALSE(this->rig_.registry.DeleteValue(kUser, kPath, L"One"));
}

TYPED_TEST(RegistryKeys, GoOnlyWhenTheyAreEmpty) {
    this->Put(L"One", {kRegistryString, "x\0"s});
    this->rig_.registry.DeleteKeyIfEmpty(kUser, kPath);
    EXPECT_EQ(this->Values().size(), 1U);
    this->Put(L"Below", {kRegistryString, "x\0"s}, kPath + L"\\Sub");
    this->rig_.registry.DeleteValue(kUser, kPath, L"One");
    this->rig_.registry.DeleteKeyIfEmpty(kUser, kPath);
    EXPECT_TRUE(this->rig_.registry.Query(kUser, kPath + L"\\Sub", L"Below"));
    this->rig_.registry.DeleteKeyIfEmpty(kUser, kPath + L"\\None");
}

TEST(WindowsRegistryKeys, ThatAreEmptyGo) {
    const ScratchHives hives;
    WindowsRegistry registry{kPath};
    ASSERT_TRUE(registry.Set(kUser, kPath + L"\\Sub", L"One", {kRegistryString, "x\0"s}));
    ASSERT_TRUE(registry.DeleteValue(kUser, kPath + L"\\Sub", L"One"));
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, (kPath + L"\\Sub").c_str(), 0, KEY_READ, &key), ERROR_SUCCESS);
    RegCloseKey(key);
    registry.DeleteKeyIfEmpty(kUser, kPath + L"\\Sub");
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, (kPath + L"\\Sub").c_str(), 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND);
}

TEST(WindowsRegistryKeys, TellTextThatTheCodePageLacks) {
    const ScratchHives hives;
    RawRegistry::PutStored(kUser, kPath, L"Text", kRegistryString,
                           RawRegistry::StoredBytes(L"\x4E8C\xF1\0"s));
    const auto values = WindowsRegistry(kPath).Values(kUser, kPath);
    ASSERT_EQ(values.size(), 1U);
    EXPECT_FALSE(values.front().exact);
    EXPECT_THAT(WindowsRegistry(kPath).Query(kUser, kPath, L"Text"), Optional(values.front().value));
}

TEST(WindowsRegistryKeys, HaveTextWithoutItsNulAsQueryGivesIt) {
    const ScratchHives hives;
    const std::string text = RawRegistry::StoredBytes(L"abcdef");
    RawRegistry::PutStored(kUser, kPath, L"Text", kRegistryString, std::string_view(text).substr(0, 8));
    const auto values = WindowsRegistry(kPath).Values(kUser, kPath);
    ASSERT_EQ(values.size(), 1U);
    EXPECT_THAT(WindowsRegistry(kPath).Query(kUser, kPath, L"Text"), Optional(values.front().value));
}

} // namespace

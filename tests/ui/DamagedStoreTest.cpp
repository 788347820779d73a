#include "AnsiBytes.h"
#include "DamagedUse.h"
#include "driver/Handle.h"

#include <cstring>
#include <stdexcept>

namespace {

using UiDriver::RawValue;

class DamagedStore : public DamagedUse {
protected:
    /// Expects a rename of button 2 to be stored in spite of what the store held.
    void ExpectRenameWorks() {
        Start();
        NameBox(2).SetText(L"After all");
        Apply();
        ExpectAlive();
    }

    void ExpectNumbers(DWORD current, DWORD count) const {
        EXPECT_EQ(User().Dword(L"CurrSetting"), current);
        EXPECT_EQ(User().Dword(L"NumSetting"), count);
    }
};

TEST_F(DamagedStore, BytesOfOddLengthAsTexts) {
    const RawValue odd{REG_BINARY, {0x41, 0x83, 0x00, 0xff, 0x81}};
    Set(1).SetRaw(L"SetName", odd);
    AppKey(1, 1).SetRaw(L"DispTitle", odd);
    AppKey(1, 1).SetRaw(L"Execute", odd);
    AppKey(1, 1).SetRaw(L"AP1", odd);
    AppKey(1, 1).SetRaw(L"ProgName1", odd);
    OnScreenKey().SetRaw(L"FontFace", odd);
    ExpectUsableAndHarmless();
}

TEST_F(DamagedStore, EmptyValuesOfNoLength) {
    for (const wchar_t* name : {L"DispTitle", L"Execute", L"AP1", L"NumAP"}) {
        AppKey(1, 1).SetRaw(name, {REG_SZ, {}});
    }
    OnScreenKey().SetRaw(L"size", {REG_DWORD, {}});
    ExpectUsableAndHarmless();
}

TEST_F(DamagedStore, TextsAsNumbers) {
    AppKey(1, 1).Erase(L"NumAP");
    AppKey(1, 1).SetString(L"NumAP", L"many");
    OnScreenKey().SetString(L"OnScreen", L"yes");
    OnScreenKey().SetString(L"size", L"large");
    OnScreenKey().SetString(L"Color", L"red");
    ExpectUsableAndHarmless();
}

TEST_F(DamagedStore, NumbersAsTexts) {
    AppKey(1, 1).SetDword(L"DispTitle", 0x41424344);
    AppKey(1, 1).SetDword(L"Execute", 0xFFFFFFFF);
    OnScreenKey().SetDword(L"FontFace", 0x80808080);
    ExpectUsableAndHarmless();
}

TEST_F(DamagedStore, TextsAsTheMakersNumbers) {
    Machine().SetString(L"QSTART", L"one");
    Machine().SetString(L"BtnImage", L"hover");
    Machine().SetString(L"NTNumAPBtn", L"two");
    Machine().Sub(L"Default\\OnScreen").SetString(L"Size", L"large");
    Machine().Sub(L"UTLSetting\\ConvAppKey").SetString(L"AppKey1", L"two");
    ExpectUsableAndHarmless();
}

TEST_F(DamagedStore, NumbersFarOutOfRange) {
    AppKey(1, 1).SetDword(L"NumAP", 0x7FFFFFFF);
    AppKey(1, 2).SetDword(L"NumAP", 0xFFFFFFFF);
    OnScreenKey().SetDword(L"OnScreen", 77);
    OnScreenKey().SetDword(L"size", 0xFFFFFFFF);
    OnScreenKey().SetDword(L"Color", 0xFFFFFFFF);
    Machine().SetDword(L"DTNumAPBtn", 0xFFFFFFFF);
    ExpectUsableAndHarmless();
}

TEST_F(DamagedStore, ACurrentPatternBeyondTheCountStaysTheLaunchersOne) {
    StoredPattern seventh = Seeded(2);
    seventh.name = L"Seventh";
    seventh.Button(1).name = L"First of the seventh";
    WritePattern(Set(7), seventh);
    User().SetDword(L"CurrSetting", 7);
    ExpectUsableAndHarmless();
    ExpectNumbers(7, kPatterns);
    Start();
    EXPECT_EQ(ShownNames(1, 5), NamesOf(seventh, 1, 5));
    EXPECT_FALSE(Combo(IDC_cmbUserName0).Selected().has_value());
}

TEST_F(DamagedStore, FromACurrentPatternBeyondTheCountOneCanSwitch) {
    User().SetDword(L"CurrSetting", 7);
    Start();
    Combo(IDC_cmbUserName0).Choose(1);
    UiDriver::WaitUntil([&] { return ShownNames(1, 5) == NamesOf(Seeded(2), 1, 5); },
                        L"the second pattern to be shown");
    ExpectNumbers(2, kPatterns);
}

TEST_F(DamagedStore, ACurrentPatternOutOfRange) {
    User().SetDword(L"CurrSetting", 0xFFFFFFFF);
    ExpectUsableAndHarmless();
    ExpectNumbers(1, kPatterns);
}

struct BadCount : NamedCase {
    DWORD count;
    DWORD left; ///< by OK
};

class DamagedCount : public DamagedStore, public testing::WithParamInterface<BadCount> {};

TEST_P(DamagedCount, OfPatternsCountsAsOne) {
    User().SetDword(L"NumSetting", GetParam().count);
    ExpectUsableAndHarmless();
    ExpectNumbers(1, GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(, DamagedCount,
                         testing::Values(BadCount{{"Zero"}, 0, 1}, BadCount{{"Eleven"}, 11, 11},
                                         BadCount{{"MinusOne"}, 0xFFFFFFFF, 1}),
                         NameOfCase{});

TEST_F(DamagedStore, ANameOfAHundredThousandBytes) {
    AppKey(1, 1).SetString(L"DispTitle", std::wstring(50000, Local(L"é", L"あ")[0]));
    Set(2).SetString(L"SetName", std::wstring(50000, Local(L"é", L"あ")[0]));
    ExpectUsableAndHarmless();
    ExpectRenameWorks();
    EXPECT_EQ(AppKey(1, 2).String(L"DispTitle"), L"After all");
}

TEST_F(DamagedStore, ATextWithoutItsNul) {
    AppKey(1, 1).SetRaw(L"DispTitle", {REG_SZ, {'b', 0, 'a', 0, 'r', 0, 'e', 0}});
    Start();
    EXPECT_EQ(NameBox(1).Text(), L"bare");
}

TEST_F(DamagedStore, AKeyThatIsMissingHalfWay) {
    Set(2).EraseTree();
    AppKey(1, 4).EraseTree();
    ExpectUsableAndHarmless();
}

/// Takes away the right to write into a key for as long as it lives.
class WriteProtection {
public:
    explicit WriteProtection(const std::wstring& path) {
        RequireSuccess(
            RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, READ_CONTROL | WRITE_DAC, key_.Out()));
        DWORD size = 0;
        RegGetKeySecurity(Key(), DACL_SECURITY_INFORMATION, nullptr, &size);
        former_.resize(size);
        RequireSuccess(RegGetKeySecurity(Key(), DACL_SECURITY_INFORMATION, former_.data(), &size));
        Protect();
    }
    WriteProtection(const WriteProtection&) = delete;
    WriteProtection& operator=(const WriteProtection&) = delete;
    ~WriteProtection() { RegSetKeySecurity(Key(), DACL_SECURITY_INFORMATION, former_.data()); }

private:
    static void RequireSuccess(LSTATUS status) {
        if (status != ERROR_SUCCESS) {
            UiDriver::Fail(L"protecting a key failed with system error " + std::to_wstring(status));
        }
    }

    HKEY Key() const { return key_.Get(); }

    void Protect() {
        SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
        std::vector<BYTE> everyone(SECURITY_MAX_SID_SIZE);
        InitializeSid(everyone.data(), &world, 1);
        *GetSidSubAuthority(everyone.data(), 0) = SECURITY_WORLD_RID;
        std::vector<BYTE> bytes(256);
        auto* const list = reinterpret_cast<ACL*>(bytes.data());
        SECURITY_DESCRIPTOR descriptor{};
        InitializeAcl(list, static_cast<DWORD>(bytes.size()), ACL_REVISION);
        AddAccessDeniedAce(list, ACL_REVISION, KEY_SET_VALUE | KEY_CREATE_SUB_KEY, everyone.data());
        AddAccessAllowedAce(list, ACL_REVISION, KEY_ALL_ACCESS, everyone.data());
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
        RequireSuccess(RegSetKeySecurity(Key(), DACL_SECURITY_INFORMATION, &descriptor));
    }

    UiDriver::UniqueRegistryKey key_;
    std::vector<BYTE> former_;
};

TEST_F(DamagedStore, AKeyThatRefusesWritesLeavesTheDialogUsable) {
    const WriteProtection protection(L"Software\\Korvo\\KORVOQLB\\Setting\\Set1\\AppKey2");
    ASSERT_THROW(AppKey(1, 2).SetString(L"DispTitle", L"written"), std::runtime_error);
    const auto& launcher = StartLauncher();
    Start();
    NameBox(2).SetText(L"refused");
    NameBox(3).SetText(L"stored");
    Apply();
    ExpectAlive();
    EXPECT_EQ(NameBox(2).Text(), L"refused");
    StoredPattern expected = Seeded(1);
    expected.Button(3).name = L"stored";
    EXPECT_EQ(ReadPattern(Set(1)), expected);
    EXPECT_EQ(launcher.WaitForEntries(1).size(), 1U);
}

class DamagedFile : public DamagedStore {
protected:
    DamagedFile() { SeedIniBackEnd(); }
};

TEST_F(DamagedFile, OfAMegabyte) {
    std::string rubbish = "[Rubbish]\r\n";
    for (int i = 0; rubbish.size() < 1'000'000; ++i) {
        rubbish += "key" + std::to_string(i) + "=" + std::string(90, 'x') + "\r\n";
    }
    Ini().SetBytes(Ini().Bytes() + rubbish);
    ExpectUsableAndHarmless();
}

TEST_F(DamagedFile, WithHugeNames) {
    std::string bytes = Ini().Bytes();
    for (const char* key : {"\r\nUserName=", "\r\nBtn1_Name=", "\r\nBtn1_AP1="}) {
        bytes.insert(bytes.find(key) + std::strlen(key), std::string(60000, 'n'));
    }
    Ini().SetBytes(bytes);
    ExpectUsableAndHarmless();
}

TEST_F(DamagedFile, OfRandomBytes) {
    std::string bytes;
    unsigned state = 12345;
    for (int i = 0; i < 20000; ++i) {
        state = state * 1103515245U + 12345U;
        bytes += static_cast<char>(state >> 16);
    }
    Ini().SetBytes(bytes + "\r\n[KORVOQLB]\r\nQLBKeyboard=1\r\nNumUser=x\r\nCurrUser=99999999999\r\n");
    Start();
    ExpectAlive();
    Item(IDC_cmdOK).Press();
    ExpectEnd();
    EXPECT_EQ(Ini().Get("KORVOQLB", "CurrUser"), "1");
}

} // namespace

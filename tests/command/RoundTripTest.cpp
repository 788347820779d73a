#include "CommandRig.h"
#include "exchange/SettingsFile.h"
#include "settings/StdModule.h"
#include "settings/StoreLayout.h"

#include <cstdlib>
#include <iostream>
#include <random>

namespace {

using namespace std::string_literals;

unsigned Setting(const char* variable, unsigned usual) {
    const char* const text = std::getenv(variable);
    return text == nullptr ? usual : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

/// Stores of any content, carried from one computer to another.
class RoundTrip : public testing::TestWithParam<StoreKind> {
protected:
    RoundTrip() : random_(Setting("QLB_SEED", 4711)) {}

    unsigned Below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }

    std::string Bytes() {
        static const std::string kPieces[] = {" ",
                                              "\"",
                                              "|",
                                              "=",
                                              ";",
                                              "#",
                                              "[END]",
                                              "hex(1):",
                                              "\\",
                                              "'",
                                              "C:\\a b\\c.exe",
                                              "7",
                                              "-1",
                                              "\t",
                                              "FALSE",
                                              "\r\n",
                                              "\x81",
                                              "\x93\xFA",
                                              "\xE4",
                                              "a",
                                              "99999999999",
                                              "\x01",
                                              "\x02",
                                              "K",
                                              "http://x/?a=b&c",
                                              "",
                                              "\\u0041"};
        std::string bytes;
        for (unsigned i = Below(5); i > 0; --i) {
            bytes += kPieces[Below(std::size(kPieces))];
        }
        if (Below(40) == 0) {
            bytes += std::string(Below(3000), 'x');
        }
        return bytes;
    }

    RegistryValue Value() {
        switch (Below(8)) {
        case 0:
            return {kRegistryDword, FakeRegistry::BytesOf(static_cast<std::int32_t>(random_()))};
        case 1:
            return {kRegistryDword, FakeRegistry::BytesOf(static_cast<std::int32_t>(Below(12)))};
        case 2:
            return {Below(12), Bytes()};
        case 3:
            return {kRegistryString, Bytes() + "\0"s + Bytes() + "\0"s};
        case 4:
            return {kRegistryString, "\0\0"s};
        default:
            return {kRegistryString, Bytes() + "\0"s};
        }
    }

    void Fill(CommandRig& rig) {
        const unsigned share = 1 + Below(60); // of a hundred entries
        for (const std::wstring& section : LayoutSections()) {
            for (const std::wstring& key : LayoutKeys(section)) {
                if (Below(100) >= share || (share > 5 && Below(4) != 0)) {
                    continue;
                }
                if (rig.iniFile) {
                    std::string line = Bytes();
                    std::erase_if(line, [](char c) { return c == '\r' || c == '\n'; });
                    rig.files.PutLine(section, key, TestStore::kOwnFile, line);
                } else {
                    const RegistryPlace place = *TranslateIniName(section, key);
                    const RegistryValue value = Value();
                    rig.registry.PutRaw(RegistryHive::CurrentUser, place.path, place.name, value.type,
                                        WithNul(value));
                }
            }
        }
    }
    /// The system ends every text that it hands out.
    static std::string WithNul(RegistryValue value) {
        const bool isText = value.type == kRegistryString || value.type == 2 || value.type == 7;
        if (isText && !value.bytes.empty() && value.bytes.back() != '\0') {
            value.bytes.push_back('\0');
        }
        return value.bytes;
    }

    std::mt19937 random_;
};

TEST_P(RoundTrip, AnyStoreComesBackValueByValueInAnEmptyOne) {
    const unsigned rounds = Setting("QLB_ROUND_TRIPS", GetParam().iniFile ? 5 : 20);
    std::size_t values = 0;
    for (unsigned round = 0; round < rounds; ++round) {
        CommandRig from(GetParam());
        CommandRig to(GetParam());
        from.RememberNoCalls();
        to.RememberNoCalls();
        Fill(from);
        ASSERT_EQ(from.Qlb({L"export", L"C:\\all.qlb"}), kExitDone);
        const std::string file = *from.wholeFiles.Content(L"C:\\all.qlb");
        to.wholeFiles.Put(L"C:\\all.qlb", file);
        ASSERT_EQ(to.Qlb({L"restore", L"C:\\all.qlb"}), kExitDone)
            << round << ": " << ToUtf8(to.console.error) << file;
        if (GetParam().iniFile) {
            ASSERT_EQ(to.Stored().Read(), from.Stored().Read()) << round << file;
        } else {
            ASSERT_EQ(to.registry.Differences(from.registry), std::vector<std::wstring>()) << round << file;
        }
        values += from.Stored().Read().size();

        // And over one that holds something else.
        CommandRig other(GetParam());
        other.RememberNoCalls();
        Fill(other);
        if (!GetParam().iniFile) {
            other.registry.Remove(RegistryHive::CurrentUser, kProductKey, L"QLBB");
        }
        other.files.Remove(kProgramSection, L"QLBKeyboard", TestStore::kOwnFile);
        other.wholeFiles.Put(L"C:\\all.qlb", file);
        ASSERT_EQ(other.Qlb({L"restore", L"C:\\all.qlb"}), kExitDone) << round;
        ASSERT_EQ(other.Stored().Read(), from.Stored().Read()) << round << file;
    }
    EXPECT_GT(values, rounds);
}

INSTANTIATE_TEST_SUITE_P(Stores, RoundTrip, EveryKind(), KindName);

} // namespace

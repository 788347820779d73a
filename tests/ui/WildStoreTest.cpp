#include "DamagedUse.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>
#include <set>
#include <sstream>

namespace {

using UiDriver::RegistryKey;

unsigned Setting(const char* name, unsigned usual) {
    const char* const text = std::getenv(name);
    return text == nullptr ? usual : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

/// The lines of a file but for empty ones, which the system shifts when it writes.
std::vector<std::string> LinesOf(const std::string& file) {
    std::vector<std::string> lines;
    std::istringstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        if (line.find_first_not_of(" \t\r") != std::string::npos) {
            lines.push_back(line);
        }
    }
    return lines;
}

std::string KeyOf(const std::string& line) {
    std::string key = line.substr(0, line.find('='));
    std::erase(key, '\0'); // of a file in UTF-16
    std::transform(key.begin(), key.end(), key.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return key;
}

/// The two lines that OK always writes may be others, or new; each other line is still the same.
void ExpectSameButForTheNumbers(const std::string& file, const std::string& before) {
    const std::vector<std::string> is = LinesOf(file);
    const std::vector<std::string> was = LinesOf(before);
    std::set<std::string> written{"curruser", "numuser"};
    std::size_t old = 0;
    for (const std::string& line : is) {
        if (old < was.size() && line == was[old]) {
            ++old;
            continue;
        }
        const std::string key = KeyOf(line);
        ASSERT_EQ(written.erase(key), 1U) << line.substr(0, 300) << " in place of "
                                          << (old < was.size() ? was[old].substr(0, 300) : "nothing");
        old += old < was.size() && KeyOf(was[old]) == key ? 1U : 0U;
    }
    EXPECT_EQ(old, was.size()) << "the rest is gone";
}

/// Random values wherever the program reads one, again and again on what the last time left.
class WildStore : public DamagedUse {
protected:
    unsigned Below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }

    std::vector<std::uint8_t> Bytes() {
        const auto small = static_cast<std::uint8_t>(Below(14));
        switch (Below(10)) {
        case 0:
            return {};
        case 1:
            return {small, 0, 0, 0};
        case 2:
            return {static_cast<std::uint8_t>('0' + small), 0};
        case 3:
            return std::vector<std::uint8_t>(Below(40) == 0 ? 1'000'000 : 4100,
                                             static_cast<std::uint8_t>(1 + Below(255)));
        default:
            break;
        }
        std::vector<std::uint8_t> bytes(Below(2) == 0 ? Below(8) : Below(80));
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(Below(5) == 0 ? 0 : random_());
        }
        return bytes;
    }

    void Put(const RegistryKey& key, const std::wstring& name) {
        if (Below(3) == 0) {
            key.SetRaw(name, {Below(12), Bytes()});
        }
    }

    void Shuffle() {
        for (const wchar_t* name : {L"QSTART", L"BtnImage", L"NTNumAPBtn", L"DTNumAPBtn", L"NR1t2"}) {
            Put(Machine(), name);
        }
        for (const wchar_t* name : {L"OnScreen", L"Size", L"Color", L"FontFace"}) {
            Put(Machine().Sub(L"Default\\OnScreen"), name);
        }
        for (const wchar_t* name : {L"CurrSetting", L"NumSetting", L"QLBB"}) {
            Put(User(), name);
        }
        for (const wchar_t* name : {L"OnScreen", L"FontFace", L"size", L"Color", L"Time"}) {
            Put(OnScreenKey(), name);
        }
        for (int button = 1; button <= 8; ++button) {
            const std::wstring name = L"AppKey" + std::to_wstring(button);
            Put(Machine().Sub(L"UTLSetting\\ConvAppKey"), name);
            Put(Machine().Sub(L"UTLSetting\\ButtonName"), name);
            PutButton(Machine().Sub(L"Default\\Setting\\Set1\\" + name));
            PutButton(AppKey(1, button));
            PutButton(AppKey(2, button));
        }
        for (int pattern = 1; pattern <= 10; ++pattern) {
            Put(Set(pattern), L"SetName");
        }
    }
    void PutButton(const RegistryKey& key) {
        for (const wchar_t* name : {L"DispTitle", L"Execute", L"NumAP", L"AP1", L"AP5", L"ProgName1"}) {
            Put(key, name);
        }
    }

    /// Lines in which anything can stand, between sections that count.
    std::string RandomFile() {
        std::string text;
        const char* const keys[] = {
            "CurrUser=",    "NumUser=",   "OnScreen=",  "FontName=",    "FontSize=", "Color=",
            "UserName=",    "Btn1_Name=", "Btn2_Exec=", "Btn1_NumAP=",  "Btn3_AP1=", "Btn8_AP5=",
            "Btn1_Title1=", "",           "=",          "\xEF\xBB\xBF", "\xFF\xFE",  ";"};
        const char* const sections[] = {"[KORVOQLB]\r\n", "[ONSCREEN]\r\n", "[USER1]\r\n",
                                        "[USER2]\n",      "[USER10]\r\n",   "[]\r\n"};
        const unsigned lines = Below(200);
        for (unsigned line = 0; line < lines; ++line) {
            text += Below(6) == 0 ? sections[Below(6)] : keys[Below(18)];
            for (const std::uint8_t byte : Bytes()) {
                text += static_cast<char>(byte);
            }
            text += Below(9) == 0 ? "" : "\r\n";
        }
        return text;
    }

    /// By the system's own hand, until it has nothing more to lay out when the program writes.
    void LayOut() const {
        constexpr int kOften = 5;
        std::string before;
        for (int i = 0; i < kOften && Ini().Bytes() != before; ++i) {
            before = Ini().Bytes();
            for (const char* value : {"2", "1"}) {
                Ini().Set("KORVOQLB", "QLBKeyboard", value);
            }
        }
    }

    void ExpectNumbersInRange(int current, int count) const {
        EXPECT_TRUE(current >= 1 && current <= 10) << current;
        EXPECT_TRUE(count >= 1 && count <= 10) << count;
    }

    unsigned seed_ = Setting("QLB_SEED", Japanese() ? 2 : 1);
    unsigned starts_ = Setting("QLB_WILD_STARTS", 3);

private:
    std::mt19937 random_{seed_};
};

// QLB_WILD_STARTS and QLB_SEED in the environment make these longer, or other ones.

TEST_F(WildStore, InTheRegistryLeavesTheDialogUsableAndIsLeftAlone) {
    std::cout << starts_ << " starts from seed " << seed_ << '\n';
    for (unsigned start = 0; start < starts_ && !HasFailure(); ++start) {
        SCOPED_TRACE("start " + std::to_string(start) + " from seed " + std::to_string(seed_));
        Shuffle();
        ExpectUsableAndHarmless();
        ExpectNumbersInRange(static_cast<int>(User().Dword(L"CurrSetting").value_or(0)),
                             static_cast<int>(User().Dword(L"NumSetting").value_or(0)));
    }
}

TEST_F(WildStore, InTheFileLeavesTheDialogUsableAndIsLeftAlone) {
    std::cout << starts_ << " starts from seed " << seed_ << '\n';
    User().EraseTree();
    Machine().SetDword(L"QLBINI", 1);
    for (unsigned start = 0; start < starts_ && !HasFailure(); ++start) {
        SCOPED_TRACE("start " + std::to_string(start) + " from seed " + std::to_string(seed_));
        Ini().SetBytes(RandomFile());
        LayOut();
        const std::string before = Ini().Bytes();
        LookAtEveryPage();
        ExpectSameButForTheNumbers(Ini().Bytes(), before);
        EXPECT_FALSE(User().Exists());
        ExpectNumbersInRange(std::atoi(Ini().Get("KORVOQLB", "CurrUser").value_or("0").c_str()),
                             std::atoi(Ini().Get("KORVOQLB", "NumUser").value_or("0").c_str()));
    }
}

} // namespace

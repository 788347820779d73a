#include "KillUse.h"

#include "Texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <sstream>

using UiDriver::ToUtf8;
using Clock = std::chrono::steady_clock;

namespace {

constexpr UiDriver::Milliseconds kQuiet{250};     ///< without a change: the operation is over
constexpr UiDriver::Milliseconds kPatience{1000}; ///< for the first write

/// Sees the first write, however little it changes.
class FirstWrite {
public:
    explicit FirstWrite(bool iniFile) : iniFile_(iniFile), stamp_(Stamp()) {
        if (!iniFile_ &&
            (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Korvo\\KORVOQLB", 0, KEY_NOTIFY, key_.Out()) !=
                 ERROR_SUCCESS ||
             RegNotifyChangeKeyValue(key_.Get(), TRUE, REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET,
                                     event_.Get(), TRUE) != ERROR_SUCCESS)) {
            UiDriver::Fail(L"the user's key can't be watched");
        }
    }

    void Await() const {
        if (!iniFile_) {
            WaitForSingleObject(event_.Get(), static_cast<DWORD>(kPatience.count()));
            return;
        }
        for (const Clock::time_point begin = Clock::now();
             Stamp() == stamp_ && Clock::now() - begin < kPatience;) {
        }
    }

private:
    static std::uint64_t Stamp() {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        GetFileAttributesExW(UiDriver::Store::Ini().Path().c_str(), GetFileExInfoStandard, &data);
        return static_cast<std::uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32U |
               data.ftLastWriteTime.dwLowDateTime;
    }

    bool iniFile_;
    std::uint64_t stamp_;
    UiDriver::UniqueRegistryKey key_;
    UiDriver::UniqueKernelHandle event_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

const std::wstring* Find(const StoredValues& values, const std::wstring& place) {
    const auto found = values.find(place);
    return found == values.end() ? nullptr : &found->second;
}

bool Same(const std::wstring* a, const std::wstring* b) {
    return a == nullptr || b == nullptr ? a == b : *a == *b;
}

std::string Shown(const std::wstring* value) {
    return value == nullptr ? "missing" : ToUtf8(*value);
}

std::vector<std::string> LinesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    std::istringstream stream(bytes);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// Whether a file ends before its time, and is up to there what it was or would be, line by line.
bool IsCut(const std::string& left, const std::string& before, const std::string& after) {
    const std::vector<std::string> is = LinesOf(left);
    const std::vector<std::string> was = LinesOf(before);
    const std::vector<std::string> would = LinesOf(after);
    if (is.size() > std::min(was.size(), would.size()) ||
        (is.size() == std::min(was.size(), would.size()) && left.ends_with('\n'))) {
        return false;
    }
    for (std::size_t i = 0; i < is.size(); ++i) {
        const bool last = i + 1 == is.size();
        const bool fits = is[i] == was[i] || is[i] == would[i] ||
                          (last && (was[i].starts_with(is[i]) || would[i].starts_with(is[i])));
        if (!fits) {
            return false;
        }
    }
    return true;
}

} // namespace

StoredValues ParseStore(const std::wstring& dump) {
    StoredValues values;
    std::wstring root;
    std::wstring section;
    std::wistringstream lines(dump);
    for (std::wstring line; std::getline(lines, line);) {
        if (line.ends_with(L'\r')) {
            line.pop_back();
        }
        const std::size_t equals = line.find(L'=');
        if (line.starts_with(L'[')) {
            section = line;
        } else if (equals == std::wstring::npos) {
            root = line.empty() ? root : line; // a hive, or the name of the file
        } else {
            std::wstring place = root + section + line.substr(0, equals);
            while (values.contains(place)) {
                place += L" again";
            }
            values[place] = line.substr(equals + 1);
        }
    }
    return values;
}

unsigned FromEnvironment(const char* name, unsigned usual) {
    const char* const text = std::getenv(name);
    return text == nullptr ? usual : static_cast<unsigned>(std::strtoul(text, nullptr, 10));
}

Killer::Killer(Surroundings surroundings, std::vector<KilledOperation> operations)
    : surroundings_(std::move(surroundings)), operations_(std::move(operations)),
      seed_(FromEnvironment("QLB_SEED", Japanese() ? 2 : 1)), random_(seed_) {}

Killer::~Killer() {
    const unsigned before = kills_[Moment::BeforeFirstWrite];
    const unsigned between = kills_[Moment::Between];
    const unsigned after = kills_[Moment::AfterLastWrite];
    std::cout << "seed " << seed_ << ": " << before + between + after + cut_ << " kills, " << before
              << " before the first write, " << between << " between the first and the last, " << after
              << " after the last; " << cut_
              << " in the rewriting of the ini file, which left only its beginning" << std::endl;
}

void Killer::Kill(unsigned usual) {
    const unsigned kills = FromEnvironment("QLB_KILLS", usual);
    // Each operation with each back end in turn, from a place that depends on the seed.
    const auto kinds = static_cast<unsigned>(2 * operations_.size());
    for (unsigned i = 0; i < kills && !testing::Test::HasFailure(); ++i) {
        const unsigned kind = (i + seed_) % kinds;
        KillOnce(operations_[kind / 2], kind % 2 != 0);
    }
}

StoredValues Killer::Read() {
    return ParseStore(UiDriver::Store::Dump());
}

void Killer::EndProgram() const {
    const UiDriver::Process& program = surroundings_.program();
    TerminateProcess(program.Handle(), 1);
    program.WaitForExit();
}

Killer::Known& Killer::Learn(const KilledOperation& operation, bool iniFile, const StoredValues& before) {
    const auto [place, isNew] = known_.try_emplace({operation.name, iniFile});
    Known& known = place->second;
    if (!isNew) {
        return known;
    }
    const UiDriver::Control button = operation.begin();
    const Clock::time_point pressed = Clock::now();
    Clock::time_point changed = pressed;
    button.Press();
    known.after = before;
    // Guesses, for the first kill.
    known.writing = Time(iniFile ? 20 : 5);
    const auto isOver = [&] {
        StoredValues now = Read();
        if (now != known.after) {
            changed = Clock::now();
            known.after = std::move(now);
        }
        return changed != pressed && Clock::now() - changed > kQuiet;
    };
    UiDriver::WaitUntil(isOver, L"an operation to write");
    known.fileAfter = UiDriver::Store::Ini().Bytes();
    EndProgram();
    surroundings_.seed(iniFile);
    return known;
}

void Killer::KillOnce(const KilledOperation& operation, bool iniFile) {
    surroundings_.seed(iniFile);
    const StoredValues before = Read();
    const std::string fileBefore = UiDriver::Store::Ini().Bytes();
    Known& known = Learn(operation, iniFile, before);

    const UiDriver::Control button = operation.begin();
    const Time delay = known.writing * std::uniform_real_distribution<double>(0, 1.1)(random_);
    const bool fromFirstWrite = random_() % 8 != 0;
    const FirstWrite firstWrite(iniFile);
    button.Press();
    if (fromFirstWrite) {
        firstWrite.Await();
    }
    // Sleeping is too coarse.
    for (const Clock::time_point begin = Clock::now(); Clock::now() - begin < delay;) {
    }
    EndProgram();

    SCOPED_TRACE(std::string(operation.name) + (iniFile ? ", ini file" : ", registry") + ", killed " +
                 std::to_string(delay.count()) + " ms after the " +
                 (fromFirstWrite ? "first write" : "press") + ", seed " + std::to_string(seed_));
    if (iniFile && IsCut(UiDriver::Store::Ini().Bytes(), fileBefore, known.fileAfter)) {
        // The system writes an ini file anew with each value. A kill in that moment costs what was not yet in it.
        ++cut_;
        surroundings_.useAgain(iniFile);
        return;
    }
    const Moment moment = Judge(known, before, Read());
    ++kills_[moment];
    if (fromFirstWrite) {
        // The machine is now faster and now slower, so neither counts as a limit.
        constexpr double kLess = 0.7;
        constexpr double kMore = 1.2;
        known.writing = moment == Moment::AfterLastWrite ? std::max(Time(0.3), known.writing * kLess)
                                                         : std::max(known.writing, delay * kMore);
    }
    surroundings_.useAgain(iniFile);
}

Killer::Moment Killer::Judge(const Known& known, const StoredValues& before, const StoredValues& left) {
    StoredValues places = before;
    places.insert(known.after.begin(), known.after.end());
    places.insert(left.begin(), left.end());
    bool anyOld = false;
    bool anyNew = false;
    for (const auto& [place, value] : places) {
        const std::wstring* const was = Find(before, place);
        const std::wstring* const would = Find(known.after, place);
        const std::wstring* const is = Find(left, place);
        EXPECT_TRUE(Same(is, was) || Same(is, would)) << ToUtf8(place) << " is " << Shown(is) << ", was "
                                                      << Shown(was) << ", would be " << Shown(would);
        anyOld = anyOld || (Same(is, was) && !Same(was, would));
        anyNew = anyNew || (Same(is, would) && !Same(was, would));
    }
    return !anyNew ? Moment::BeforeFirstWrite : anyOld ? Moment::Between : Moment::AfterLastWrite;
}

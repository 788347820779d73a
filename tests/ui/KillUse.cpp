#include "KillUse.h"

#include "AnsiBytes.h"
#include "Texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <sstream>

using UiDriver::ToUtf8;
using Clock = std::chrono::steady_clock;

namespace {

constexpr UiDriver::Milliseconds kQuiet{300};      ///< without a write: the operation is over
constexpr UiDriver::Milliseconds kPatience{30000}; ///< for the first write

/// Sees writes, however little they change.
class WriteWatch {
public:
    explicit WriteWatch(bool iniFile) : iniFile_(iniFile), stamp_(Stamp()) {
        if (!iniFile_) {
            if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Korvo\\KORVOQLB", 0, KEY_NOTIFY, key_.Out()) !=
                ERROR_SUCCESS) {
                UiDriver::Fail(L"the user's key can't be watched");
            }
            Arm();
        }
    }

    /// False when none came in that time. Several in one moment are one.
    bool Await(UiDriver::Milliseconds patience) {
        if (!iniFile_) {
            if (WaitForSingleObject(event_.Get(), static_cast<DWORD>(patience.count())) != WAIT_OBJECT_0) {
                return false;
            }
            Arm();
            return true;
        }
        // Asking for the time of the last write opens nothing that could stand in the program's way.
        for (const Clock::time_point begin = Clock::now(); Clock::now() - begin < patience; Sleep(0)) {
            const std::uint64_t stamp = Stamp();
            if (stamp != stamp_) {
                stamp_ = stamp;
                return true;
            }
        }
        return false;
    }

private:
    void Arm() const {
        ResetEvent(event_.Get());
        if (RegNotifyChangeKeyValue(key_.Get(), TRUE, REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_LAST_SET,
                                    event_.Get(), TRUE) != ERROR_SUCCESS) {
            UiDriver::Fail(L"the user's key can't be watched");
        }
    }
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

/// A form that closes meanwhile needs no answer.
void AwaitAnswer(const UiDriver::Process& program) {
    constexpr UINT kLong = 30'000;
    for (const UiDriver::Window& form : UiDriver::Forms(program)) {
        SendMessageTimeoutW(form.Hwnd(), WM_NULL, 0, 0, SMTO_NORMAL, kLong, nullptr);
    }
}

/// Sleeping is too coarse for the end of it.
void Spend(std::chrono::duration<double, std::milli> time) {
    const Clock::time_point begin = Clock::now();
    constexpr double kCoarse = 3;
    if (time.count() > 2 * kCoarse) {
        Sleep(static_cast<DWORD>(time.count() - kCoarse));
    }
    while (Clock::now() - begin < time) {
    }
}

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

/// What stands behind "key=", for each section and key.
std::map<std::pair<std::string, std::string>, std::string> LinesOf(const std::string& file) {
    std::map<std::pair<std::string, std::string>, std::string> lines;
    std::string section;
    std::istringstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        const std::size_t equals = line.find('=');
        if (line.starts_with('[')) {
            section = line.substr(1, line.size() - 2);
        } else if (equals != std::string::npos) {
            lines[{section, line.substr(0, equals)}] = line.substr(equals + 1);
        }
    }
    return lines;
}

/// The file `before`, and after each of the writes that made it `after`, as the system's own functions lay it out.
std::vector<std::string> EachFile(const std::string& before, const KilledWrites& writes,
                                  const std::string& after) {
    const auto lines = LinesOf(after);
    const UiDriver::ProfileFile copy(UiDriver::Store::Ini().Path() + L".copy");
    copy.SetBytes(before);
    std::vector<std::string> files{before};
    for (const KilledWrite& write : writes) {
        if (write.key.empty()) {
            copy.EraseSection(write.section);
        } else {
            const auto line = lines.find({write.section, write.key});
            if (line == lines.end()) {
                UiDriver::Fail(FromAnsi("the operation did not write [" + write.section + "] " + write.key));
            }
            copy.Set(write.section, write.key, line->second);
        }
        files.push_back(copy.Bytes());
    }
    copy.Remove();
    return files;
}

StoredValues WithoutFile(StoredValues values) {
    std::erase_if(values, [](const auto& value) { return value.first.starts_with(L"KORVOQLB.INI"); });
    return values;
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

KilledWrites WritesOfPattern(int pattern, int buttons) {
    const std::string section = "USER" + std::to_string(pattern);
    constexpr int kPrograms = 5;
    KilledWrites writes{{section, "UserName"}};
    for (int button = 1; button <= buttons; ++button) {
        const std::string prefix = "Btn" + std::to_string(button) + "_";
        for (const char* field : {"Exec", "NumAP", "Name"}) {
            writes.push_back({section, prefix + field});
        }
        for (const char* field : {"AP", "Title"}) {
            for (int k = 1; k <= kPrograms; ++k) {
                writes.push_back({section, prefix + field + std::to_string(k)});
            }
        }
    }
    return writes;
}

KilledWrites WritesOfScreen() {
    return {
        {"ONSCREEN", "OnScreen"}, {"ONSCREEN", "FontName"}, {"ONSCREEN", "FontSize"}, {"ONSCREEN", "Color"}};
}

KilledWrites operator+(KilledWrites first, const KilledWrites& then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

Killer::Killer(Surroundings surroundings, std::vector<KilledOperation> operations)
    : surroundings_(std::move(surroundings)), operations_(std::move(operations)),
      seed_(FromEnvironment("QLB_SEED", Japanese() ? 2 : 1)), random_(seed_) {}

Killer::~Killer() {
    const unsigned before = kills_[Moment::BeforeFirstWrite];
    const unsigned between = kills_[Moment::Between];
    const unsigned after = kills_[Moment::AfterLastWrite];
    const unsigned cut = kills_[Moment::InTheRewriting];
    std::cout << "seed " << seed_ << ": " << before + between + after + cut << " kills, " << before
              << " before the first write, " << between << " between the first and the last, " << after
              << " after the last; " << cut
              << " in the rewriting of the ini file, which left only its beginning" << std::endl;
}

void Killer::Kill() {
    const auto count = static_cast<unsigned>(operations_.size());
    const unsigned kills = FromEnvironment("QLB_KILLS", count);
    for (unsigned i = 0; i < kills && !testing::Test::HasFailure(); ++i) {
        if (i < count) {
            KillOnce(operations_[i], (i + seed_) % 2 != 0);
        } else {
            KillAtRandom();
        }
    }
    constexpr unsigned kShare = 4;
    constexpr unsigned kMore = 16;
    // A few kills may all fall badly; many can't.
    const unsigned wanted = kills > count ? kills / kShare : 1;
    for (unsigned i = 0; i < kMore && KillsWhileWriting() < wanted && !testing::Test::HasFailure(); ++i) {
        KillAtRandom();
    }
    EXPECT_GE(KillsWhileWriting(), wanted) << "hardly a kill fell where it says anything";
}

void Killer::KillAtRandom() {
    const std::size_t operation = random_() % operations_.size();
    KillOnce(operations_[operation], random_() % 2 != 0);
}

unsigned Killer::KillsWhileWriting() {
    return kills_[Moment::Between] + kills_[Moment::InTheRewriting];
}

StoredValues Killer::Read() {
    return ParseStore(UiDriver::Store::Dump());
}

void Killer::EndProgram() const {
    const UiDriver::Process& program = surroundings_.program();
    TerminateProcess(program.Handle(), 1);
    program.WaitForExit();
}

Killer::Known& Killer::Learn(const KilledOperation& operation, bool iniFile) {
    const auto [place, isNew] = known_.try_emplace({operation.name, iniFile});
    Known& known = place->second;
    if (!isNew) {
        return known;
    }
    const std::string fileBefore = UiDriver::Store::Ini().Bytes();
    const UiDriver::Control button = operation.begin();
    WriteWatch watch(iniFile);
    button.Press();
    if (!watch.Await(kPatience)) {
        UiDriver::Fail(L"the operation writes nothing");
    }
    const Clock::time_point first = Clock::now();
    Clock::time_point last = first;
    // A program that gets no time to run is quiet too, but doesn't answer until it is done.
    for (bool answered = false;;) {
        if (watch.Await(kQuiet)) {
            last = Clock::now();
        } else if (answered) {
            break;
        } else {
            AwaitAnswer(surroundings_.program());
            answered = true;
        }
    }
    known.writing = last - first;
    known.after = Read();
    if (iniFile) {
        const std::string fileAfter = UiDriver::Store::Ini().Bytes();
        known.files = EachFile(fileBefore, operation.writes, fileAfter);
        EXPECT_TRUE(known.files.back() == fileAfter) << operation.name << " has other writes than expected";
    }
    EndProgram();
    surroundings_.seed(iniFile);
    return known;
}

void Killer::KillOnce(const KilledOperation& operation, bool iniFile) {
    SCOPED_TRACE(std::string(operation.name) + (iniFile ? ", ini file" : ", registry") + ", seed " +
                 std::to_string(seed_));
    surroundings_.seed(iniFile);
    Known& known = Learn(operation, iniFile);
    const StoredValues before = Read();

    const UiDriver::Control button = operation.begin();
    const Time delay = known.writing * std::uniform_real_distribution<double>(0, 1)(random_);
    const bool fromFirstWrite = random_() % 8 != 0;
    WriteWatch watch(iniFile);
    button.Press();
    if (fromFirstWrite) {
        watch.Await(kPatience);
    }
    Spend(delay);
    EndProgram();

    SCOPED_TRACE("killed " + std::to_string(delay.count()) + " ms after the " +
                 (fromFirstWrite ? "first write" : "press"));
    const StoredValues left = Read();
    Moment moment{};
    if (iniFile) {
        moment = JudgeFile(known, UiDriver::Store::Ini().Bytes());
        EXPECT_TRUE(UiDriver::Store::Ini().Exists());
        EXPECT_TRUE(WithoutFile(left) == WithoutFile(before)) << "the registry changed";
    } else {
        moment = JudgeRegistry(known, before, left);
    }
    ++kills_[moment];
    if (fromFirstWrite && moment == Moment::AfterLastWrite) {
        constexpr double kLess = 0.8; // the machine was slower when the time was taken
        known.writing *= kLess;
    }
    surroundings_.useAgain(iniFile);
}

Killer::Moment Killer::JudgeFile(const Known& known, const std::string& left) {
    if (left == known.files.front()) {
        return Moment::BeforeFirstWrite;
    }
    if (left == known.files.back()) {
        return Moment::AfterLastWrite;
    }
    bool cut = false;
    for (const std::string& file : known.files) {
        if (left == file) {
            return Moment::Between;
        }
        cut = cut || file.starts_with(left);
    }
    EXPECT_TRUE(cut) << "no write leaves this file, and none begins so:\n" << left;
    return Moment::InTheRewriting;
}

Killer::Moment Killer::JudgeRegistry(const Known& known, const StoredValues& before,
                                     const StoredValues& left) {
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

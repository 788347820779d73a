#pragma once

#include "driver/Driver.h"

#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

/// Every value of the store, by where it lies.
using StoredValues = std::map<std::wstring, std::wstring>;
StoredValues ParseStore(const std::wstring& dump);

/// `name` in the environment, for a longer run or another one.
unsigned FromEnvironment(const char* name, unsigned usual);

/// A write as the layout has it, whatever the back end.
struct KilledWrite {
    std::string section;
    std::string key; ///< empty: the whole section goes
};
using KilledWrites = std::vector<KilledWrite>;

/// What saving these writes, in its order.
KilledWrites WritesOfPattern(int pattern, int buttons);
KilledWrites WritesOfScreen();
KilledWrites operator+(KilledWrites first, const KilledWrites& then);

inline const KilledWrite kWriteOfCurrent{"KORVOQLB", "CurrUser"};
inline const KilledWrite kWriteOfCount{"KORVOQLB", "NumUser"};

/// An operation of the program that writes.
struct KilledOperation {
    const char* name;
    /// Starts the program and brings it to where one more press of the button that it answers writes.
    std::function<UiDriver::Control()> begin;
    KilledWrites writes; ///< in their order, each of them once
};

/// Kills the program at random moments of its operations and looks at what is left of the store. A kill before the
/// first write, or after the last one, says little: most moments are counted from the first write, and lie within
/// the time that the writes took when nobody killed the program. How many fell there is expected to be some.
class Killer {
public:
    struct Surroundings {
        std::function<void(bool iniFile)> seed;
        std::function<const UiDriver::Process&()> program;
        /// Starts the program on what is left, and expects it to be of use.
        std::function<void(bool iniFile)> useAgain;
    };

    Killer(Surroundings surroundings, std::vector<KilledOperation> operations);
    Killer(const Killer&) = delete;
    Killer& operator=(const Killer&) = delete;
    /// Prints how many kills fell where.
    ~Killer();

    /// Kills each operation once, with the back ends taking turns; or QLB_KILLS in the environment times, the later
    /// ones at random. A few more, if none fell between the first and the last write.
    void Kill();

private:
    using Time = std::chrono::duration<double, std::milli>;

    struct Known {
        StoredValues after;
        std::vector<std::string> files; ///< the ini file before, and after each write
        Time writing{};                 ///< from the first write to the last one, about
    };
    enum class Moment { BeforeFirstWrite, Between, InTheRewriting, AfterLastWrite };

    void KillOnce(const KilledOperation& operation, bool iniFile);
    void KillAtRandom();
    [[nodiscard]] unsigned KillsWhileWriting();
    /// Runs the operation without a kill, and leaves the store as it was.
    Known& Learn(const KilledOperation& operation, bool iniFile);
    /// Expects each value to be the old or the new one.
    [[nodiscard]] static Moment JudgeRegistry(const Known& known, const StoredValues& before,
                                              const StoredValues& left);
    /// Expects the file as it was after one of the writes; or, as the system writes it anew with each value, the
    /// beginning of it, to the byte.
    [[nodiscard]] static Moment JudgeFile(const Known& known, const std::string& left);
    [[nodiscard]] static StoredValues Read();
    void EndProgram() const;

    Surroundings surroundings_;
    std::vector<KilledOperation> operations_;
    unsigned seed_;
    std::mt19937 random_;
    std::map<std::pair<std::string, bool>, Known> known_;
    std::map<Moment, unsigned> kills_;
};

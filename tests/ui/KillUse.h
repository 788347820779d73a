#pragma once

#include "driver/Driver.h"

#include <functional>
#include <map>
#include <random>
#include <string>

/// Every value of the store, by where it lies.
using StoredValues = std::map<std::wstring, std::wstring>;
StoredValues ParseStore(const std::wstring& dump);

/// `name` in the environment, for a longer run or another one.
unsigned FromEnvironment(const char* name, unsigned usual);

/// An operation of the program that writes.
struct KilledOperation {
    const char* name;
    /// Starts the program and brings it to where one more press of the button that it answers writes.
    std::function<UiDriver::Control()> begin;
};

/// Kills the program at random moments of its operations and looks at what is left of the store. A kill before the
/// first write, or after the last one, says little: most moments are counted from the first write, and lie within
/// the time that the writes took before.
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

    /// QLB_KILLS in the environment, or `usual` times.
    void Kill(unsigned usual);

private:
    using Time = std::chrono::duration<double, std::milli>;

    struct Known {
        StoredValues after;
        std::string fileAfter;
        Time writing; ///< from the first write to the last one, about
    };
    enum class Moment { BeforeFirstWrite, Between, AfterLastWrite };

    void KillOnce(const KilledOperation& operation, bool iniFile);
    Known& Learn(const KilledOperation& operation, bool iniFile, const StoredValues& before);
    /// Expects each value to be the old or the new one.
    [[nodiscard]] static Moment Judge(const Known& known, const StoredValues& before,
                                      const StoredValues& left);
    [[nodiscard]] static StoredValues Read();
    void EndProgram() const;

    Surroundings surroundings_;
    std::vector<KilledOperation> operations_;
    unsigned seed_;
    std::mt19937 random_;
    std::map<std::pair<std::string, bool>, Known> known_;
    std::map<Moment, unsigned> kills_;
    unsigned cut_ = 0; ///< kills that left the beginning of an ini file
};

#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

/// Does the work once and returns the milliseconds that count; nothing when it went wrong.
using Timed = std::function<std::optional<double>()>;

/// Rows of the table: some work of the program's beside the least that Windows takes for the same result, both
/// measured in turn.
class Comparison {
public:
    explicit Comparison(int rounds) : rounds_(rounds) {}

    /// Rows with the same words and more of `size` also tell how the time grows.
    /// A size of 0 is none.
    void Row(const std::string& what, int size, const Timed& floor, const Timed& ours);

    /// The last line. The exit code of the program: fails when a row went wrong, never for being slow.
    int Finish() const;

private:
    int rounds_;
    bool failed_ = false;
    struct Measured {
        int size = 0;
        double ours = 0;
    };
    std::map<std::string, Measured> last_; ///< of each kind of work
};

/// The number after "/rounds:" among the program's arguments.
int RoundsFrom(int count, wchar_t** arguments, int fallback);

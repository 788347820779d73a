#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

/// The same numbers from the same seed and round with every compiler, which the library's distributions don't
/// promise.
class Random {
public:
    Random(int seed, int round) {
        std::seed_seq sequence{seed, round};
        engine_.seed(sequence);
    }

    /// 0 … count - 1.
    int Below(int count) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(count)); }
    bool OneIn(int count) { return Below(count) == 0; }

    template <class Container> const auto& Of(const Container& choices) {
        return choices[static_cast<std::size_t>(Below(static_cast<int>(choices.size())))];
    }

private:
    std::mt19937_64 engine_;
};

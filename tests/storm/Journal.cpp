#include "Journal.h"

#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <numeric>
#include <sstream>

namespace {

constexpr std::size_t kKept = 80;

} // namespace

// FNV-1a.
std::uint64_t Hash(const std::string& text, std::uint64_t start) {
    constexpr std::uint64_t kPrime = 0x100000001B3U;
    const auto add = [](std::uint64_t hash, char c) {
        return (hash ^ static_cast<unsigned char>(c)) * kPrime;
    };
    return std::accumulate(text.begin(), text.end(), start, add);
}

std::string Hex(std::uint64_t number) {
    std::ostringstream out;
    out << std::hex << std::setw(16) << std::setfill('0') << number;
    return out.str();
}

Journal::Journal() : prints_(std::getenv("QLB_STORM_LOG") != nullptr), hash_(Hash({})) {}

void Journal::Act(const std::string& kind, const std::string& on) {
    ++kinds_[kind];
    Add(on.empty() ? kind : kind + ' ' + on);
}

void Journal::See(const std::string& outcome) {
    Add("  -> " + outcome);
}

int Journal::Actions() const {
    return std::accumulate(kinds_.begin(), kinds_.end(), 0,
                           [](int sum, const auto& kind) { return sum + kind.second; });
}

std::string Journal::Fingerprint() const {
    return Hex(hash_);
}

void Journal::Add(const std::string& line) {
    hash_ = Hash(line + '\n', hash_);
    if (prints_) {
        std::cout << "  " << line << '\n' << std::flush;
    }
    last_.push_back(line);
    if (last_.size() > kKept) {
        last_.pop_front();
    }
}

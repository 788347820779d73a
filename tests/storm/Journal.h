#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>

/// What was done in a round and what came of it. Two rounds are the same when their fingerprints are.
class Journal {
public:
    Journal();

    /// An action of this kind; each kind is counted.
    void Act(const std::string& kind, const std::string& on = {});
    /// What is to be seen after it.
    void See(const std::string& outcome);

    [[nodiscard]] const std::map<std::string, int>& Kinds() const { return kinds_; }
    [[nodiscard]] int Actions() const;
    [[nodiscard]] std::string Fingerprint() const;

    /// The latest at the end.
    [[nodiscard]] const std::deque<std::string>& Last() const { return last_; }

private:
    void Add(const std::string& line);

    bool prints_;
    std::uint64_t hash_;
    std::map<std::string, int> kinds_;
    std::deque<std::string> last_;
};

/// The same with every compiler and in every run.
[[nodiscard]] std::uint64_t Hash(const std::string& text, std::uint64_t start = 0xCBF29CE484222325U);
[[nodiscard]] std::string Hex(std::uint64_t number);

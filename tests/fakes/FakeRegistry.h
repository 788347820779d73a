#pragma once

#include "fakes/CallFaults.h"
#include "fakes/FakeText.h"
#include "fakes/TakeAll.h"
#include "platform/Registry.h"

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <map>
#include <set>
#include <string_view>
#include <vector>

/// A registry in memory. Key and value names count without regard to case. Every call is remembered, and any of
/// them can be made to fail.
class FakeRegistry final : public Registry, public CallFaults {
public:
    enum class Access { Read, Write, Delete, DeleteValue };

    struct Operation {
        Access access = Access::Read;
        RegistryHive hive = RegistryHive::LocalMachine;
        std::wstring path;
        std::wstring name;
        RegistryValue value; ///< what was written; nothing for a read

        bool operator==(const Operation&) const = default;
    };

    [[nodiscard]] std::optional<RegistryValue> Query(RegistryHive hive, const std::wstring& path,
                                                     const std::wstring& name) const override {
        if (remembersCalls) {
            operations_.push_back({Access::Read, hive, path, name, {}});
        }
        return ReadFails() ? std::nullopt : Stored(hive, path, name);
    }

    bool Set(RegistryHive hive, const std::wstring& path, const std::wstring& name,
             const RegistryValue& value) override {
        if (remembersCalls) {
            operations_.push_back({Access::Write, hive, path, name, value});
        }
        if (WriteFails(name)) {
            return false;
        }
        RegistryValue stored = value;
        if (IsText(stored.type) && !stored.bytes.empty() && stored.bytes.back() != '\0') {
            // The system adds the NUL that the caller did not count.
            stored.bytes.push_back('\0');
        }
        values_[KeyOf(hive, path, name)] = std::move(stored);
        return true;
    }

    /// In the order of their names.
    [[nodiscard]] std::vector<NamedRegistryValue> Values(RegistryHive hive,
                                                         const std::wstring& path) const override {
        if (remembersCalls) {
            operations_.push_back({Access::Read, hive, path, {}, {}});
        }
        std::vector<NamedRegistryValue> values;
        if (ReadFails()) {
            return values;
        }
        const Key first = KeyOf(hive, path, {});
        for (auto value = values_.lower_bound(first);
             value != values_.end() && value->first.starts_with(first); ++value) {
            const std::wstring name = value->first.substr(first.size());
            values.push_back({name, value->second, !inexact_.contains(value->first)});
        }
        return values;
    }

    bool DeleteValue(RegistryHive hive, const std::wstring& path, const std::wstring& name) override {
        if (remembersCalls) {
            operations_.push_back({Access::DeleteValue, hive, path, name, {}});
        }
        if (WriteFails(name)) {
            return false;
        }
        Remove(hive, path, name);
        return true;
    }

    /// Keys have no life of their own here: one without values is none.
    void DeleteKeyIfEmpty(RegistryHive /*hive*/, const std::wstring& /*path*/) override {}

    bool DeleteKey(RegistryHive hive, const std::wstring& path) override {
        if (remembersCalls) {
            operations_.push_back({Access::Delete, hive, path, {}, {}});
        }
        if (WriteFails({})) {
            return false;
        }
        if (path.empty()) {
            return false; // as the real one, which would lose the whole hive
        }
        std::erase_if(values_, [&](const auto& value) { return IsBelow(value.first, hive, path); });
        return true;
    }

    /// Puts any bytes there, as another program may have left them. Not an operation.
    void PutRaw(RegistryHive hive, const std::wstring& path, const std::wstring& name, std::uint32_t type,
                std::string_view bytes) {
        values_[KeyOf(hive, path, name)] = {type, std::string(bytes)};
    }
    /// The text there has characters that the code page lacks.
    void MarkInexact(RegistryHive hive, const std::wstring& path, const std::wstring& name) {
        inexact_.insert(KeyOf(hive, path, name));
    }
    /// `text` in bytes of the code page; the terminating NUL is added.
    void PutString(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                   std::string_view text) {
        PutRaw(hive, path, name, kRegistryString, std::string(text) + '\0');
    }
    void PutDword(RegistryHive hive, const std::wstring& path, const std::wstring& name,
                  std::int32_t number) {
        PutRaw(hive, path, name, kRegistryDword, BytesOf(number));
    }
    void Remove(RegistryHive hive, const std::wstring& path, const std::wstring& name) {
        values_.erase(KeyOf(hive, path, name));
    }

    /// What is stored. Not an operation, and never refused.
    [[nodiscard]] std::optional<RegistryValue> Stored(RegistryHive hive, const std::wstring& path,
                                                      const std::wstring& name) const {
        const auto found = values_.find(KeyOf(hive, path, name));
        return found == values_.end() ? std::nullopt : std::optional(found->second);
    }
    /// The bytes of a stored string without its last NUL; nothing when there is none, or of another type.
    [[nodiscard]] std::optional<std::string> StoredString(RegistryHive hive, const std::wstring& path,
                                                          const std::wstring& name) const {
        auto value = Stored(hive, path, name);
        if (!value || value->type != kRegistryString) {
            return std::nullopt;
        }
        if (value->bytes.ends_with('\0')) {
            value->bytes.pop_back();
        }
        return value->bytes;
    }
    [[nodiscard]] std::optional<std::int32_t> StoredDword(RegistryHive hive, const std::wstring& path,
                                                          const std::wstring& name) const {
        const auto value = Stored(hive, path, name);
        std::array<char, sizeof(std::int32_t)> bytes{};
        if (!value || value->type != kRegistryDword || value->bytes.size() != bytes.size()) {
            return std::nullopt;
        }
        value->bytes.copy(bytes.data(), bytes.size());
        return std::bit_cast<std::int32_t>(bytes);
    }

    [[nodiscard]] bool SameValues(const FakeRegistry& other) const { return values_ == other.values_; }
    /// Where the two have another value, or one of them none.
    [[nodiscard]] std::vector<std::wstring> Differences(const FakeRegistry& other) const {
        std::vector<std::wstring> places;
        ForEachDifference(values_, other.values_, std::equal_to<>(),
                          [&](const Key& key) { places.push_back(key.substr(1)); });
        return places;
    }
    /// The same for the place that an operation is about.
    [[nodiscard]] static std::wstring PlaceOf(const Operation& operation) {
        return KeyOf(operation.hive, operation.path, operation.name).substr(1);
    }

    void TakeValuesOf(const FakeRegistry& other) { TakeAll(values_, other.values_, std::equal_to<>()); }
    /// Takes that one value, or that it is missing; all of a key where the operation removes one.
    void TakePlace(const Operation& operation, const FakeRegistry& other) {
        if (operation.access == Access::Delete) {
            for (const auto& [place, value] : other.values_) {
                if (IsBelow(place, operation.hive, operation.path)) {
                    values_[place] = value;
                }
            }
            return;
        }
        const Key key = KeyOf(operation.hive, operation.path, operation.name);
        const auto found = other.values_.find(key);
        if (found == other.values_.end()) {
            values_.erase(key);
        } else {
            values_[key] = found->second;
        }
    }

    /// Every call so far, refused ones too, in order.
    [[nodiscard]] const std::vector<Operation>& Operations() const { return operations_; }
    [[nodiscard]] std::vector<Operation> Writes() const {
        std::vector<Operation> writes;
        for (const Operation& operation : operations_) {
            if (operation.access != Access::Read) {
                writes.push_back(operation);
            }
        }
        return writes;
    }
    void ForgetOperations() { operations_.clear(); }

    [[nodiscard]] static std::string BytesOf(std::int32_t number) {
        const auto bytes = std::bit_cast<std::array<char, sizeof number>>(number);
        return {bytes.begin(), bytes.end()};
    }

private:
    /// One text compares and copies faster than three. No name has a line's end in it.
    using Key = std::wstring;

    [[nodiscard]] static Key KeyOf(RegistryHive hive, std::wstring_view path, std::wstring_view name) {
        Key key;
        key.reserve(path.size() + name.size() + 2);
        key.push_back(hive == RegistryHive::LocalMachine ? L'M' : L'U');
        AppendLowered(key, path);
        key.push_back(kEndOfPath);
        AppendLowered(key, name);
        return key;
    }
    /// A value of the key or of one below it.
    [[nodiscard]] static bool IsBelow(const Key& key, RegistryHive hive, std::wstring_view path) {
        Key above = KeyOf(hive, path, {});
        above.pop_back();
        return key.starts_with(above) && (key[above.size()] == kEndOfPath || key[above.size()] == L'\\');
    }
    static constexpr wchar_t kEndOfPath = L'\n';

    /// REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ.
    [[nodiscard]] static bool IsText(std::uint32_t type) {
        return type == kRegistryString || type == 2 || type == 7;
    }

    std::map<Key, RegistryValue> values_;
    std::set<Key> inexact_;
    mutable std::vector<Operation> operations_;
};

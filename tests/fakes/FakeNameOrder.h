#pragma once

#include "fakes/FakeText.h"
#include "platform/NameOrder.h"

/// A sorted list box without regard to case, or with an order that no other code would come up with.
class FakeNameOrder final : public NameOrder {
public:
    bool backwards = false;

    [[nodiscard]] std::string SortKey(const std::wstring& name) const override {
        std::string key;
        for (const wchar_t c : Lowered(name) + L'\0') { // the end orders names of which one begins the other
            for (const int shift : {24, 16, 8, 0}) {
                const auto byte = static_cast<unsigned char>(static_cast<std::uint32_t>(c) >> shift);
                key += static_cast<char>(backwards ? 0xFF - byte : byte);
            }
        }
        return key;
    }
};

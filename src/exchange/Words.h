#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// The texts of qlb and of what it shares with others, in resources/CommandTexts.inc.
enum class Say {
#define QLB_TEXT(name, english, japanese) name,
#include "resources/CommandTexts.inc"
#undef QLB_TEXT
};

enum class Tongue { English, Japanese };

/// The text, with `parts` in the places of "%1", "%2" ....
[[nodiscard]] std::wstring Said(Tongue tongue, Say what, const std::vector<std::wstring>& parts = {});

/// Something to tell about a file or about what is stored.
struct Finding {
    Say what;
    std::vector<std::wstring> parts;
    int line = 0; ///< of the file, from 1 on; 0: of none in particular

    bool operator==(const Finding&) const = default;
};

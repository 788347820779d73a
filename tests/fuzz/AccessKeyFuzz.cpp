#include "Fuzz.h"
#include "settings/StdModule.h"

#include <algorithm>
#include <regex>

namespace {

/// The same by the library's means.
std::wstring WithoutMnemonicByLibrary(const std::wstring& text) {
    static const std::wregex marks(L"\\(&[^&]\\)|&([\\s\\S]?)");
    return std::regex_replace(text, marks, L"$1");
}

std::size_t Ampersands(std::wstring_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), L'&'));
}

} // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name for it
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = Widened({reinterpret_cast<const char*>(data), size});
    const std::wstring read = WithoutMnemonic(text);
    Require(read == WithoutMnemonicByLibrary(text), "it reads otherwise");
    Require(Ampersands(text) > 0 || read == text, "a text without a mark changes");

    const std::wstring shown = WithoutAccessKeys(text);
    Require(shown.size() == text.size() + Ampersands(text), "not every & is doubled, or more than that");
    Require(WithoutMnemonic(shown) == text, "what is shown does not read as the text");
    Require(WithoutAccessKeys(text + L"(&X)") == shown + L"(&&X)", "the end depends on the beginning");
    return 0;
}

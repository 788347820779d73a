#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// An array whose elements are numbered from 1, as buttons and programs are. Another index is a program
/// error.
template <class T, std::size_t N> class NumberedFrom1 {
public:
    T& operator()(int number) { return items_[Index(number)]; }
    const T& operator()(int number) const { return items_[Index(number)]; }

    bool operator==(const NumberedFrom1&) const = default;

private:
    static std::size_t Index(int number) {
        assert(number >= 1 && static_cast<std::size_t>(number) <= N);
        return static_cast<std::size_t>(number) - 1;
    }

    std::array<T, N> items_{};
};

inline constexpr int kMaxButtons = 8;
inline constexpr int kDesktopButtons = 5; ///< buttons 1...5; the notebook's Fn keys are 6...8
inline constexpr int kMaxPrograms = 5;
inline constexpr int kMaxPatterns = 10;

/// What `ButtonSlot::Exec` means.
enum class LaunchMethod {
    Single,
    ShortcutKey,
    Sequential,
    Simultaneous,
    Unknown ///< any other text, the empty one too
};

/// One letter, in either case: "M", "K", "S", "P".
[[nodiscard]] LaunchMethod LaunchMethodFromText(std::wstring_view exec);

/// One program of a button.
struct ProgramEntry {
    std::wstring AP;    ///< command; for "K" a key code as decimal text
    std::wstring Param; ///< parameters of the command
    std::wstring Title; ///< empty means "shown by its command"

    bool operator==(const ProgramEntry&) const = default;
};

/// What one button does. Field names are those of the store's layout.
struct ButtonSlot {
    std::wstring Name;      ///< display name, shown on screen when the button is pressed
    std::wstring Exec;      ///< launch method letter
    std::int16_t NumAP = 0; ///< number of registered programs, 0...5
    NumberedFrom1<ProgramEntry, kMaxPrograms> Program;

    bool operator==(const ButtonSlot&) const = default;
};

/// A named set of settings for all buttons.
struct Pattern {
    std::wstring UserName;
    NumberedFrom1<ButtonSlot, kMaxButtons> Btn;

    bool operator==(const Pattern&) const = default;
};

/// True when buttons 1...buttonCount are set alike. Pattern names and program titles don't count; names are
/// compared exactly, launch methods, commands and parameters without regard to case.
[[nodiscard]] bool PatternsEqual(const Pattern& a, const Pattern& b, int buttonCount);

/// Numbers of the pictures in the main dialog's list. The pressed picture of each is the next number.
enum ButtonPicture : int { kPictureNoApp = 1, kPictureSingle = 3, kPictureSequence = 5, kPictureSimul = 7 };

/// The picture of button `number` (1...8). An unknown launch method counts as no program this once and is set
/// to "M" in the working and in the unchanged copy, so that the replacement is no change of the user's.
[[nodiscard]] ButtonPicture ButtonPictureIndex(Pattern& working, Pattern& unchanged, int number);

#pragma once

#include "settings/MakerSwitches.h"
#include "settings/Pattern.h"

#include <vector>

/// Names of the picture resources; number n of the list is entry n - 1.
[[nodiscard]] std::vector<const wchar_t*> PictureNames(const MakerSwitches& switches);

/// How a button looks besides what it does.
struct PictureState {
    bool pressed = false;
    bool hovered = false;
};

/// Number in the picture list for `button` (1...8), given its ButtonPictureIndex.
[[nodiscard]] int PictureNumber(const MakerSwitches& switches, int button, ButtonPicture picture,
                                PictureState state);

/// 0-based index of the last picture that is clipped to an ellipse, by "QSTART".
[[nodiscard]] int LastRoundPicture(const MakerSwitches& switches);

/// Width or height in pixels of a picture's round region: both operands in twips, each rounded to a whole
/// number before the whole-number division. 0 when the screen's twips per pixel round to 0.
[[nodiscard]] int RoundRegionPixels(double sizeTwips, double twipsPerPixel);

/// Which picture the mouse is over, in the set with hover pictures.
class ButtonHover {
public:
    /// Returns the buttons (1...8) to draw again: none, or the one left and the one entered.
    std::vector<int> MoveOver(int button);
    /// Over the frame around the pictures.
    std::vector<int> MoveOff();
    /// Off this button. The word of it may come after the mouse is over the next one.
    std::vector<int> Leave(int button);

    [[nodiscard]] bool IsOver(int button) const { return button_ == button; }

private:
    int button_ = 0; ///< 0: none
};

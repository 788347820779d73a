#include "dialogs/main/ButtonPictures.h"

#include <array>
#include <cmath>

namespace {

constexpr std::array<const wchar_t*, 8> kCommonNames{
    L"NO_APP",       L"NO_APP_DOWN",       L"RUN_SINGLE", L"RUN_SINGLE_DOWN",
    L"RUN_SEQUENCE", L"RUN_SEQUENCE_DOWN", L"RUN_SIMUL",  L"RUN_SIMUL_DOWN"};
constexpr std::array<const wchar_t*, 4> kHoverNames{L"NO_APP_MOUSEOVER", L"RUN_SINGLE_MOUSEOVER",
                                                    L"RUN_SEQUENCE_MOUSEOVER", L"RUN_SIMUL_MOUSEOVER"};
constexpr std::array<const wchar_t*, 8> kFnKeyNames{
    L"Q_NO_APP",       L"Q_NO_APP_DOWN",       L"Q_RUN_SINGLE", L"Q_RUN_SINGLE_DOWN",
    L"Q_RUN_SEQUENCE", L"Q_RUN_SEQUENCE_DOWN", L"Q_RUN_SIMUL",  L"Q_RUN_SIMUL_DOWN"};

constexpr int kFirstHoverNumber = static_cast<int>(kCommonNames.size()) + 1;
constexpr int kFnKeyShift = static_cast<int>(kCommonNames.size());
constexpr int kPicturesPerFamily = 2;

bool ShowsFnKey(const MakerSwitches& switches, int button) {
    return switches.QSTART == 1 && (button == 6 || button == 7);
}

} // namespace

std::vector<const wchar_t*> PictureNames(const MakerSwitches& switches) {
    std::vector<const wchar_t*> names(kCommonNames.begin(), kCommonNames.end());
    if (switches.UsesHoverPictures()) {
        names.insert(names.end(), kHoverNames.begin(), kHoverNames.end());
    } else {
        names.insert(names.end(), kFnKeyNames.begin(), kFnKeyNames.end());
    }
    return names;
}

int PictureNumber(const MakerSwitches& switches, int button, ButtonPicture picture, PictureState state) {
    if (state.pressed) {
        return picture + 1 + (ShowsFnKey(switches, button) ? kFnKeyShift : 0);
    }
    if (state.hovered && switches.UsesHoverPictures()) {
        return kFirstHoverNumber + (picture - kPictureNoApp) / kPicturesPerFamily;
    }
    return picture + (ShowsFnKey(switches, button) ? kFnKeyShift : 0);
}

int LastRoundPicture(const MakerSwitches& switches) {
    switch (switches.QSTART) {
    case 0:
        return kMaxButtons - 1;
    case 1:
        return kDesktopButtons - 1;
    default:
        return 0;
    }
}

int RoundRegionPixels(double sizeTwips, double twipsPerPixel) {
    const long divisor = std::lround(twipsPerPixel);
    return divisor == 0 ? 0 : static_cast<int>(std::lround(sizeTwips) / divisor);
}

std::vector<int> ButtonHover::MoveOver(int button) {
    if (button_ == button) {
        return {};
    }
    std::vector<int> changed = MoveOff();
    button_ = button;
    changed.push_back(button);
    return changed;
}

std::vector<int> ButtonHover::Leave(int button) {
    return button_ == button ? MoveOff() : std::vector<int>();
}

std::vector<int> ButtonHover::MoveOff() {
    if (button_ == 0) {
        return {};
    }
    const int left = button_;
    button_ = 0;
    return {left};
}

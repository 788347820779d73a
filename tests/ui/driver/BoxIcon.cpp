#include "BoxIcon.h"

#include <array>

namespace UiDriver {
namespace {

struct Candidate {
    BoxIcon icon;
    WORD resource;
};

constexpr std::array<Candidate, 4> kCandidates{{{BoxIcon::Stop, 32513},
                                                {BoxIcon::Question, 32514},
                                                {BoxIcon::Warning, 32515},
                                                {BoxIcon::Information, 32516}}};

Picture DrawIcon(WORD resource, const Picture& sample) {
    Picture picture(sample.Width(), sample.Height(), sample.Pixel(0, 0));
    const HICON icon = LoadIconW(nullptr, MAKEINTRESOURCEW(resource));
    picture.Draw([&](HDC hdc) {
        DrawIconEx(hdc, 0, 0, icon, sample.Width(), sample.Height(), 0, nullptr, DI_NORMAL);
    });
    return picture;
}

} // namespace

std::optional<BoxIcon> RecogniseIcon(const Picture& shown) {
    // Smooth edges may come out a little differently on the screen; two icons differ by far more.
    const std::size_t tolerance =
        static_cast<std::size_t>(shown.Width()) * static_cast<std::size_t>(shown.Height()) / 20;
    std::optional<BoxIcon> best;
    std::size_t fewest = tolerance + 1;
    for (const Candidate& candidate : kCandidates) {
        const std::size_t differing = DifferingPixels(shown, DrawIcon(candidate.resource, shown));
        if (differing < fewest) {
            best = candidate.icon;
            fewest = differing;
        }
    }
    return best;
}

} // namespace UiDriver

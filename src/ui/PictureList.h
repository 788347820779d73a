#pragma once

#include "platform/windows/Handles.h"

#include <map>
#include <utility>
#include <vector>

/// Round pictures from bitmap resources, numbered from 1, each scaled once per size that is asked for.
class PictureList {
public:
    void Load(const std::vector<const wchar_t*>& resourceNames) {
        names_ = resourceNames;
        scaled_.clear();
    }

    /// The scaling changed: the sizes made so far are not needed any more.
    void ForgetSizes() { scaled_.clear(); }

    /// A 32-bit bitmap of `size` x `size` pixels with premultiplied alpha; null when the resource is missing.
    [[nodiscard]] HBITMAP Picture(int number, int size);

private:
    std::vector<const wchar_t*> names_;
    std::map<std::pair<int, int>, Bitmap> scaled_;
};

/// A circle line in a system colour, as a bitmap like those above.
[[nodiscard]] Bitmap CreateRing(int size, int width, COLORREF color);

/// Draws a bitmap with premultiplied alpha.
void DrawWithAlpha(HDC hdc, int x, int y, int size, HBITMAP bitmap);

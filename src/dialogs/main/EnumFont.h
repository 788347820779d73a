#pragma once

#include "platform/InstalledFonts.h"
#include "settings/FaceMatcher.h"

#include <string>
#include <utility>
#include <vector>

/// The faces offered for the on-screen text.
class FontList final : public FaceMatcher {
public:
    /// `fallbackFace`: the dialog font (string id 3002).
    explicit FontList(std::wstring fallbackFace) : fallbackFace_(std::move(fallbackFace)) {}

    /// Fills the list anew: TrueType, upright, weight up to 400, ANSI or Shift-JIS; each face once, spelled
    /// and ordered as first reported.
    void EnumerateFonts(const InstalledFonts& installed);

    /// The list's spelling of `wanted`, or else of the fallback face. When neither is installed, `wanted` as
    /// it is: the box then shows no selection, and a face that is missing only today is not lost by saving.
    [[nodiscard]] std::wstring MatchInstalledFont(const std::wstring& wanted) const override;

    [[nodiscard]] const std::vector<std::wstring>& Faces() const { return faces_; }

    /// 0-based; -1 when the face is not in the list.
    [[nodiscard]] int IndexOf(const std::wstring& face) const;

private:
    std::wstring fallbackFace_;
    std::vector<std::wstring> faces_;
};

#pragma once

#include <windows.h>

#include <string>

/// Answers a screen reader's WM_GETOBJECT for a push button that draws itself: what the system says of any
/// button, with the name and description of its own. Nothing to say, as long as the system can answer better:
/// 0.
[[nodiscard]] LRESULT AnswerScreenReader(HWND button, WPARAM wParam, LPARAM lParam,
                                         std::wstring (*descriptionOf)(HWND button));

/// Tells screen readers that the button's description is another one.
void TellDescriptionChanged(HWND button);

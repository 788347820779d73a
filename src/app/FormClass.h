#pragma once

/// The one Win32 class of all our forms.
inline constexpr const wchar_t* kFormClass = L"QLBUtlForm";

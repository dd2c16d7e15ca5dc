// The HTML Help control and its function.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

constexpr const WCHAR* kHtmlHelpControl = _T("hhctrl.ocx");

typedef HWND(WINAPI* HtmlHelpFunction)(HWND caller, LPCWSTR file, UINT command, DWORD_PTR data);

// Null when the control is null or lacks the function.
inline HtmlHelpFunction HtmlHelpOf(HMODULE control) {
    if (control == nullptr)
        return nullptr;
    return reinterpret_cast<HtmlHelpFunction>(
        reinterpret_cast<void*>(::GetProcAddress(control, "HtmlHelpW")));
}

} // namespace quorvel

// Observes the validation balloon of a dialog: the messages sent to it, and whether it is visible.
// The platform does not return the title of such a window.
#pragma once

#include <quorvel/framework/wnd.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <vector>

class BalloonProbe : public CWnd {
public:
    explicit BalloonProbe(HWND dialog) : m_dialog(dialog) {
        EXPECT_TRUE(SubclassWindow(ExpectOne(dialog)));
    }
    // The balloons of the window; for a sheet also those of its pages.
    static std::vector<HWND> Find(HWND owner) {
        std::vector<HWND> found;
        for (HWND window = nullptr;
             (window = ::FindWindowExW(nullptr, window, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
            const LONG_PTR style = ::GetWindowLongPtrW(window, GWL_STYLE);
            if (::GetWindow(window, GW_OWNER) == owner && (style & TTS_BALLOON) != 0)
                found.push_back(window);
        }
        return found;
    }
    static HWND ExpectOne(HWND dialog) {
        const std::vector<HWND> found = Find(dialog);
        EXPECT_EQ(found.size(), 1u) << "one balloon for each dialog";
        return found.empty() ? nullptr : found.front();
    }
    bool IsVisible() const { return ::IsWindowVisible(m_hWnd) != FALSE; }
    CString Text() const {
        WCHAR text[6000] = L""; // the platform may ignore the limit
        TOOLINFOW tool = {};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = m_dialog;
        tool.uId = reinterpret_cast<UINT_PTR>(m_dialog);
        tool.lpszText = text;
        SendMessage(TTM_GETTEXTW, 80, reinterpret_cast<LPARAM>(&tool));
        return text;
    }

    std::vector<CString> m_titles;
    std::vector<WPARAM> m_icons;
    std::vector<POINT> m_places;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == TTM_SETTITLEW) {
            m_icons.push_back(wParam);
            m_titles.push_back(reinterpret_cast<const WCHAR*>(lParam));
        } else if (message == TTM_TRACKPOSITION) {
            m_places.push_back(
                {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }

private:
    const HWND m_dialog;
};

// CSpinButtonCtrl: a spin button, initially from 100 down to 0. Windows only, its window's thread.
#pragma once

#include <quorvel/framework/wnd.h>

class QUORVEL_API CSpinButtonCtrl : public CWnd {
    DECLARE_DYNAMIC(CSpinButtonCtrl)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(UPDOWN_CLASSW, nullptr, style, rect, parent, id);
    }

    // The control counts down when `low` is above `high`.
    void SetRange32(int low, int high) {
        SendMessage(UDM_SETRANGE32, static_cast<WPARAM>(low), high);
    }
    void GetRange32(int& low, int& high) const {
        SendMessage(UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                    reinterpret_cast<LPARAM>(&high));
    }
    // When the edit field shows no number within the range, returns the last valid position and
    // sets *error to TRUE.
    int GetPos32(BOOL* error = nullptr) const {
        return static_cast<int>(SendMessage(UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(error)));
    }
    int SetPos32(int position) { // clamped; returns the old one
        return static_cast<int>(SendMessage(UDM_SETPOS32, 0, position));
    }
    // The edit field of the position, and the steps while the button is held. SetBuddy returns the
    // old field.
    CWnd* SetBuddy(CWnd* buddy) {
        return FromHandle(reinterpret_cast<HWND>(
            SendMessage(UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy->GetSafeHwnd()))));
    }
    CWnd* GetBuddy() const { return FromHandle(reinterpret_cast<HWND>(SendMessage(UDM_GETBUDDY))); }
    BOOL SetAccel(int count, const UDACCEL* steps) {
        return static_cast<BOOL>(
            SendMessage(UDM_SETACCEL, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(steps)));
    }
};

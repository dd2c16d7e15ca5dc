// CProgressCtrl: a progress bar. Windows only, on its window's thread. Positions are signed 32-bit
// numbers: scale large byte counts down.
#pragma once

#include <quorvel/framework/wnd.h>

class QUORVEL_API CProgressCtrl : public CWnd {
    DECLARE_DYNAMIC(CProgressCtrl)
public:
    // As CWnd::Create, with the window class of the control.
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(PROGRESS_CLASSW, nullptr, style, rect, parent, id);
    }

    // At first the range is 0 to 100 and the step 10. SetStep and StepIt return the old value.
    void SetRange32(int low, int high) {
        SendMessage(PBM_SETRANGE32, static_cast<WPARAM>(low), high);
    }
    void GetRange(int& low, int& high) const {
        PBRANGE range = {};
        SendMessage(PBM_GETRANGE, FALSE, reinterpret_cast<LPARAM>(&range));
        low = range.iLow;
        high = range.iHigh;
    }
    int GetPos() const { return static_cast<int>(SendMessage(PBM_GETPOS)); }
    int SetPos(int position) { // returns the old one
        return static_cast<int>(SendMessage(PBM_SETPOS, static_cast<WPARAM>(position)));
    }
    int SetStep(int step) {
        return static_cast<int>(SendMessage(PBM_SETSTEP, static_cast<WPARAM>(step)));
    }
    int StepIt() { return static_cast<int>(SendMessage(PBM_STEPIT)); }
    // For a bar with the style PBS_MARQUEE. `milliseconds` is the interval between two steps.
    BOOL SetMarquee(BOOL on, int milliseconds) {
        return static_cast<BOOL>(
            SendMessage(PBM_SETMARQUEE, static_cast<WPARAM>(on), milliseconds));
    }
};

// CAnimateProgressCtrl: a progress bar that moves during an activity of unknown length. Windows
// only, user-interface thread.
#pragma once

#include <quorvel/framework/win/message_map.h>
#include <quorvel/framework/win/progress_ctrl.h>

class QUORVEL_API CAnimateProgressCtrl : public CProgressCtrl {
    DECLARE_DYNAMIC(CAnimateProgressCtrl)
public:
    CAnimateProgressCtrl();
    ~CAnimateProgressCtrl() override;

    // Start moves the bar until Stop, which empties it, or until the window is destroyed. Both
    // return FALSE without a window, and when the bar is already in that state.
    BOOL Start();
    BOOL Stop();
    BOOL IsStarted() const { return m_isStarted; }

protected:
    void OnTimer(UINT_PTR id);
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    BOOL m_isStarted = FALSE;
};

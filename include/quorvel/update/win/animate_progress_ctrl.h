// CAnimateProgressCtrl: a progress bar that moves while something goes on whose end is not known.
// Windows only, user-interface thread.
#pragma once

#include <quorvel/framework/win/message_map.h>
#include <quorvel/framework/win/progress_ctrl.h>

class QUORVEL_API CAnimateProgressCtrl : public CProgressCtrl {
    DECLARE_DYNAMIC(CAnimateProgressCtrl)
public:
    CAnimateProgressCtrl();
    ~CAnimateProgressCtrl() override;

    // The bar moves until Stop, which empties it, or until its window is destroyed. FALSE without a
    // window, and when it is moving, or not moving, already.
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

#include <quorvel/update/win/animate_progress_ctrl.h>

IMPLEMENT_DYNAMIC(CAnimateProgressCtrl, CProgressCtrl)

BEGIN_MESSAGE_MAP(CAnimateProgressCtrl, CProgressCtrl)
ON_WM_TIMER()
ON_WM_DESTROY()
END_MESSAGE_MAP()

namespace {

constexpr UINT_PTR kStepTimer = 0x5155;
constexpr UINT kMilliseconds = 40;

} // namespace

CAnimateProgressCtrl::CAnimateProgressCtrl() = default;

CAnimateProgressCtrl::~CAnimateProgressCtrl() = default;

// Common controls before version 6, which a program without a manifest gets, have no moving bar.
// They ignore the message, and this class fills the bar repeatedly instead.
BOOL CAnimateProgressCtrl::Start() {
    if (m_hWnd == nullptr || m_isStarted)
        return FALSE;
    m_isStarted = TRUE;
    ModifyStyle(0, PBS_MARQUEE);
    if (!SetMarquee(TRUE, kMilliseconds))
        SetTimer(kStepTimer, kMilliseconds);
    return TRUE;
}

BOOL CAnimateProgressCtrl::Stop() {
    if (m_hWnd == nullptr || !m_isStarted)
        return FALSE;
    m_isStarted = FALSE;
    KillTimer(kStepTimer);
    SetMarquee(FALSE, 0);
    ModifyStyle(PBS_MARQUEE, 0);
    SetPos(0);
    return TRUE;
}

void CAnimateProgressCtrl::OnTimer(UINT_PTR id) {
    if (id == kStepTimer) {
        SetStep(2);
        StepIt(); // wraps from the end to the beginning
    } else {
        CProgressCtrl::OnTimer(id);
    }
}

void CAnimateProgressCtrl::OnDestroy() {
    m_isStarted = FALSE;
    CProgressCtrl::OnDestroy();
}

// CScrollBar: a scroll bar control. Windows only.
#pragma once

#include <quorvel/framework/wnd.h>

// Its members are those of CWnd, with SB_CTL for the bar.
class QUORVEL_API CScrollBar : public CWnd {
    DECLARE_DYNAMIC(CScrollBar)
};

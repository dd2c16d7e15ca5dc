// CScrollBar: a scroll bar control. Windows only, on its window's thread.
#pragma once

#include <quorvel/framework/wnd.h>

// Use the members of CWnd with SB_CTL as the bar.
class QUORVEL_API CScrollBar : public CWnd {
    DECLARE_DYNAMIC(CScrollBar)
};

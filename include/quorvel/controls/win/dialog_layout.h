// CDialogLayout: moves and sizes the controls of a dialog with its window. Windows only,
// user-interface thread.
//
// A dialog that users may size has one as a member: LoadData or OnInitDialog calls Attach, the
// handlers of WM_SIZE and WM_GETMINMAXINFO call the operations of their names. The places in the
// template are those of the smallest window.
#pragma once

#include <quorvel/framework/wnd.h>

#include <initializer_list>
#include <vector>

class QUORVEL_API CDialogLayout {
public:
    // How far the edges of a control move when the window grows, in percent of the growth: 0 keeps
    // an edge where it is, 100 at the same distance from the window's right or lower edge.
    struct Control {
        // The control, and the percentages of its four edges.
        int id;
        int left;
        int top;
        int right;
        int bottom;
    };

    // Takes the places of the controls, and the size of the window, as they are now. Replaces what
    // was attached before and ignores ids without a control. Returns FALSE and changes nothing for
    // a dialog without a window.
    BOOL Attach(CWnd& dialog, std::initializer_list<Control> controls);

    // Both do nothing before Attach and after the window is destroyed. OnGetMinMaxInfo keeps the
    // user from making the window smaller than it was at Attach; in a smaller window the controls
    // keep their first places.
    void OnSize(UINT type);
    void OnGetMinMaxInfo(MINMAXINFO* info) const;

private:
    struct Place {
        Control control;
        HWND window;
        RECT rect; // in client coordinates, as attached
    };

    HWND m_dialog = nullptr;
    std::vector<Place> m_places;
    SIZE m_client = {}; // as attached, like the next
    SIZE m_window = {};
};

// The terminal has one text: heading, message and check box, a blank line apart.
#include "frame/vask_box.h"

#include <quorvel/framework/app.h>

namespace quorvel {

int ShowVaskBox(VaskBox& box) {
    CString text;
    if (box.heading)
        text = *box.heading + _T("\r\n\r\n");
    text += box.text;
    if (box.checkBoxText) {
        text += box.checkState != 0 ? _T("\r\n\r\n[x] ") : _T("\r\n\r\n[ ] ");
        CString label = *box.checkBoxText;
        label.Remove('&'); // marks the key of a window's check box
        text += label;
    }
    return AfxMessageBox(text, box.type, 0);
}

} // namespace quorvel

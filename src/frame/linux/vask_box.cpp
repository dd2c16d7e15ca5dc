// The terminal gets one text: heading, message and check box, separated by blank lines.
#include "frame/vask_box.h"

#include <quorvel/framework/app.h>

namespace quorvel {

namespace {

// An ampersand marks the key of a window's check box; two ampersands are one character.
CString WithoutKeyMarks(const CString& label) {
    CString text;
    for (int i = 0; i < label.GetLength(); ++i) {
        if (label[i] == '&' && ++i == label.GetLength())
            break;
        text.AppendChar(label[i]);
    }
    return text;
}

} // namespace

int ShowVaskBox(VaskBox& box) {
    CString text;
    if (box.heading)
        text = *box.heading + _T("\r\n\r\n");
    text += box.text;
    if (box.checkBoxText) {
        text += box.checkState != 0 ? _T("\r\n\r\n[x] ") : _T("\r\n\r\n[ ] ");
        text += WithoutKeyMarks(*box.checkBoxText);
    }
    return AfxMessageBox(text, box.type, 0);
}

} // namespace quorvel

#include "frame/vask_expectation.h"

CString ShownText(const WCHAR* heading, const WCHAR* text, const WCHAR* checkBox, int checkState) {
    CString shown;
    if (heading != nullptr)
        shown = CString(heading) + _T("\r\n\r\n");
    shown += text;
    if (checkBox != nullptr) {
        CString label(checkBox);
        label.Remove('&');
        shown += checkState == 1 ? _T("\r\n\r\n[x] ") : _T("\r\n\r\n[ ] ");
        shown += label;
    }
    return shown;
}

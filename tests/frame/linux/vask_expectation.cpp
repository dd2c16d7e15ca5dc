#include "frame/vask_expectation.h"

CString ShownText(const WCHAR* heading, const WCHAR* text, const WCHAR* checkBox, int checkState) {
    CString shown;
    if (heading != nullptr)
        shown = CString(heading) + _T("\r\n\r\n");
    shown += text;
    if (checkBox != nullptr) {
        CString label(checkBox); // of the texts used: marked at its start
        label.Delete(0);
        label.Replace(_T("&&"), _T("&"));
        shown += checkState == 1 ? _T("\r\n\r\n[x] ") : _T("\r\n\r\n[ ] ");
        shown += label;
    }
    return shown;
}

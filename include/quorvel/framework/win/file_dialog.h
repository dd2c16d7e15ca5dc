// CFileDialog: the system's dialogs in which users choose a file to open or to save to. Windows
// only, user-interface thread.
#pragma once

#include <quorvel/framework/wnd.h>

#include <vector>

class QUORVEL_API CFileDialog {
public:
    // The filter is as in "XML files|*.xml;*.svg|All files|*.*||"; null or empty: all files. The
    // extension is added to a name without one, unless it is empty. The flags are the platform's
    // OFN_ flags. Two are always set: the current folder stays, and paths must exist. A null text
    // counts as empty, a null parent as the thread's active window.
    CFileDialog(BOOL opens, const WCHAR* extension, const WCHAR* fileName, DWORD flags,
                const WCHAR* filter, CWnd* parent = nullptr);

    // IDOK or IDCANCEL, the latter also when the dialog could not be made.
    INT_PTR DoModal();
    CString GetPathName() const { return m_path; } // as given at first

private:
    const BOOL m_opens;
    const CString m_extension;
    CString m_path;
    const DWORD m_flags;
    CString m_filter; // with zeros between its parts
    CWnd* const m_parent;
};

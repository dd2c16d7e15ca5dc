// The application object, and the message box that goes through it.
//
// A program derives one object from CWinApp and lets it live from its start to its end; console
// programs may do without. Everything here belongs to the user-interface thread.
#pragma once

#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/object.h>

class CWnd;

class QUORVEL_API CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread();

    CWnd* m_pMainWnd; // not owned; null when the thread has no window
};

class QUORVEL_API CWinApp : public CWinThread {
    DECLARE_DYNAMIC(CWinApp)
public:
    // Without a name the application bears that of its program file, without the extension.
    explicit CWinApp(const WCHAR* appName = nullptr);
    ~CWinApp() override;

    // Shows every message box of the program and of the library: override it to show another, or
    // none. The result is the id of the button, such as IDOK; 0 when nothing could be shown.
    // The default is the platform's box under the application's name, over the active window, with
    // the icon and buttons of `type`. On Linux that is the terminal: the text goes to the standard
    // error; where a user sits at it the answer is read, otherwise it is the default button.
    virtual int DoMessageBox(const WCHAR* prompt, UINT type, UINT helpId);

    HINSTANCE m_hInstance;     // the program
    const WCHAR* m_pszAppName; // owned: from malloc, freed with the object
};

QUORVEL_API CWinApp* AfxGetApp(); // null when the program has no application object
QUORVEL_API CWnd* AfxGetMainWnd();
QUORVEL_API HINSTANCE AfxGetInstanceHandle();
// The application's name, or its default where there is no application object.
QUORVEL_API const WCHAR* AfxGetAppName();

// Through the application's DoMessageBox, or its default where there is no application object.
QUORVEL_API int AfxMessageBox(const WCHAR* text, UINT type = MB_OK, UINT helpId = 0);
// A catalogue text, whose id is the help id when none is given; 0, and no box, when it does not
// load.
QUORVEL_API int AfxMessageBox(UINT textId, UINT type = MB_OK, UINT helpId = static_cast<UINT>(-1));

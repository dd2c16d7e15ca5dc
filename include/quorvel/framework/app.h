// The application object, and the message boxes that it shows.
//
// A program derives one object from CWinApp; it lives as long as the program. Console programs may
// do without it. Everything here is for the user-interface thread.
#pragma once

#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/string.h>
#include <quorvel/framework/win_thread.h>

class CException;
class CWnd;

class QUORVEL_API CWinApp : public CWinThread { // the application
    DECLARE_DYNAMIC(CWinApp)
public:
    // Without a name, the application's name is that of its program file without the extension.
    explicit CWinApp(const WCHAR* appName = nullptr);
    ~CWinApp() override;

    // Shows every message box of the program and of the library. Override it to show a different
    // box, or nothing. Returns the id of the button, such as IDOK, or 0 when nothing could be
    // shown. The default shows the platform's box over the active window, titled with the
    // application's name. On Linux it writes the text to the standard error; on a terminal it reads
    // the answer, elsewhere the answer is the default button.
    virtual int DoMessageBox(const WCHAR* prompt, UINT type, UINT helpId);

    // Called when an exception leaves the handler of a window message. Returns the result of the
    // message; the caller then frees the exception. The default shows its error message, except for
    // CUserException (whose thrower has notified the user), for WM_CREATE and for messages that
    // draw. An exception that is not a CException arrives as one without a text.
    virtual LRESULT ProcessWndProcException(CException* exception, const MSG* message);

    // The profile: named values of the program in sections, kept in the registry at
    // HKEY_CURRENT_USER\Software\<registry key>\<profile name>\<section>. Call SetRegistryKey with
    // the company's name first; without it nothing is written and the getters return the defaults.
    void SetRegistryKey(const WCHAR* registryKey);
    void SetRegistryKey(UINT textId); // a catalogue text; no change when it is missing

    // The writers return FALSE for a null section and when the system refuses. A null entry removes
    // the section with all its entries, a null value removes the entry; then FALSE can also mean
    // that there was nothing to remove.
    virtual BOOL WriteProfileInt(const WCHAR* section, const WCHAR* entry, int value);
    virtual BOOL WriteProfileString(const WCHAR* section, const WCHAR* entry, const WCHAR* value);
    virtual BOOL WriteProfileBinary(const WCHAR* section, const WCHAR* entry, BYTE* data,
                                    UINT size);
    // A value of a different type or size counts as missing. A text that was stored without its
    // terminator is read in full. A null default is an empty text. The caller frees the binary data
    // with delete[]; when the result is FALSE, *data is null and *size is 0.
    virtual UINT GetProfileInt(const WCHAR* section, const WCHAR* entry, int defaultValue);
    virtual CString GetProfileString(const WCHAR* section, const WCHAR* entry,
                                     const WCHAR* defaultValue = nullptr);
    virtual BOOL GetProfileBinary(const WCHAR* section, const WCHAR* entry, BYTE** data,
                                  UINT* size);

    // Opens the key of the program, or of a section, and creates it when it is missing. Returns
    // null on failure. The caller closes the key with RegCloseKey.
    HKEY GetAppRegistryKey();
    HKEY GetSectionKey(const WCHAR* section);

    HINSTANCE m_hInstance;         // module of the program file
    const WCHAR* m_pszAppName;     // all three: from malloc, the destructor frees them
    const WCHAR* m_pszRegistryKey; // null until SetRegistryKey
    const WCHAR* m_pszProfileName; // null until SetRegistryKey sets the application's name
};

QUORVEL_API CWinApp* AfxGetApp();             // null when the program has no application object
QUORVEL_API CWnd* AfxGetMainWnd();            // m_pMainWnd of the application object, or null
QUORVEL_API HINSTANCE AfxGetInstanceHandle(); // the module of the program file
// The application's name; without an application object, the name that it would have by default.
QUORVEL_API const WCHAR* AfxGetAppName();

// Calls DoMessageBox of the application object; without one, the default of DoMessageBox.
QUORVEL_API int AfxMessageBox(const WCHAR* text, UINT type = MB_OK, UINT helpId = 0);
// Shows a catalogue text, whose id is also the default help id. Returns 0 and shows no box when the
// text is missing.
QUORVEL_API int AfxMessageBox(UINT textId, UINT type = MB_OK, UINT helpId = static_cast<UINT>(-1));

// The application object, and the message box that goes through it.
//
// A program derives one object from CWinApp and lets it live from its start to its end; console
// programs may do without. Everything here belongs to the user-interface thread.
#pragma once

#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/string.h>
#include <quorvel/framework/win_thread.h>

class CException;
class CWnd;

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

    // Called with an exception that left the handler of a window's message, which is over; the
    // result is the message's. The exception is freed afterwards. The default shows its error
    // message. It is silent for CUserException, whose thrower notified the user, and for WM_CREATE
    // and messages that draw. An exception of another kind comes as a CException without a text.
    virtual LRESULT ProcessWndProcException(CException* exception, const MSG* message);

    // The profile: named values of the program in sections, kept in the registry at
    // HKEY_CURRENT_USER\Software\<registry key>\<profile name>\<section>. SetRegistryKey, with the
    // company's name, comes first: without it nothing is written and the getters give the defaults.
    void SetRegistryKey(const WCHAR* registryKey);
    void SetRegistryKey(UINT textId); // a catalogue text; nothing changes when it does not load

    // The writers return FALSE when the system refuses and for a null section. A null entry removes
    // the section with all in it, a null value the entry; there FALSE also means that there was
    // none.
    virtual BOOL WriteProfileInt(const WCHAR* section, const WCHAR* entry, int value);
    virtual BOOL WriteProfileString(const WCHAR* section, const WCHAR* entry, const WCHAR* value);
    virtual BOOL WriteProfileBinary(const WCHAR* section, const WCHAR* entry, BYTE* data,
                                    UINT size);
    // A value of another kind, or of another size, is none. A text that was stored without its
    // terminator is read whole. A null default is an empty text. The caller frees the binary data
    // with delete[]; when the result is FALSE it is null and its size 0.
    virtual UINT GetProfileInt(const WCHAR* section, const WCHAR* entry, int defaultValue);
    virtual CString GetProfileString(const WCHAR* section, const WCHAR* entry,
                                     const WCHAR* defaultValue = nullptr);
    virtual BOOL GetProfileBinary(const WCHAR* section, const WCHAR* entry, BYTE** data,
                                  UINT* size);

    // The program's key and that of a section, made where they are missing; null when they cannot
    // be. The caller closes them with RegCloseKey.
    HKEY GetAppRegistryKey();
    HKEY GetSectionKey(const WCHAR* section);

    HINSTANCE m_hInstance;         // the program
    const WCHAR* m_pszAppName;     // these three are owned: from malloc, freed with the object
    const WCHAR* m_pszRegistryKey; // null until SetRegistryKey
    const WCHAR* m_pszProfileName; // null until SetRegistryKey, which makes it the application's
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

// The application object, the message box that goes through it, and worker threads.
//
// A program derives one object from CWinApp and lets it live from its start to its end; console
// programs may do without. Everything here but the worker threads belongs to the user-interface
// thread.
#pragma once

#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

#include <memory>

class CWnd;
namespace quorvel {
struct ThreadStart;
}

typedef UINT (*AFX_THREADPROC)(void* parameter);

// A thread of the library. An object that AfxBeginThread made for one goes with the end of its
// function; with m_bAutoDelete FALSE the starter deletes it, once the thread has ended.
class QUORVEL_API CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)
public:
    CWinThread();
    ~CWinThread() override; // a thread that was never resumed ends without running its function

    // 1 when the thread was suspended and runs now, 0 when it ran already. It may have ended, and
    // the object be gone, before this returns.
    DWORD ResumeThread();

    CWnd* m_pMainWnd;   // not owned; null when the thread has no window
    HANDLE m_hThread;   // owned: duplicate it to outlive the object; null without AfxBeginThread
    BOOL m_bAutoDelete; // TRUE; to be changed while the thread is suspended

private:
    friend struct quorvel::ThreadStart;
    std::shared_ptr<quorvel::ThreadStart> m_start;
};

// Runs the function on a thread of its own; its result is the thread's exit code, and an exception
// that leaves it is dropped (exit code 0). The priority is THREAD_PRIORITY_NORMAL (otherwise 87),
// a stack size of 0 the platform's default, and the one flag CREATE_SUSPENDED. Null with the last
// error when there is no thread to be had. Any thread.
QUORVEL_API CWinThread* AfxBeginThread(AFX_THREADPROC function, void* parameter,
                                       int priority = THREAD_PRIORITY_NORMAL, UINT stackSize = 0,
                                       DWORD flags = 0);

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
    // A value of another kind, or of another size, is none. A null default is an empty text. The
    // caller frees the binary data, of FALSE null and 0, with delete[].
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

// workbench [--settings NAME] [--https] [--key FILE]... [FILE]: shows the elements of an XML file,
// finds, filters and edits them. The settings lie under the name in the registry. The checks for
// updates ask over HTTPS, and for what the owner of one of the public keys has signed.
#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/net/vask_socket.h>

#include "help.h"
#include "main_dialog.h"
#include "options.h"

#include <objbase.h>
#include <shellapi.h>

#include <memory>

namespace {

CString FullPath(const CString& file) {
    WCHAR path[MAX_PATH];
    const DWORD length = ::GetFullPathNameW(file, MAX_PATH, path, nullptr);
    return length > 0 && length < MAX_PATH ? CString(path) : file;
}

void AddKey(const CString& name) {
    char bytes[1024]; // a key is shorter
    CFile file;
    const UINT count = file.Open(name, CFile::modeRead | CFile::shareDenyWrite)
                           ? file.Read(bytes, sizeof bytes)
                           : 0;
    // One that can't be read lets no update pass.
    UpdateOptionsInForce().publicKeys.emplace_back(CStringA(bytes, static_cast<int>(count)));
}

// Takes the options over; the result is the file.
CString ReadCommandLine() {
    CString file;
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> arguments(
        ::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    for (int i = 1; arguments != nullptr && i < count; ++i) {
        const CString argument(arguments.get()[i]);
        if (argument == _T("--https"))
            UpdateOptionsInForce().usesHttps = true;
        else if (argument == _T("--settings") && i + 1 < count)
            AfxGetApp()->m_pszProfileName = ::_wcsdup(arguments.get()[++i]);
        else if (argument == _T("--key") && i + 1 < count)
            AddKey(arguments.get()[++i]);
        else
            file = FullPath(argument);
    }
    return file;
}

} // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    ::CoInitialize(nullptr); // for the field that completes
    INT_PTR result = IDRETRY;
    {
        CWinApp app(_T("Workbench"));
        app.SetRegistryKey(_T("Quorvel"));
        CVaskSocket::Initialize();
        for (CString file = ReadCommandLine(); result == IDRETRY;) { // another language
            InstallLanguage(Settings::Load().language);
            MainDialog dialog(file);
            result = dialog.DoModal();
            file = dialog.GetFile();
        }
        CVaskSocket::Deinitialize();
    }
    ::CoUninitialize();
    return result == -1 ? 1 : 0;
}

// workbench_script FILE [--pictures FOLDER [SET]]: works with the windows of the workbench on a
// copy of an XML file, by keys and clicks as a user does, and prints what they show. With a folder
// it takes pictures there, whose names end with the set's.
#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/framework/win/list_ctrl.h>
#include <quorvel/net/vask_socket.h>
#include <quorvel/util/text/utf8.h>

#include "script.h"
#include "support/system_colors.h"
#include "workbench/help.h"
#include "workbench/main_dialog.h"
#include "workbench/options.h"
#include "workbench/resource.h"

#include <objbase.h>
#include <shlobj.h>

#include <cstdio>
#include <optional>
#include <string>

namespace {

const WCHAR kSettings[] = _T("Software\\Quorvel\\Workbench script");

enum Menu { kFile, kEdit, kTools, kHelp };

void Write(const CString& file, const std::string& bytes) {
    CFile(file, CFile::modeCreate | CFile::modeWrite)
        .Write(bytes.data(), static_cast<UINT>(bytes.size()));
}

std::string Read(const CString& file) {
    CFile opened(file, CFile::modeRead | CFile::shareDenyNone);
    std::string bytes(static_cast<std::size_t>(opened.GetLength()), '\0');
    opened.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

// As when the file is dropped on the window.
Script::Step Drop(const CString& file) {
    return [file](HWND box) {
        Say(_T("> drop ") + file);
        const SIZE_T size =
            sizeof(DROPFILES) + (static_cast<SIZE_T>(file.GetLength()) + 2) * sizeof(WCHAR);
        const HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
        auto* const drop = static_cast<DROPFILES*>(::GlobalLock(memory));
        drop->pFiles = sizeof *drop;
        drop->fWide = TRUE;
        ::lstrcpyW(reinterpret_cast<WCHAR*>(drop + 1), file);
        ::GlobalUnlock(memory);
        ::PostMessageW(box, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
    };
}

Script::Step ReturnTo() {
    return [](HWND box) {
        Say(_T("> come back from another program"));
        ::PostMessageW(box, WM_ACTIVATEAPP, TRUE, 0);
    };
}

void LookAndFind(Script& script) {
    script.Heading("A file from the command line");
    script.Show();
    script.Picture("workbench");
    script.ClickRow(CONTROL_LIST, 4);
    script.Show();

    script.Heading("Find and filter");
    script.Keys("Ctrl+F");
    script.Type(_T("language"));
    script.Keys("Enter");
    script.Show();
    script.Keys("Ctrl+L");
    script.Show();
    script.Picture("workbench_filtered");
    script.ClickHeading(CONTROL_LIST, 3);
    script.Show();
    script.Keys("Ctrl+Shift+L");
    script.ClickHeading(CONTROL_LIST, 4);
    script.Keys("F7");
    script.Show();
}

void Edit(Script& script, const CString& file) {
    script.Heading("Edit");
    script.ClickRow(CONTROL_LIST, 2);
    script.Keys("Tab");
    script.Keys("Ctrl+Home");
    script.Type(_T("<broken>"));
    script.Keys("Ctrl+Enter");
    script.Show();
    script.Picture("workbench_refused", true);
    script.Keys("Esc");
    script.Show();
    script.Keys("Tab");
    script.Keys("Ctrl+A");
    script.Type(_T("<link kind=\"new\">http://www.example.com/ä</link>"));
    script.Keys("Ctrl+Enter");
    script.Show();

    script.Heading("Another program changes the file meanwhile");
    script.Add([file](HWND) { Write(file, Read(file) + "<!-- another program -->"); });
    script.Add(ReturnTo());
    script.Show();
    script.Picture("workbench_changed_outside");
    script.Keys("Alt+N");
    script.Keys("Ctrl+S");
    script.Show();
    script.Keys("Alt+Y");
    script.Show();
    script.Add([file](HWND) {
        const std::string bytes = Read(file);
        const std::size_t place = bytes.find("<link kind");
        CString line;
        AfxUTF8ToWideChar(bytes.substr(place, bytes.find("\n", place) - place).c_str(), line);
        Say(_T("  in the file: ") + CString(CStringA(bytes.substr(0, 38).c_str())) + _T(" ... ") +
            line);
    });
}

void Refuse(Script& script, const CString& folder) {
    script.Heading("Files that cannot be shown");
    const std::pair<const WCHAR*, const char*> kFiles[] = {
        {_T("broken.xml"), "<?xml version=\"1.0\"?>\n<a>\n  <b></c>\n</a>\n"},
        {_T("empty.xml"), ""},
        {_T("text.xml"), "no XML at all"}};
    for (const auto& [name, bytes] : kFiles) {
        Write(folder + name, bytes);
        script.Add(Drop(folder + name));
        script.Show();
        script.Keys("Enter");
    }
    script.Add([folder](HWND) {
        const CString huge = folder + _T("huge.xml");
        Write(huge, "<a/>");
        CFile(huge, CFile::modeReadWrite).SetLength(0x80000000);
    });
    script.Add(Drop(folder + _T("huge.xml")));
    script.Show();
    script.Keys("Enter");
    script.Add([folder](HWND) { ::DeleteFileW(folder + _T("huge.xml")); });
    script.Add(Drop(folder + _T("missing.xml")));
    script.Show();
    script.Keys("Enter");
    script.Show();

    script.Heading("A file that may only be read, in another encoding and without a declaration");
    Write(folder + _T("plain.xml"), "<a><b>\xc3\xa4</b></a>");
    script.Add(Drop(folder + _T("plain.xml")));
    script.Show();
    script.Add([folder](HWND) {
        ::SetFileAttributesW(folder + _T("plain.xml"), FILE_ATTRIBUTE_READONLY);
    });
    script.Keys("Ctrl+S");
    script.Show();
    script.Keys("Enter");
    script.Add([folder](HWND) {
        ::SetFileAttributesW(folder + _T("plain.xml"), FILE_ATTRIBUTE_NORMAL);
        ::DeleteFileW(folder + _T("plain.xml"));
    });
    script.Add(ReturnTo());
    script.Show();
    script.Keys("Ctrl+S");
    script.Show();
}

void Options(Script& script, const CString& folder) {
    script.Heading("Options");
    script.Keys("Alt+T");
    script.Keys("P");
    script.Show();
    script.Type(_T("5"));
    script.Keys("Enter");
    script.Show();
    script.Keys("Ctrl+A");
    script.Type(_T("5000"));
    script.Keys("Ctrl+Tab");
    script.Show();
    script.Picture("workbench_shortcuts");
    script.Keys("Alt+F");
    script.Type(_T("check"));
    script.Show();
    script.Keys("Alt+A");
    script.Keys("Ctrl+F7");
    script.Show();
    script.Keys("Enter");
    script.Show();
    script.Keys("Enter");
    script.ShowMenu(kTools);
    script.Keys("Ctrl+F7");
    script.Show();

    script.Heading("Settings as a file");
    script.Keys("Alt+T");
    script.Keys("E");
    script.Keys("Ctrl+A");
    script.Type(folder + _T("workbench.reg"));
    script.Keys("Enter");
    script.Show();
    script.Add([folder](HWND) {
        const std::string bytes = Read(folder + _T("workbench.reg"));
        const CString text(reinterpret_cast<const WCHAR*>(bytes.data() + 2),
                           static_cast<int>(bytes.size() / 2 - 1));
        for (int line = 0, begin = 0; line < 8 && begin < text.GetLength(); ++line) {
            const int end = text.Find(_T("\r\n"), begin);
            Say(_T("    ") + text.Mid(begin, end - begin));
            begin = end + 2;
        }
    });
}

void Help(Script& script) {
    script.Heading("Help");
    script.Keys("Alt+H");
    script.Keys("A");
    script.Show();
    script.Picture("workbench_about");
    script.Keys("Esc");
    script.Keys("Alt+H");
    script.Keys("U");
    script.Show();
    script.Keys("Esc");
}

void German(Script& script) {
    script.Heading("In German");
    script.Keys("Alt+T");
    script.Keys("P");
    script.Keys("Ctrl+Shift+Tab");
    script.Show();
    script.Keys("Alt+L");
    script.Keys("Ext+Down");
    script.Show();
    script.Keys("Enter");
    script.Show();
    script.ShowMenu(kFile);
    script.Picture("workbench_german", true);
    script.Keys("Alt+X");
    script.Keys("O");
    script.Keys("Ctrl+Tab");
    script.Show();
    script.Picture("workbench_shortcuts_german", true);
    script.Keys("Esc");
    script.Keys("Alt+H");
    script.Keys("I");
    script.Picture("workbench_about_german", true);
    script.Keys("Esc");
    script.Keys("Alt+F4");
}

CString FullPath(const CString& file) {
    WCHAR path[MAX_PATH];
    ::GetFullPathNameW(file, MAX_PATH, path, nullptr);
    return path;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 && argc != 4 && argc != 5) {
        std::fputs("usage: workbench_script FILE [--pictures FOLDER [SET]]\n", stderr);
        return 2;
    }
    ::CoInitialize(nullptr);
    CWinApp app(_T("Workbench script"));
    app.SetRegistryKey(_T("Quorvel"));
    CVaskSocket::Initialize();
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
    Settings settings;
    settings.language = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
    settings.Save();
    CString file = FullPath(CString(argv[1]));
    const CString folder = file.Left(file.ReverseFind('\\') + 1);
    ::DeleteFileW(folder + _T("workbench.reg"));
    std::optional<SystemColors> colors;
    if (argc == 5 && CString(argv[4]) == _T("_high_contrast")) {
        // The platform's controls read the colours again when one of them hears of the change.
        CWnd window;
        window.CreateEx(0, _T("Static"), nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr);
        CListCtrl list;
        list.Create(LVS_REPORT, CRect(0, 0, 0, 0), &window, 1);
        colors.emplace(kHighContrast);
    }
    Script script(argc > 3 ? CString(argv[3]) : CString(), argc > 4 ? CString(argv[4]) : CString());
    LookAndFind(script);
    Edit(script, file);
    Refuse(script, folder);
    Options(script, folder);
    Help(script);
    German(script);
    INT_PTR result = IDRETRY;
    while (result == IDRETRY) {
        InstallLanguage(Settings::Load().language);
        MainDialog dialog(file);
        result = dialog.DoModal();
        file = dialog.GetFile();
    }
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kSettings);
    CVaskSocket::Deinitialize();
    ::CoUninitialize();
    Say(script.IsDone() ? _T("\nThe workbench has ended.")
                        : _T("\nThe workbench ended too early."));
    return script.IsDone() ? 0 : 1;
}

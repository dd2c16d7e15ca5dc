// gallery --out FOLDER: shows the library's boxes, dialogs and controls one after another and
// writes a picture of each into the folder.
//
// The pictures with German texts are those of a user whose language that is, since dates and the
// buttons of message boxes are the system's.
//
// On a screen of more than 96 dots an inch, and with --high-contrast, these are only the windows
// that such a screen may change; their names then say so.
#include <quorvel/framework/app.h>
#include <quorvel/framework/win/list_ctrl.h>

#include "gallery.h"
#include "picture.h"
#include "support/system_colors.h"

#include <objbase.h>

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

namespace {

// What the name of a picture ends with; empty for a usual screen.
std::string NameOfSet(bool isHighContrast) {
    char name[40] = "";
    if (const int resolution = ResolutionOfScreen(); resolution != 96)
        std::snprintf(name, sizeof name, "_%ddpi", resolution);
    return std::string(name) + (isHighContrast ? "_high_contrast" : "");
}

bool IsGerman(const Picture& picture) {
    const std::string name = picture.name;
    return name.ends_with("_german");
}

// The first window of a program on a screen without a window manager is activated later.
void Activate() {
    CWnd window;
    window.CreateEx(0, _T("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 1, 1, nullptr, nullptr);
    ::SetForegroundWindow(window.m_hWnd);
    MSG message;
    for (const DWORD start = ::GetTickCount();
         ::GetForegroundWindow() != window.m_hWnd && ::GetTickCount() - start < 3000;) {
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            ::DispatchMessageW(&message);
        ::Sleep(10);
    }
    window.DestroyWindow();
}

bool TakeAll(const std::vector<Picture>& pictures, const std::string& folder,
             const std::string& set) {
    const bool isGerman = PRIMARYLANGID(::GetUserDefaultLangID()) == LANG_GERMAN;
    for (const Picture& picture : pictures) {
        if ((!set.empty() && !picture.isInEverySet) || IsGerman(picture) != isGerman)
            continue;
        ::SetCursorPos(0, 0); // where no control lights up under it
        if (!picture.take((folder + "/" + picture.name + set + ".bmp").c_str())) {
            std::fprintf(stderr, "gallery: no picture of %s\n", picture.name);
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    const bool isHighContrast = argc == 4 && std::strcmp(argv[3], "--high-contrast") == 0;
    if (argc < 3 || std::strcmp(argv[1], "--out") != 0 || (argc > 3 && !isHighContrast)) {
        std::fputs("usage: gallery --out FOLDER [--high-contrast]\n", stderr);
        return 2;
    }
    ::CoInitialize(nullptr); // for the edits that complete
    CWinApp app(_T("Gallery"));
    std::optional<SystemColors> colors;
    if (isHighContrast) {
        // The platform's controls read the colours again when one of them hears of the change.
        CWnd window;
        window.CreateEx(0, _T("Static"), nullptr, WS_POPUP, 0, 0, 0, 0, nullptr, nullptr);
        CListCtrl list;
        list.Create(LVS_REPORT, CRect(0, 0, 0, 0), &window, 1);
        colors.emplace(kHighContrast);
    }
    Activate();
    const std::string set = NameOfSet(isHighContrast);
    const bool isDone =
        TakeAll(kBoxPictures, argv[2], set) && TakeAll(kWindowPictures, argv[2], set) &&
        TakeAll(kKeyPictures, argv[2], set) && TakeAll(kLinkPictures, argv[2], set) &&
        TakeAll(kUpdatePictures, argv[2], set);
    ::CoUninitialize();
    return isDone ? 0 : 1;
}

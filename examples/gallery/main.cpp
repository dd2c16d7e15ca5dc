// gallery --out FOLDER: shows the library's boxes one after another, writes a picture of each into
// the folder and closes it.
#include <quorvel/frame/message_box.h>
#include <quorvel/frame/module.h>
#include <quorvel/frame/vask_message_box.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/string.h>
#include <quorvel/res/message_ids.h>

#include "support/window_driver.h"

#include <cstring>
#include <string>

namespace {

struct Picture {
    const char* name;
    void (*show)();
};

void ShowQuestion() {
    CString doNotShowAgain;
    doNotShowAgain.LoadString(quorvel::kTextDoNotShowAgain);
    int checkState = 1;
    AfxVaskMessageBox(_T("The report has been changed"),
                      _T("Do you want to save the changes before you close it?"), doNotShowAgain,
                      checkState, MB_YESNOCANCEL | MB_ICONEXCLAMATION | MB_HELP,
                      _T("https://example.com/help/saving"));
}

void ShowError() {
    AfxFormatStringErrorMessageBox(
        quorvel::kTextErrorCreatingFile, MB_OK | MB_ICONERROR, 0,
        _T("C:\\Users\\Someone\\Documents\\Reports\\Quarterly figures of all the branches.xml"),
        _T("The file could not be accessed. It may be open in another program, or you may not ")
        _T("have the permission to write to its folder."));
}

// The buttons' texts are the system's own.
void ShowGerman() {
    const HMODULE german = ::LoadLibraryW(_T("Quorvel_DEU.dll"));
    const HINSTANCE english = QuorvelGetResourceHandle();
    QuorvelSetResourceHandle(german);
    int checkState = 0;
    AfxVaskMessageBox(quorvel::kTextCrashWarning, quorvel::kTextCrashWarningDivideByZero,
                      quorvel::kTextDoNotShowAgain, checkState, MB_YESNO | MB_ICONEXCLAMATION,
                      nullptr);
    QuorvelSetResourceHandle(english);
    ::FreeLibrary(german);
}

constexpr Picture kPictures[] = {
    {"vask_message_box", ShowQuestion},
    {"error_message_box", ShowError},
    {"vask_message_box_german", ShowGerman},
};

bool Take(const Picture& picture, const std::string& folder) {
    bool taken = false;
    const BoxDriver driver([&](HWND box) {
        taken = SavePicture(box, (folder + "/" + picture.name + ".bmp").c_str());
    });
    picture.show();
    return taken;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3 || std::strcmp(argv[1], "--out") != 0) {
        std::fputs("usage: gallery --out FOLDER\n", stderr);
        return 2;
    }
    CWinApp app(_T("Gallery"));
    for (const Picture& picture : kPictures)
        if (!Take(picture, argv[2])) {
            std::fprintf(stderr, "gallery: no picture of %s\n", picture.name);
            return 1;
        }
    return 0;
}

// gallery --out FOLDER: shows the library's boxes one after another, writes a picture of each into
// the folder and closes it.
#include <quorvel/frame/message_box.h>
#include <quorvel/frame/module.h>
#include <quorvel/frame/vask_message_box.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/mem_file.h>
#include <quorvel/framework/string.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/util/compression/compression.h>

#include "picture.h"
#include "support/window_driver.h"

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

namespace {

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
    const std::unique_ptr<std::remove_pointer_t<HMODULE>, decltype(&::FreeLibrary)> german(
        ::LoadLibraryW(_T("Quorvel_DEU.dll")), ::FreeLibrary);
    const HINSTANCE english = QuorvelGetResourceHandle();
    QuorvelSetResourceHandle(german.get());
    int checkState = 0;
    AfxVaskMessageBox(quorvel::kTextCrashWarning, quorvel::kTextCrashWarningDivideByZero,
                      quorvel::kTextDoNotShowAgain, checkState, MB_YESNO | MB_ICONEXCLAMATION,
                      nullptr);
    QuorvelSetResourceHandle(english);
}

// A picture of the modal box that `show` shows.
template <void (*show)()>
bool TakeBox(const char* path) {
    bool taken = false;
    const BoxDriver driver([&](HWND box) { taken = SavePicture(box, path); });
    show();
    return taken;
}

// A file that takes a picture of the box when it has been read so far.
class PictureTaker : public CMemFile {
public:
    PictureTaker(const char* path, UINT size, ULONGLONG when) : m_path(path), m_when(when) {
        SetLength(size);
        SeekToBegin();
    }
    UINT Read(void* buffer, UINT count) override {
        if (!m_taken && GetPosition() >= m_when)
            m_taken = SavePicture(FindVisibleBox(), m_path);
        return CMemFile::Read(buffer, count);
    }
    bool HasTaken() const { return m_taken; }

private:
    const char* const m_path;
    const ULONGLONG m_when;
    bool m_taken = false;
};

bool TakeProgress(const char* path) {
    PictureTaker source(path, 100 * 32768, 62 * 32768);
    CMemFile destination;
    DWORD bytesRead = 0;
    DWORD bytesWritten = 0;
    AfxDeflate(source, bytesRead, destination, bytesWritten, -1, TRUE, _T("Saving the backup"),
               _T(""));
    return source.HasTaken();
}

struct Picture {
    const char* name;
    bool (*take)(const char* path);
};
constexpr Picture kPictures[] = {
    {"vask_message_box", TakeBox<ShowQuestion>},
    {"error_message_box", TakeBox<ShowError>},
    {"vask_message_box_german", TakeBox<ShowGerman>},
    {"progress_box", TakeProgress},
};

} // namespace

int main(int argc, char** argv) {
    if (argc != 3 || std::strcmp(argv[1], "--out") != 0) {
        std::fputs("usage: gallery --out FOLDER\n", stderr);
        return 2;
    }
    CWinApp app(_T("Gallery"));
    for (const Picture& picture : kPictures)
        if (!picture.take((std::string(argv[2]) + "/" + picture.name + ".bmp").c_str())) {
            std::fprintf(stderr, "gallery: no picture of %s\n", picture.name);
            return 1;
        }
    return 0;
}

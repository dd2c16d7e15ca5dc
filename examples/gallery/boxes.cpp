// Message boxes, and the box that shows how far a long operation is.
#include <quorvel/frame/message_box.h>
#include <quorvel/frame/module.h>
#include <quorvel/frame/vask_message_box.h>
#include <quorvel/framework/mem_file.h>
#include <quorvel/framework/string.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/util/compression/compression.h>

#include "gallery.h"
#include "german.h"
#include "picture.h"
#include "support/win/dialog_driver.h"

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
    const German german;
    int checkState = 0;
    AfxVaskMessageBox(quorvel::kTextCrashWarning, quorvel::kTextCrashWarningDivideByZero,
                      quorvel::kTextDoNotShowAgain, checkState, MB_YESNO | MB_ICONEXCLAMATION,
                      nullptr);
}

// A picture of the modal box that `show` shows.
template <void (*show)()>
bool TakeBox(const char* path) {
    bool taken = false;
    const DialogDriver driver({[&](HWND box) {
        taken = SavePicture(box, path);
        ::EndDialog(box, IDCANCEL);
    }});
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

} // namespace

const std::vector<Picture> kBoxPictures = {
    {"vask_message_box", TakeBox<ShowQuestion>},
    {"error_message_box", TakeBox<ShowError>},
    {"vask_message_box_german", TakeBox<ShowGerman>},
    {"progress_box", TakeProgress},
};

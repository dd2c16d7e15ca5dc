// The system's dialogs that choose a file.
#include <quorvel/framework/win/file_dialog.h>

#include "support/temporary_folder.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

#include <dlgs.h>

namespace {

typedef DialogDriver::Step Step;

TEST(FileDialog, GivesTheFileThatTheUserNames) {
    const TemporaryFolder folder;
    folder.Write(_T("there.txt"), "text");
    const auto name = [](const CString& file) {
        return [file](HWND box) {
            for (const int id : {edt1, cmb13}) // the field is one of them
                ::SetDlgItemTextW(box, id, file);
        };
    };
    const struct {
        const char* label;
        BOOL opens;
        CString file;
        int button;
        INT_PTR result;
        CString path;
    } rows[] = {
        {"opened", TRUE, folder.Path(_T("there.txt")), IDOK, IDOK, folder.Path(_T("there.txt"))},
        {"saved", FALSE, folder.Path(_T("new")), IDOK, IDOK, folder.Path(_T("new.txt"))},
        {"cancelled", FALSE, folder.Path(_T("new")), IDCANCEL, IDCANCEL, _T("first.txt")},
    };
    for (const auto& row : rows) {
        CFileDialog dialog(row.opens, _T("txt"), _T("first.txt"), OFN_FILEMUSTEXIST,
                           _T("Texts|*.txt|All files|*.*"));
        const Step wait = [](HWND) {}; // Wine's dialog fills its field by a posted message
        DialogDriver driver({wait, wait, name(row.file), ClickOn(row.button)});
        EXPECT_EQ(dialog.DoModal(), row.result) << row.label;
        EXPECT_EQ(dialog.GetPathName().CompareNoCase(row.path), 0)
            << row.label << " " << dialog.GetPathName();
    }
}

} // namespace

#include <quorvel/framework/win/file_dialog.h>

#include "support/temporary_folder.h"
#include "support/test.h"
#include "support/win/dialog_driver.h"

#include <dlgs.h>

namespace {

TEST(FileDialog, GivesTheFileThatTheUserNames) {
    const TemporaryFolder folder;
    folder.Write(_T("there.txt"), "text");
    const std::tuple<const char*, BOOL, CString, int, CString> rows[] = {
        {"opened", TRUE, folder.Path(_T("there.txt")), IDOK, folder.Path(_T("there.txt"))},
        {"saved", FALSE, folder.Path(_T("new")), IDOK, folder.Path(_T("new.txt"))},
        {"cancelled", FALSE, folder.Path(_T("new")), IDCANCEL, _T("first.txt")},
    };
    for (const auto& [label, opens, file, button, path] : rows) {
        CFileDialog dialog(opens, _T("txt"), _T("first.txt"), OFN_FILEMUSTEXIST,
                           _T("Texts|*.txt|All files|*.*"));
        const auto wait = [](HWND) {}; // Wine's dialog fills its field by a posted message
        const auto name = [typed = file](HWND box) {
            for (const int id : {edt1, cmb13}) // the field is one of them
                ::SetDlgItemTextW(box, id, typed);
        };
        DialogDriver driver({wait, wait, name, ClickOn(button)});
        EXPECT_EQ(dialog.DoModal(), button) << label;
        EXPECT_EQ(dialog.GetPathName().CompareNoCase(path), 0) << label << dialog.GetPathName();
    }
}

} // namespace

// Calls that the shell refuses. This test opens nothing.
#include "platform/shell_execute.h"

#include "support/test.h"

namespace {

TEST(Shell, RefusesWhatIsNotThere) {
    const struct {
        const WCHAR* file;
        const WCHAR* directory;
        DWORD error;
    } rows[] = {{_T("no such file.txt"), nullptr, ERROR_FILE_NOT_FOUND},
                {_T("no such file.txt"), _T("no such folder"), ERROR_FILE_NOT_FOUND},
                {_T("-option"), nullptr, ERROR_FILE_NOT_FOUND}};
    for (const auto& row : rows) {
        SHELLEXECUTEINFOW info = {};
        info.cbSize = sizeof info;
        info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
        info.lpFile = row.file;
        info.lpDirectory = row.directory;
        info.nShow = SW_SHOWNORMAL;
        EXPECT_EQ(ErrorOf([&info] { return ShellExecuteExW(&info); }), row.error)
            << testing::PrintToString(CString(row.file));
    }
}

} // namespace

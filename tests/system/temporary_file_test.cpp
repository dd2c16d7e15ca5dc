#include <quorvel/system/temporary_file.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/file.h>

#include "platform/win32.h"
#include "support/environment.h"
#include "support/message_box_recorder.h"
#include "support/temporary_folder.h"
#include "support/test.h"

TEST(TemporaryFile, EachNameIsOfANewEmptyFileInTheTemporaryFolder) {
    const TemporaryFolder folder;
    const EnvironmentVariable variable(kTemporaryVariable, CStringA(folder.Path().GetString()));
    CString first, second;
    ASSERT_TRUE(AfxGenerateTempFolderFileName(first) && AfxGenerateTempFolderFileName(second));
    EXPECT_NE(first, second);
    for (const CString& name : {first, second}) {
        EXPECT_EQ(0, name.Find(folder.Path()));
        EXPECT_EQ(0u, CFile(name, CFile::modeRead).GetLength());
        CFile::Remove(name);
    }
}

TEST(TemporaryFile, AFolderThatTakesNoFileIsReported) {
    const TemporaryFolder folder;
    const EnvironmentVariable variable(kTemporaryVariable,
                                       CStringA(folder.Path(_T("none")).GetString()));
    MessageBoxRecorder recorder;
    CString name = _T("marker"), text;
    EXPECT_FALSE(AfxGenerateTempFolderFileName(name) || name != _T("marker"));
    ASSERT_TRUE(AfxGetSystemErrorText(ERROR_DIRECTORY, text));
    EXPECT_GE(recorder.Take().at(0).text.Find(text), 0);
}

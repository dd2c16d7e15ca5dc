#include <quorvel/frame/message_box.h>
#include <quorvel/frame/module.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "support/message_box_recorder.h"
#include "support/test.h"

namespace {

using namespace quorvel::win32;

CString Text(UINT id) {
    CString text;
    text.LoadString(id);
    return text;
}

TEST(Resources, NoEnglishTextStandsInForAMissingOne) {
    const HINSTANCE former = QuorvelGetResourceHandle();
    const HMODULE other = LoadLibraryW(QUORVEL_OWN_SAMPLES _T("/strings_only.dll"));
    EXPECT_EQ(Text(quorvel::kTextExceptionMemory), _T("Out of memory."));
    EXPECT_TRUE(QuorvelSetResourceHandle(other));
    EXPECT_EQ(QuorvelGetResourceHandle(), other);
    EXPECT_EQ(Text(1), _T("no version here"));
    EXPECT_EQ(Text(quorvel::kTextExceptionMemory), _T(""));
    // No box is shown without its cause either.
    MessageBoxRecorder recorder;
    EXPECT_EQ(AfxExceptionMessageBox(new CMemoryException, 1, MB_OK, 0), 0);
    EXPECT_EQ(AfxFileIOExceptionMessageBox(new CMemoryException, _T("a"), 1, MB_OK, 0), 0);
    EXPECT_TRUE(recorder.Take().empty());
    QuorvelSetResourceHandle(former);
    FreeLibrary(other);
    EXPECT_EQ(Text(1), _T(""));
}

} // namespace

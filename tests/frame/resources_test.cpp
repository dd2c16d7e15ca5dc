// Where the library's texts come from: the module that is set, as a host sets it.
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

// The library's texts come from the module until the end of its scope.
class InstalledResources {
public:
    explicit InstalledResources(const WCHAR* path)
        : m_former(QuorvelGetResourceHandle()), m_module(LoadLibraryW(path)) {
        EXPECT_NE(m_module, nullptr);
        EXPECT_TRUE(QuorvelSetResourceHandle(m_module));
        EXPECT_EQ(QuorvelGetResourceHandle(), m_module);
    }
    InstalledResources(const InstalledResources&) = delete;
    ~InstalledResources() {
        QuorvelSetResourceHandle(m_former);
        FreeLibrary(m_module);
    }

private:
    HINSTANCE m_former;
    HINSTANCE m_module;
};

TEST(Resources, AnInstalledLibraryHasTheTexts) {
    EXPECT_EQ(QuorvelGetResourceHandle(), QuorvelGetInstanceHandle());
    EXPECT_EQ(Text(quorvel::kTextExceptionMemory), _T("Out of memory."));
    {
        const InstalledResources german(_T("Quorvel_DEU.dll"));
        EXPECT_NE(Text(quorvel::kTextExceptionMemory), _T("Out of memory."));
        EXPECT_NE(Text(quorvel::kTextExceptionMemory), _T(""));
        EXPECT_NE(QuorvelGetResourceHandle(), QuorvelGetInstanceHandle());
    }
    EXPECT_EQ(Text(quorvel::kTextExceptionMemory), _T("Out of memory."));
}

TEST(Resources, NoEnglishTextStandsInForAMissingOne) {
    {
        const InstalledResources other(QUORVEL_OWN_SAMPLES _T("/strings_only.dll"));
        EXPECT_EQ(Text(1), _T("no version here"));
        EXPECT_EQ(Text(quorvel::kTextExceptionMemory), _T(""));
        // Nor is a box shown without its cause.
        MessageBoxRecorder recorder;
        EXPECT_EQ(AfxExceptionMessageBox(new CMemoryException, 1, MB_OK, 0), 0);
        EXPECT_EQ(AfxFileIOExceptionMessageBox(new CMemoryException, _T("a"), 1, MB_OK, 0), 0);
        EXPECT_TRUE(recorder.Take().empty());
    }
    EXPECT_EQ(Text(1), _T(""));
}

} // namespace

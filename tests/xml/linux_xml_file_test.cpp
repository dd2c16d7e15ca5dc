// What only a Linux file can be: a device, or one that this user may not touch.
#include <quorvel/xml/xml_file.h>

#include "support/temporary_folder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

// Another user until it is destroyed, where this one may become any.
class Nobody {
public:
    Nobody() : m_isOther(geteuid() == 0 && seteuid(65534) == 0) {}
    Nobody(const Nobody&) = delete;
    Nobody& operator=(const Nobody&) = delete;
    ~Nobody() {
        if (m_isOther && seteuid(0) != 0)
            ADD_FAILURE() << "still nobody";
    }

private:
    const bool m_isOther;
};

} // namespace

TEST(LinuxXmlFile, DevicesAreNoDocuments) {
    struct Row {
        const WCHAR* device;
        const WCHAR* loadError;
        bool saves;
    };
    const Row rows[] = {
        {_T("/dev/null"), _T("The file is not a valid XML file."), true},
        {_T("/dev/zero"), _T("The file is not a valid XML file."), true},
        {_T("/dev/full"), _T("The file is not a valid XML file."), false},
    };
    for (const Row& row : rows) {
        CMarkup markup(_T("<a/>"));
        CString error;
        EXPECT_EQ(AfxLoadXMLFile(row.device, markup, error), 0);
        EXPECT_EQ(error, row.loadError);
        EXPECT_EQ(markup.GetDoc(), _T("<a/>"));
        EXPECT_EQ(AfxSaveXMLFile(markup, row.device, error) != 0, row.saves);
        EXPECT_EQ(error.IsEmpty(), row.saves);
    }
}

TEST(LinuxXmlFile, NeedsPermission) {
    const TemporaryFolder folder;
    folder.Write(_T("file.xml"), "<?xml ?><a/>");
    std::filesystem::permissions(folder.Path(_T("file.xml")).GetString(),
                                 std::filesystem::perms(0600));
    CMarkup markup(_T("<old/>"));
    CString error;
    if (geteuid() != 0)
        std::filesystem::permissions(folder.Path(_T("file.xml")).GetString(),
                                     std::filesystem::perms::none);
    {
        const Nobody nobody;
        EXPECT_EQ(AfxLoadXMLFile(folder.Path(_T("file.xml")), markup, error), 0);
        EXPECT_EQ(error, _T("The file could not be accessed."));
        EXPECT_EQ(markup.GetDoc(), _T("<old/>"));
        EXPECT_EQ(AfxSaveXMLFile(markup, folder.Path(_T("file.xml")), error), 0);
        EXPECT_EQ(error, _T("The file could not be accessed."));
    }
    std::filesystem::permissions(folder.Path(_T("file.xml")).GetString(),
                                 std::filesystem::perms(0600));
    EXPECT_EQ(folder.Read(_T("file.xml")), "<?xml ?><a/>");
}

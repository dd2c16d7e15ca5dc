// What only a Linux file can be: a device, or one whose name leaves no room for a second one.
#include <quorvel/xml/xml_file.h>

#include "support/temporary_folder.h"
#include "support/text.h"

#include <gtest/gtest.h>

TEST(LinuxXmlFile, DevicesAreNoDocuments) {
    struct Row {
        const WCHAR* device;
        const WCHAR* loadError;
        bool saves;
    };
    const Row rows[] = {
        {_T("/dev/null"), _T("The file is not a valid XML file."), true},
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

TEST(LinuxXmlFile, WrittenInPlaceItIsKeptUntilThereIsSomethingToWrite) {
    const CString name(_T('n'), 252);
    const TemporaryFolder folder;
    folder.Write(name, "earlier and longer than what replaces it");
    CMarkup markup(_T("<a/>"));
    CString error;
    markup.SetXMLDeclaration(_T("<?xml encoding='latin1'?>"));
    EXPECT_EQ(AfxSaveXMLFile(markup, folder.Path(name), error), 0);
    EXPECT_EQ(folder.Read(name), "earlier and longer than what replaces it");
    markup.SetXMLDeclaration(_T("<?xml ?>"));
    EXPECT_NE(AfxSaveXMLFile(markup, folder.Path(name), error), 0);
    EXPECT_EQ(folder.Read(name), "<?xml ?><a/>");
}

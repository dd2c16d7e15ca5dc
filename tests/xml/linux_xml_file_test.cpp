// What only a Linux file can be: a device, or one whose name leaves no room for a second one.
#include <quorvel/xml/xml_file.h>

#include "support/temporary_folder.h"
#include "support/test.h"

TEST(LinuxXmlFile, DevicesAreNoDocuments) {
    const std::tuple<const WCHAR*, const WCHAR*, bool> rows[] = {
        {_T("/dev/null"), _T("The file is not a valid XML file."), true},
        {_T("/dev/full"), _T("The file is not a valid XML file."), false},
    };
    for (const auto& [device, loadError, saves] : rows) {
        CMarkup markup(_T("<a/>"));
        CString error;
        EXPECT_EQ(AfxLoadXMLFile(device, markup, error), 0);
        EXPECT_EQ(error, loadError);
        EXPECT_EQ(markup.GetDoc(), _T("<a/>"));
        EXPECT_EQ(AfxSaveXMLFile(markup, device, error) != 0, saves);
        EXPECT_EQ(error.IsEmpty(), saves);
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

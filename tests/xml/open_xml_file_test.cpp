// Opening XML files that declare nothing, are UTF-16, or are not well-formed.
#include <quorvel/frame/exception_text.h>
#include <quorvel/xml/open_xml_file.h>
#include <quorvel/xml/xml_file.h>

#include "support/temporary_folder.h"
#include "support/test.h"

TEST(OpenXMLFile, ReadsAndKeepsEveryEncodingThatXMLNeedNotDeclare) {
    using namespace std::string_literals;
    const TemporaryFolder folder;
    const CString path = folder.Path(_T("file.xml"));
    // The file, its document and encoding, and whether it can be saved again.
    const std::tuple<std::string, const WCHAR*, const WCHAR*, BOOL> rows[] = {
        {"\xff\xfe<\0a\0/\0>\0"s, _T("<a/>"), _T("utf-16"), TRUE},
        {"<!-- -->\n<a/>", _T("<!-- -->\n<a/>"), _T("utf-8"), TRUE},
        {"<?xml version='1.0' encoding='iso-8859-1'?><a>\xe4</a>", _T("<a>\x00e4</a>"),
         _T("iso-8859-1"), FALSE},
    };
    CString error;
    for (const auto& [bytes, document, encoding, canSave] : rows) {
        SCOPED_TRACE(bytes);
        folder.Write(_T("file.xml"), bytes);
        CMarkup markup;
        EXPECT_TRUE(AfxOpenXMLFile(path, markup, error) && error.IsEmpty());
        EXPECT_EQ(markup.GetDoc(), document);
        EXPECT_GE(markup.GetXMLDeclaration().Find(encoding), 0);
        EXPECT_EQ(AfxCanSaveXMLEncoding(markup), canSave);
        EXPECT_EQ(AfxSaveXMLFile(markup, path, error) != FALSE, canSave);
        EXPECT_EQ(folder.Read(_T("file.xml"))[0], bytes[0]); // the byte order mark
    }
}

TEST(OpenXMLFile, ReportsWhereAFileIsNotWellFormed) {
    const TemporaryFolder folder;
    CString error;
    const auto refuse = [&](const WCHAR* path, CLengthyOperationHandler* handler = nullptr) {
        CMarkup markup;
        EXPECT_FALSE(AfxOpenXMLFile(path, markup, error, handler));
        return error.Left(5);
    };
    const auto refuseBytes = [&](const char* bytes, CLengthyOperationHandler* handler = nullptr) {
        folder.Write(_T("file.xml"), bytes);
        return refuse(folder.Path(_T("file.xml")), handler);
    };
    EXPECT_EQ(refuseBytes("<?xml version='1.0'?>\n<a>\n  <b></c></a>"), _T("3:8: "));
    EXPECT_EQ(refuseBytes(""), _T("1:1: "));
    EXPECT_EQ(refuseBytes("<a>\xe4</a>"), _T("1:4: "));
    EXPECT_EQ(refuse(nullptr), _T("The f"));
    EXPECT_EQ(refuse(folder.Path(_T("missing.xml"))), _T("The f"));
    struct Refusing : CLengthyOperationHandler {
        void PumpMessages() override { AfxThrowUserException(); }
    } handler;
    for (const char* bytes : {"<a/>", "<?xml version='1.0'?><a/>", "<a>"})
        refuseBytes(bytes, &handler);
}

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
    const CString path = folder.Path(_T("file.xml"));
    CMarkup markup;
    CString error;
    const std::tuple<const char*, const WCHAR*> rows[] = {
        {"<?xml version='1.0'?>\n<a>\n  <b></c></a>", _T("3:8: ")},
        {"", _T("1:1: ")},
        {"<a>\xe4</a>", _T("1:4: ")},
    };
    for (const auto& [bytes, place] : rows) {
        folder.Write(_T("file.xml"), bytes);
        EXPECT_FALSE(AfxOpenXMLFile(path, markup, error)) << bytes;
        EXPECT_EQ(error.Left(5), place) << bytes;
    }
    const CString missing = folder.Path(_T("missing.xml"));
    for (const WCHAR* none : {static_cast<const WCHAR*>(nullptr), missing.GetString()}) {
        EXPECT_FALSE(AfxOpenXMLFile(none, markup, error));
        EXPECT_TRUE(!error.IsEmpty() && error.Find(_T("1:1")) < 0);
    }
    struct Refusing : CLengthyOperationHandler {
        void PumpMessages() override { AfxThrowUserException(); }
    } handler;
    for (const char* bytes : {"<a/>", "<?xml version='1.0'?><a/>", "<a>"}) {
        folder.Write(_T("file.xml"), bytes);
        EXPECT_FALSE(AfxOpenXMLFile(path, markup, error, &handler)) << bytes;
    }
}

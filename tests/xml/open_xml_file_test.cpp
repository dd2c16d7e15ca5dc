// Opening XML files that declare nothing, are UTF-16, or are not well-formed.
#include <quorvel/frame/exception_text.h>
#include <quorvel/xml/open_xml_file.h>
#include <quorvel/xml/xml_file.h>

#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

const std::string kMark = "\xff\xfe";

std::string Utf16(const std::string& ascii) {
    std::string bytes;
    for (const char each : ascii)
        bytes += {each, '\0'};
    return bytes;
}

TEST(OpenXMLFile, ReadsAndKeepsEveryEncodingThatXMLNeedNotDeclare) {
    const TemporaryFolder folder;
    const struct {
        const char* label;
        std::string bytes;
        const WCHAR* document; // null: refused
        const WCHAR* encoding;
        BOOL canSave;
    } rows[] = {
        {"no declaration", "<a>\xc3\xa4</a>", _T("<a>\x00e4</a>"), _T("utf-8"), TRUE},
        {"a comment first", "<!-- -->\n<a/>", _T("<!-- -->\n<a/>"), _T("utf-8"), TRUE},
        {"UTF-16 with a declaration", kMark + Utf16("<?xml version='1.0' encoding='UTF-16'?><a/>"),
         _T("<a/>"), _T("utf-16"), TRUE},
        {"UTF-16 without one", kMark + Utf16("<a/>"), _T("<a/>"), _T("utf-16"), TRUE},
        {"another encoding", "<?xml version='1.0' encoding='iso-8859-1'?><a>\xe4</a>",
         _T("<a>\x00e4</a>"), _T("iso-8859-1"), FALSE},
        {"no UTF-8", "<a>\xe4</a>", nullptr, nullptr, FALSE},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        folder.Write(_T("file.xml"), row.bytes);
        CMarkup markup;
        CString error(_T("?"));
        EXPECT_EQ(AfxOpenXMLFile(folder.Path(_T("file.xml")), markup, error) != FALSE,
                  row.document != nullptr);
        EXPECT_EQ(error.IsEmpty(), row.document != nullptr);
        if (row.document == nullptr)
            continue;
        EXPECT_EQ(markup.GetDoc(), row.document);
        EXPECT_GE(markup.GetXMLDeclaration().Find(row.encoding), 0) << markup.GetXMLDeclaration();
        EXPECT_EQ(AfxCanSaveXMLEncoding(markup), row.canSave);
        EXPECT_EQ(AfxSaveXMLFile(markup, folder.Path(_T("saved.xml")), error) != FALSE,
                  row.canSave);
        if (row.canSave) {
            const bool isWide = folder.Read(_T("saved.xml")).substr(0, 2) == kMark;
            EXPECT_EQ(isWide, row.bytes.substr(0, 2) == kMark);
        }
    }
}

TEST(OpenXMLFile, SaysWhereAFileIsNotWellFormed) {
    const TemporaryFolder folder;
    const std::tuple<const char*, const WCHAR*> rows[] = {
        {"<?xml version='1.0'?>\n<a>\n  <b></c></a>", _T("3:8: ")},
        {"<a>\n<b></a>", _T("2:6: ")},
        {"", _T("1:1: ")},
        {"text", _T("1:1: ")},
    };
    for (const auto& [bytes, place] : rows) {
        folder.Write(_T("file.xml"), bytes);
        CMarkup markup;
        CString error;
        EXPECT_FALSE(AfxOpenXMLFile(folder.Path(_T("file.xml")), markup, error)) << bytes;
        EXPECT_EQ(error.Left(5), place) << bytes;
    }
    CMarkup markup;
    CString error;
    EXPECT_FALSE(AfxOpenXMLFile(nullptr, markup, error));
    EXPECT_FALSE(error.IsEmpty());
    EXPECT_FALSE(AfxOpenXMLFile(folder.Path(_T("missing.xml")), markup, error));
    EXPECT_LT(error.Find(_T("1:1")), 0) << error;
}

TEST(OpenXMLFile, EndsWhenItsHandlerThrows) {
    struct Refusing : CLengthyOperationHandler {
        void PumpMessages() override { AfxThrowUserException(); }
    } handler;
    const TemporaryFolder folder;
    for (const char* bytes : {"<a/>", "<?xml version='1.0'?><a/>", "<a>"}) {
        folder.Write(_T("file.xml"), bytes);
        CMarkup markup;
        CString error;
        EXPECT_FALSE(AfxOpenXMLFile(folder.Path(_T("file.xml")), markup, error, &handler)) << bytes;
    }
}

} // namespace

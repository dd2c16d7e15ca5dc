#include <quorvel/xml/xml_file.h>

#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

using std::string;
using namespace std::string_literals;

// UTF-16 bytes of an ASCII text.
string Utf16(const string& text, bool bigEndian = false) {
    string bytes;
    for (const char c : text) {
        bytes += bigEndian ? '\0' : c;
        bytes += bigEndian ? c : '\0';
    }
    return bytes;
}

struct Handler : CLengthyOperationHandler {
    void PumpMessages() override {
        if (++calls > 1 && throws)
            throw 42;
    }
    int calls = 0;
    bool throws = false;
};

// Loads a file of these bytes; the result is the error.
CString Loaded(const TemporaryFolder& folder, const string& bytes, CMarkup& markup,
               Handler* handler = nullptr) {
    folder.Write(_T("file.xml"), bytes);
    CString error(_T("unchanged"));
    const int result = AfxLoadXMLFile(folder.Path(_T("file.xml")), markup, error, handler);
    EXPECT_EQ(result != 0, error.IsEmpty());
    return error;
}

const CString kDefaultDeclaration(_T("<?xml version=\"1.0\" encoding=\"utf-8\"?>"));

} // namespace

TEST(XmlFile, RecognisesEncodingsByTheFirstBytes) {
    // The encoding, whether it is big-endian, and the sizes of a character (0: refused) and of the
    // mark.
    const std::tuple<string, const WCHAR*> rows[] = {
        {"\xef\xbb\xbf"s, _T("utf-8 0 1 3")},   {"\xff\xfe\0\0"s, _T("utf-32le 0 4 4")},
        {"\xff\xfe<\0"s, _T("utf-16le 0 2 2")}, {"<\0\0\0"s, _T("utf-32le 0 4 0")},
        {"<\0?\0"s, _T("utf-16le 0 2 0")},      {"\x4c\x6f\xa7\x94"s, _T("ebcdic 0 1 0")},
        {"\xfe\xff\0\0"s, _T(" 0 0 0")}, // not UTF-16
        {"\xff\xfe<"s, _T(" 0 0 0")},    // three bytes: only UTF-8 can be recognised
    };
    for (const auto& [bytes, expected] : rows) {
        CString found(_T("unchanged"));
        BOOL bigEndian = 7;
        int charSize = 7, bomLength = 7;
        const int result = AfxDetermineXMLFileEncoding(reinterpret_cast<const BYTE*>(bytes.data()),
                                                       static_cast<DWORD>(bytes.size()), found,
                                                       bigEndian, charSize, bomLength);
        EXPECT_EQ(result != 0, charSize != 0) << testing::PrintToString(bytes);
        found.AppendFormat(_T(" %d %d %d"), bigEndian, charSize, bomLength);
        EXPECT_EQ(found, expected) << testing::PrintToString(bytes);
    }
}

TEST(XmlFile, LoadsEveryEncodingOrSaysWhyNot) {
    const CString notXml(_T("The file is not a valid XML file."));
    const CString unsupported(_T("The character encoding used by the file is not supported."));
    const CString untranslated(_T("The character encoding in the file could not be translated."));
    const CString notWellFormed(_T("The document is not well formed."));
    const CString latin(_T("<?xml encoding='latin1'?>")), old(_T("<old/>"));
    const string longBlank(70000, ' '); // longer than the first read
    const CString none;
    const struct {
        const char* label;
        string bytes;
        CString error, document;
        CString declaration = kDefaultDeclaration;
    } rows[] = {
        {"declaration before mark", "\xef\xbb\xbf<?xml encoding='latin1'?><a>\xe9</a>", none,
         _T("<a>\u00e9</a>"), latin},
        {"long document", "<?xml encoding='shift_jis'?><a>" + longBlank + "\x83\x5c</a>", none,
         _T("<a>") + CString(WCHAR(' '), 70000) + _T("\u30bd</a>"),
         _T("<?xml encoding='shift_jis'?>")},
        {"long declaration", "<?xml" + longBlank + "?><a/>", none, _T("<a/>"),
         _T("<?xml") + CString(WCHAR(' '), 70000) + _T("?>")},
        {"long, UTF-16", Utf16("<?xml" + longBlank + "?><a/>"), none, _T("<a/>")},
        {"EBCDIC", "\x4c\x6f\xa7\x94\x93\x40\x6f\x6e\x4c\x81\x61\x6e", none, _T("<a/>"),
         _T("<?xml ?>")},
        {"the other order", "\xfe\xff" + Utf16("<a>b</a>", true), none, _T("<a>b</a>")},
        // The next four are UTF-16.
        {"a declaration that goes on", Utf16("<?xml ?><a/>9?>x"), none, _T("<a/>9?>x")},
        {"as many characters after it", Utf16("<?xml ?><a/>78?>"), none, _T("<a/>78?>"),
         _T("<?xml ?><a/>78?>")},
        {"too few after it", Utf16("<?xml version='1.0'?><a/>?>"), none, _T("<a/>?>"),
         _T("<?xml version='1.0'?><a/>?>")},
        {"odd byte", "\xff\xfe" + Utf16("<?xml encoding='utf-8'?><a/>") + "x", none, _T("<a/>")},
        {"four bytes", "<?xm", notXml, old},
        {"five bytes", "<?xml", untranslated, _T("<?xml")},
        {"a name of 1 MB", "<?xml encoding='" + string(1 << 20, 'n') + "'?><a/>", unsupported, old},
        {"a name that lies", "<?xml encoding='utf-16'?><a/>", untranslated, old},
        {"a mark that lies", "\xef\xbb\xbf" + Utf16("<a/>"), untranslated, _T("<")},
        {"a mark of UTF-16 that lies", "\xff\xfe<a/>", notWellFormed, _T("\u613c\u3e2f")},
        {"nothing behind the declaration", "<?xml ?>", untranslated, old},
        {"malformed, 2-byte", "\xff\xfe" + Utf16("<a>"), notWellFormed, _T("<a>")},
    };
    const TemporaryFolder folder;
    for (const auto& [label, bytes, error, document, declaration] : rows) {
        SCOPED_TRACE(label);
        CMarkup markup(old);
        markup.FindElem();
        Handler handler;
        EXPECT_EQ(Loaded(folder, bytes, markup, &handler), error);
        EXPECT_EQ(error.IsEmpty() ? markup.GetDoc() : markup.GetDoc().Left(document.GetLength()),
                  document);
        EXPECT_TRUE(!error.IsEmpty() || markup.GetXMLDeclaration() == declaration);
        EXPECT_EQ(markup.GetTagName(), _T(""));
        EXPECT_GT(handler.calls, 1);
    }
    CMarkup markup;
    Handler throwing;
    throwing.throws = true;
    EXPECT_EQ(Loaded(folder, "<?xml ?><a/>", markup, &throwing),
              _T("An unspecified error occurred."));
    std::filesystem::resize_file(folder.Path(_T("file.xml")).GetString(), std::uintmax_t(1) << 31);
    const auto error = [&markup](const WCHAR* path) {
        CString text;
        EXPECT_EQ(AfxLoadXMLFile(path, markup, text), 0);
        return text;
    };
    EXPECT_EQ(error(nullptr), _T("The file name is invalid."));
    EXPECT_EQ(error(folder.Path(_T("none.xml"))), _T("The file could not be located."));
    EXPECT_EQ(error(folder.Path(_T("file.xml"))),
              _T("XML files larger than 2147483647 bytes cannot be loaded."));
}

TEST(XmlFile, SavesInTheDeclaredEncodingOrKeepsTheFile) {
    const CString ae(_T("<a>\u00e9</a>"));
    const string wide = "\xfe\xff" + Utf16("<?xml encoding=\"utf-16\"?><a>", true) + "\0\xe9"s +
                        Utf16("</a>", true);
    // A null declaration means the default. The bytes, or the error.
    const std::tuple<const WCHAR*, CString, string, const WCHAR*> rows[] = {
        {nullptr, ae, "<?xml version=\"1.0\" encoding=\"utf-8\"?><a>\xc3\xa9</a>", _T("")},
        {_T("<?xml encoding='unicode-1-1-utf-8' x='y'?>"), ae,
         "<?xml encoding=\"utf-8\" x='y'?><a>\xc3\xa9</a>", _T("")},
        {_T("<?xml encoding='utf-16be'?>"), ae, wide, _T("")},
        {_T("<?xml encoding='iso-8859-1'?>"), ae, "old",
         _T("The character encoding used by the file is not supported.")},
        {nullptr, _T("<a>"), "old", _T("The document is not well formed.")},
        {nullptr, CString(_T("<a>")) + static_cast<WCHAR>(0xd800) + _T("</a>"), "old",
         _T("The character encoding in the file could not be translated.")},
    };
    const TemporaryFolder folder;
    const CString path = folder.Path(_T("file.xml"));
    CString error;
    for (const auto& [declaration, document, bytes, expectedError] : rows) {
        CMarkup markup(document);
        markup.SetXMLDeclaration(declaration);
        folder.Write(_T("file.xml"), "old");
        EXPECT_EQ(AfxSaveXMLFile(markup, path, error) != 0, *expectedError == 0);
        EXPECT_EQ(error, expectedError) << bytes;
        EXPECT_EQ(folder.Read(_T("file.xml")), bytes);
        EXPECT_FALSE(folder.Has(_T("file.xml.0.tmp")));
    }
    CMarkup markup(_T("<a/>"));
    EXPECT_EQ(AfxSaveXMLFile(markup, folder.Path(_T("none")) + _T("/file.xml"), error), 0);
    EXPECT_EQ(error, _T("All or part of the path is invalid."));
    folder.SetReadOnly(_T("file.xml"), true);
    EXPECT_EQ(AfxSaveXMLFile(markup, path, error), 0);
    EXPECT_EQ(error, _T("The file could not be accessed."));
    folder.SetReadOnly(_T("file.xml"), false);
    EXPECT_EQ(folder.Read(_T("file.xml")), "old");
}

TEST(XmlFile, RoundTripsAcrossPieces) {
    CString text(_T("<a>"));
    for (int i = 0; i < 200000; ++i) // surrogate pairs cross all borders of pieces
        text += i % 3 == 0 ? _T("\xd83d\xde00") : _T("x");
    text += _T("</a>");
    const TemporaryFolder folder;
    for (const WCHAR* declaration :
         {_T("<?xml ?>"), _T("<?xml encoding='utf-16'?>"), _T("<?xml encoding='utf-16be'?>")}) {
        CMarkup markup(text);
        ASSERT_TRUE(markup.SetXMLDeclaration(declaration));
        CString error;
        ASSERT_NE(AfxSaveXMLFile(markup, folder.Path(_T("file.xml")), error), 0);
        CMarkup loaded;
        ASSERT_NE(AfxLoadXMLFile(folder.Path(_T("file.xml")), loaded, error), 0);
        EXPECT_TRUE(loaded.GetDoc() == text);
    }
}

#include <quorvel/xml/check_xml.h>

#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

using std::string;
using namespace std::string_literals;

CString Repeated(const WCHAR* text, int count) {
    CString result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

// A document that expands the last of a chain of entities, each of which is `references` times the
// one before.
CString EntityChain(int length, int references, const WCHAR* content) {
    CString text(_T("<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>"));
    for (int i = 1; i <= length; ++i) {
        CString reference;
        reference.Format(_T("&e%d;"), i - 1);
        text.AppendFormat(_T("<!ENTITY e%d '%s'>"), i, Repeated(reference, references).GetString());
    }
    text += _T("]>");
    text.AppendFormat(content, length);
    return text;
}

struct Place {
    int line, column, offset;
    friend bool operator==(const Place&, const Place&) = default;
    friend void PrintTo(const Place& place, std::ostream* stream) {
        *stream << place.line << ':' << place.column << " (" << place.offset << ')';
    }
};

Place PlaceOf(const CXMLFault& fault) {
    return {fault.nLine, fault.nColumn, fault.nOffset};
}

const char kUnsupported[] = "The character encoding used by the file is not supported.";

} // namespace

TEST(CheckXml, LetsWellFormedTextsPass) {
    const std::tuple<const char*, CString> rows[] = {
        {"declaration whose encoding is not that of the text",
         _T("<?xml version='1.0' encoding='latin1'?>\r\n<a/>\r\n")},
        {"entities", _T("<!DOCTYPE a [<!ENTITY e '<b/>'>]><a b='&lt;&#65;'>&e;&amp;]] ></a>")},
        {"an entity that may be declared elsewhere", _T("<!DOCTYPE a SYSTEM 'x'><a>&e;</a>")},
        {"deep", Repeated(_T("<a>"), 100000) + Repeated(_T("</a>"), 100000)},
        {"long chain of entities in content", EntityChain(50000, 1, _T("<a>&e%d;</a>"))},
        {"long chain of entities in an attribute", EntityChain(50000, 1, _T("<a b='&e%d;'/>"))},
    };
    for (const auto& [label, text] : rows) {
        CXMLFault fault;
        fault.strMessage = _T("unchanged");
        EXPECT_TRUE(AfxCheckXML(text, fault)) << label;
        EXPECT_EQ(fault.strMessage, _T("")) << label;
    }
}

TEST(CheckXml, TellsWhatIsWrongAndWhere) {
    const WCHAR* const invalid = _T("not well-formed (invalid token)");
    const std::tuple<const char*, CString, const WCHAR*, Place> rows[] = {
        {"empty", _T(""), _T("no element found"), {1, 1, 0}},
        {"another end tag", _T("<a>\r\n\t</b>"), _T("mismatched tag"), {2, 4, 8}},
        {"CR alone", _T("<a>\r</b>"), _T("mismatched tag"), {2, 3, 6}},
        {"prefix", _T("<a>\n<x:b/></a>"), _T("unbound prefix"), {2, 1, 4}},
        {"end tag of another entity",
         _T("<!DOCTYPE a [<!ENTITY e '</a>'>]><a>&e;"),
         _T("asynchronous entity"),
         {1, 37, 36}},
        {"zero character", CString(_T("<a>\0</a>"), 8), invalid, {1, 4, 3}},
        {"a pair is one character", _T("<a>\xd83d\xde00&;</a>"), invalid, {1, 6, 6}},
        {"lone first half", _T("<a>\xd83d</a>"), invalid, {1, 4, 3}},
        {"byte order mark", _T("\xfeff<a/>"), invalid, {1, 1, 0}},
        // Characters whose bytes look like the beginning of another encoding.
        {"mark of UTF-8", _T("\xbbef\x3cbf"), invalid, {1, 2, 1}},
        {"behind a long token",
         CString(_T("<!--")) + Repeated(_T("x\n"), 100000) + _T("-->&"),
         invalid,
         {100001, 4, 200007}},
    };
    for (const auto& [label, text, message, place] : rows) {
        CXMLFault fault;
        EXPECT_FALSE(AfxCheckXML(text, fault)) << label;
        EXPECT_EQ(fault.strMessage, message) << label;
        EXPECT_EQ(PlaceOf(fault), place) << label;
    }
    CXMLFault fault;
    EXPECT_FALSE(AfxCheckXML(nullptr, 5, fault));
    EXPECT_EQ(fault.strMessage, _T("no element found"));
    EXPECT_TRUE(AfxCheckXML(_T("<a/>b"), 4, fault));
}

TEST(CheckXml, RefusesEntitiesThatGrowWithoutBound) {
    CXMLFault fault;
    EXPECT_FALSE(AfxCheckXML(EntityChain(12, 10, _T("<a>&e%d;</a>")), fault));
    EXPECT_NE(fault.strMessage.Find(_T("amplification")), -1) << testing::PrintToString(fault);
}

TEST(CheckXml, ShowsTheLineAroundTheFault) {
    const CString forty = Repeated(_T("0123456789"), 4);
    const std::tuple<const char*, CString, CString, int> rows[] = {
        {"whole line", _T("<a>\r\n\t<b></c>\r\n</a>"), _T(" <b></c>"), 6},
        {"cut on both sides", CString(_T("<a>")) + forty + _T("&;") + forty, // "&" is a character
         forty.Mid(1) + _T("&;") + forty.Left(39), 40},
        {"pairs at the edges are left out",
         CString(_T("<a>\xd83d\xde00")) + forty.Mid(2) + _T("&;") + forty.Mid(2) +
             _T("\xd83d\xde00"),
         forty.Mid(2) + _T("&;") + forty.Mid(2), 39},
        {"what cannot be shown", _T("<a>\x85\t\xd83d</a>"), _T("<a>\xfffd \xfffd</a>"), 5},
    };
    for (const auto& [label, text, snippet, caret] : rows) {
        CXMLFault fault;
        EXPECT_FALSE(AfxCheckXML(text, fault)) << label;
        EXPECT_EQ(fault.strSnippet, snippet) << label;
        EXPECT_EQ(fault.nCaret, caret) << label;
    }
    CXMLFault fault;
    fault.strSnippet = _T("<a/>"); // the text may be the very fault's
    EXPECT_TRUE(AfxCheckXML(fault.strSnippet, fault));
}

TEST(CheckXml, ReadsFilesInEveryEncoding) {
    const string ebcdic("\x4c\x6f\xa7\x94\x93\x40\xa5\x85\x99\xa2\x89\x96\x95\x7e\x7d\xf1\x4b\xf0"
                        "\x7d\x6f\x6e"); // <?xml version='1.0'?>
    const WCHAR* const invalid = _T("not well-formed (invalid token)");
    const WCHAR* const contradiction = _T("encoding specified in XML declaration is incorrect");
    const CString unsupported(kUnsupported);
    // An empty message: well-formed.
    const std::tuple<const char*, string, CString, Place> rows[] = {
        {"fault behind a mark", "\xef\xbb\xbf<a>\xc3\xa9&</a>", invalid, {1, 6, 5}},
        {"bytes that are not UTF-8", "<a>\xc3\xa9\n\xc3\xa9\xe9</a>", invalid, {2, 2, 6}},
        {"bad bytes behind the first piece",
         "<!--" + string(70000, 'x') + "\xc3\xa9\xff",
         invalid,
         {1, 70006, 70005}},
        {"a character across pieces", "<a>" + string(65532, 'x') + "\xc3\xa9</a>", _T(""), {}},
        {"code page", "<?xml version='1.0' encoding='windows-1252'?><a>\x80</a>", _T(""), {}},
        {"a long declaration",
         "<?xml version='1.0'" + string(2000, ' ') + "encoding='latin1'?><a>\xe9</a>",
         _T(""),
         {}},
        {"half a two-byte character",
         "<?xml version='1.0' encoding='shift_jis'?>\n<a>\x83\x5c\x82</a>",
         invalid,
         {2, 5, 47}},
        {"fault in EBCDIC", ebcdic + "\x4c\x81\x6e\x50", _T("unclosed token"), {1, 25, 24}},
        {"half a UTF-16 unit", "\xff\xfe<\0a\0/\0>\0x"s, invalid, {1, 5, 4}},
        {"unknown name", "<?xml version='1.0' encoding='nonsense'?><a/>", unsupported, {}},
        {"wide name of narrow text",
         "<?xml version='1.0' encoding='utf-16'?><a/>",
         contradiction,
         {1, 1, 0}},
    };
    const TemporaryFolder folder;
    for (const auto& [label, bytes, message, place] : rows) {
        folder.Write(_T("file.xml"), bytes);
        CXMLFault fault;
        EXPECT_EQ(AfxCheckXMLFile(folder.Path(_T("file.xml")), fault) != FALSE, message.IsEmpty())
            << label;
        EXPECT_EQ(fault.strMessage, message) << label;
        EXPECT_EQ(PlaceOf(fault), place) << label;
    }
    CXMLFault fault;
    EXPECT_FALSE(AfxCheckXMLFile(nullptr, fault));
    EXPECT_EQ(fault.strMessage, _T("The file name is invalid."));
    EXPECT_EQ(fault.nLine, 0);
}

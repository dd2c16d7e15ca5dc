#include <quorvel/xml/check_xml.h>

#include "support/temporary_folder.h"
#include "support/test.h"

using std::string;
using namespace std::string_literals;

static CString Repeated(const WCHAR* text, int count) {
    CString result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

// A chain of entities, each with `references` to the one before; the content uses the last.
static CString EntityChain(int length, int references, const WCHAR* content) {
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

// "message line:column offset"; empty for a well-formed text.
static CString Verdict(BOOL isWellFormed, const CXMLFault& fault) {
    EXPECT_EQ(isWellFormed != FALSE, fault.strMessage.IsEmpty());
    CString verdict;
    if (!isWellFormed)
        verdict.Format(_T("%s %d:%d %d"), fault.strMessage.GetString(), fault.nLine, fault.nColumn,
                       fault.nOffset);
    return verdict;
}

const CString kInvalid(_T("not well-formed (invalid token) "));

TEST(CheckXml, ReportsWhatIsWrongAndWhere) {
    const std::tuple<const char*, CString, CString> rows[] = {
        {"entities, and the encoding is not that of the text",
         _T("<?xml version='1.0' encoding='latin1'?>\r\n<!DOCTYPE a [<!ENTITY e '<b/>'>]>")
         _T("<a b='&lt;&#65;'>&e;&amp;]] ></a>\r\n"),
         _T("")},
        {"declared elsewhere", _T("<!DOCTYPE a SYSTEM 'x'><a>&e;</a>"), _T("")},
        {"deep", Repeated(_T("<a>"), 100000) + Repeated(_T("</a>"), 100000), _T("")},
        {"long chain of entities in content", EntityChain(50000, 1, _T("<a>&e%d;</a>")), _T("")},
        {"long chain in an attribute", EntityChain(50000, 1, _T("<a b='&e%d;'/>")), _T("")},
        {"empty", _T(""), _T("no element found 1:1 0")},
        {"another end tag", _T("<a>\r\n\t</b>"), _T("mismatched tag 2:4 8")},
        {"CR alone", _T("<a>\r</b>"), _T("mismatched tag 2:3 6")},
        {"prefix", _T("<a>\n<x:b/></a>"), _T("unbound prefix 2:1 4")},
        {"zero character", CString(_T("<a>\0</a>"), 8), kInvalid + _T("1:4 3")},
        {"a pair is one character", _T("<a>\xd83d\xde00&;</a>"), kInvalid + _T("1:6 6")},
        {"lone first half", _T("<a>\xd83d</a>"), kInvalid + _T("1:4 3")},
        {"byte order mark", _T("\xfeff<a/>"), kInvalid + _T("1:1 0")},
        // Characters whose bytes look like the beginning of a different encoding.
        {"mark of UTF-8", _T("\xbbef\x3cbf"), kInvalid + _T("1:2 1")},
        {"behind a long token", CString(_T("<!--")) + Repeated(_T("x\n"), 100000) + _T("-->&"),
         kInvalid + _T("100001:4 200007")},
    };
    CXMLFault fault;
    for (const auto& [label, text, verdict] : rows)
        EXPECT_EQ(Verdict(AfxCheckXML(text, fault), fault), verdict) << label;
    EXPECT_FALSE(AfxCheckXML(EntityChain(12, 10, _T("<a>&e%d;</a>")), fault));
    EXPECT_NE(fault.strMessage.Find(_T("amplification")), -1) << testing::PrintToString(fault);
    EXPECT_FALSE(AfxCheckXML(nullptr, 5, fault));
    fault.strSnippet = _T("<a/>b"); // the text may belong to the fault
    EXPECT_TRUE(AfxCheckXML(fault.strSnippet, 4, fault));
}

// Each is checked without options, with the names of the fifth edition, and as version 1.1. The
// result is the offset of the fault, or -1.
TEST(CheckXml, OptionsChooseTheEditionAndTheVersion) {
    constexpr DWORD both = CHECK_XML_FIFTH_EDITION | CHECK_XML_VERSION_1_1;
    const CString declared(_T("<?xml version='1.1'?>"));
    const std::tuple<const char*, CString, int, int, int> rows[] = {
        {"letters of the fourth edition", _T("<\x4e00\xac00 \xe9='\x131'/>"), -1, -1, -1},
        {"a letter of the fifth", _T("<\x1200/>"), 1, -1, 1},
        {"a pair", _T("<a>\xd800\xdc00<\xd800\xdc00/>&;</a>"), 6, 11, 6},
        {"a private plane", _T("<\xdb80\xdc00/>"), 1, 1, 1},
        {"what begins no name", _T("<\x203f/>"), 1, 1, 1},
        {"what continues one", _T("<a\x203f\x0346\x36f\x300\xb7/>"), 2, -1, 2},
        {"sign", _T("<a\xb5/>"), -1, 2, -1},
        {"two that differ", _T("<a><\x1200></\x1201></a>"), 4, 8, 4},
        {"control as a reference", declared + _T("<a>&#1;&#x01F;&#31;</a>"), 24, 24, -1},
        {"zero as a reference", declared + _T("<a>&#x00;</a>"), 24, 24, 24},
        {"control as it stands", declared + _T("<a>\x80</a>"), -1, -1, 24},
        {"line end", declared + _T("<a\x85\x2028/>"), 23, 23, -1},
        {"control in version 1.0", _T("<?xml version='1.0'?><a>&#1;</a>"), 24, 24, 24},
    };
    CXMLFault fault;
    for (const auto& [label, text, plain, fifth, version] : rows)
        for (const auto& [options, expected] : {std::pair(DWORD{0}, plain),
                                                {CHECK_XML_FIFTH_EDITION, fifth},
                                                {CHECK_XML_VERSION_1_1, version}})
            EXPECT_EQ(AfxCheckXML(text, fault, options) ? -1 : fault.nOffset, expected)
                << label << ", options " << options;
    EXPECT_FALSE(AfxCheckXML(declared + _T("\r\x85<a>\x2028<\xd800\xdc00/>&;"), fault, both));
    EXPECT_EQ(Verdict(FALSE, fault), kInvalid + _T("3:6 33"));
    EXPECT_EQ(fault.strSnippet, _T("<\xd800\xdc00/>&;"));

    CString most; // every character
    for (int i = 0x100; i < 0xffff; i += i == 0xd7ff ? 0x801 : 1)
        most.AppendChar(static_cast<WCHAR>(i));
    EXPECT_FALSE(AfxCheckXML(_T("<a>") + most + _T("</a>"), fault, both));
    EXPECT_EQ(fault.strMessage, _T("An internal parsing error occurred."));
}

TEST(CheckXml, ShowsTheLineAroundTheFault) {
    const CString forty = Repeated(_T("0123456789"), 4), pair(_T("\xd83d\xde00"));
    const std::tuple<CString, CString, int> rows[] = {
        {_T("<a>\r\n\t<b></c>\r\n</a>"), _T(" <b></c>"), 6},
        {_T("<a>") + forty + _T("&;") + forty, forty.Mid(1) + _T("&;") + forty.Left(39), 40},
        // Pairs at the edges are left out.
        {_T("<a>") + pair + forty.Mid(2) + _T("&;") + forty.Mid(2) + pair,
         forty.Mid(2) + _T("&;") + forty.Mid(2), 39},
        {_T("<a>\x85\t\xd83d</a>"), _T("<a>\xfffd \xfffd</a>"), 5}, // what cannot be shown
    };
    for (const auto& [text, snippet, caret] : rows) {
        CXMLFault fault;
        EXPECT_FALSE(AfxCheckXML(text, fault));
        EXPECT_EQ(fault.strSnippet, snippet);
        EXPECT_EQ(fault.nCaret, caret) << testing::PrintToString(snippet);
    }
}

TEST(CheckXml, ReadsFilesInEveryEncoding) {
    const string ebcdic("\x4c\x6f\xa7\x94\x93\x40\xa5\x85\x99\xa2\x89\x96\x95\x7e\x7d\xf1\x4b\xf0"
                        "\x7d\x6f\x6e"); // <?xml version='1.0'?>
    const string start = "<?xml version='1.0'" + string(2000, ' ') + "encoding='";
    const auto declared = [&](const char* name, const char* rest) {
        return start + name + "'?>" + rest;
    };
    const std::tuple<const char*, string, CString> rows[] = {
        {"fault behind a mark", "\xef\xbb\xbf<a>\xc3\xa9&</a>", kInvalid + _T("1:6 5")},
        {"bytes that are not UTF-8", "<a>\xc3\xa9\n\xc3\xa9\xe9</a>", kInvalid + _T("2:2 6")},
        {"in the second piece", "<!--" + string(70000, 'x') + "\xc3\xa9\xff",
         kInvalid + _T("1:70006 70005")},
        {"a character across pieces", "<a>" + string(65532, 'x') + "\xc3\xa9</a>", _T("")},
        {"half a character", declared("shift_jis", "\n<a>\x83\x5c\x82</a>"),
         kInvalid + _T("2:5 2046")},
        {"the apple sign", declared("macintosh", "<a>\xf0\x8a\xf0</a>"), _T("")},
        {"fault in EBCDIC", ebcdic + "\x4c\x81\x6e\x50", _T("unclosed token 1:25 24")},
        {"half a UTF-16 unit", "\xff\xfe<\0a\0/\0>\0x"s, kInvalid + _T("1:5 4")},
        {"unknown name", declared("nonsense", "<a/>"),
         _T("The character encoding used by the file is not supported. 0:0 0")},
        {"wide name of narrow text", declared("utf-16", "<a/>"),
         _T("encoding specified in XML declaration is incorrect 1:1 0")},
    };
    const TemporaryFolder folder;
    CXMLFault fault;
    const CString path = folder.Path(_T("file.xml"));
    for (const auto& [label, bytes, verdict] : rows) {
        folder.Write(_T("file.xml"), bytes);
        EXPECT_EQ(Verdict(AfxCheckXMLFile(path, fault), fault), verdict) << label;
    }
    EXPECT_EQ(Verdict(AfxCheckXMLFile(nullptr, fault), fault),
              _T("The file name is invalid. 0:0 0"));
    folder.Write(_T("file.xml"), "<?xml version='1.1'?><\xe1\x88\x80>&#1;</\xe1\x88\x80>");
    EXPECT_TRUE(AfxCheckXMLFile(path, fault, CHECK_XML_VERSION_1_1));
}

// The document of the workbench: listed elements, results of filters, and edits.
#include "workbench/document.h"

#include "support/test.h"

#include <string>

namespace {

Document Read(const WCHAR* text) {
    Document document;
    document.SetDoc(text);
    document.ListElements();
    return document;
}

const WCHAR kText[] =
    _T("<a x='1'>\n first <b/><c y=\"two\" ><d>Third</d>\x00c4pfel</c><b>last</b>end</a>");

const WCHAR kSourceOfC[] = _T("<c y=\"two\" ><d>Third</d>\x00c4pfel</c>");

TEST(WorkbenchDocument, ListsEveryElementInDocumentOrder) {
    const std::tuple<const WCHAR*, int, const WCHAR*, const WCHAR*, const WCHAR*> rows[] = {
        {_T("a"), 0, _T("x='1'"), _T("first"), kText},
        {_T("b"), 1, _T(""), _T(""), _T("<b/>")},
        {_T("c"), 1, _T("y=\"two\""), _T(""), kSourceOfC},
        {_T("d"), 2, _T(""), _T("Third"), _T("<d>Third</d>")},
        {_T("b"), 1, _T(""), _T("last"), _T("<b>last</b>")},
    };
    const Document document = Read(kText);
    ASSERT_EQ(document.ElementCount(), static_cast<int>(std::size(rows)));
    int index = 0;
    for (const auto& [name, depth, attributes, text, source] : rows) {
        SCOPED_TRACE(index);
        EXPECT_EQ(CString(document.NameOf(index)), name);
        EXPECT_EQ(document.DepthOf(index), depth);
        EXPECT_EQ(CString(document.AttributesOf(index)), attributes);
        EXPECT_EQ(CString(document.TextOf(index)), text);
        EXPECT_EQ(CString(document.SourceOf(index)), source);
        EXPECT_EQ(document.LastBefore(document.PositionOf(index)), index);
        EXPECT_EQ(document.LastBefore(document.PositionOf(index) - 1), index - 1);
        ++index;
    }
    EXPECT_EQ(Read(_T("<a><b></a>")).ElementCount(), 0);
    EXPECT_EQ(Document().LastBefore(0), -1);
}

TEST(WorkbenchDocument, FindsTheInnermostElementAroundAText) {
    const std::tuple<const WCHAR*, const WCHAR*> rows[] = {
        {_T("FIRST"), _T("a ")},      {_T("end"), _T("a ")},  {_T("TWO"), _T("c ")},
        {_T("\x00e4pfel"), _T("c ")}, {_T("<b"), _T("b b ")}, {_T("t"), _T("a c d b ")},
        {_T("absent"), _T("")},       {_T(""), _T("")},       {_T("</a>"), _T("a ")},
    };
    for (const auto& [text, names] : rows) {
        const Document document = Read(kText);
        CString found;
        for (const int index : document.Find(text))
            found += CString(document.NameOf(index)) + _T(" ");
        EXPECT_EQ(found, names) << CString(text);
    }
}

TEST(WorkbenchDocument, ReplacesASourceOnlyByOneElementThatIsValidThere) {
    const WCHAR kWithPrefix[] =
        _T("<!DOCTYPE a [<!ENTITY e 'E'>]>\n<a xmlns:p='u'><b>\n<c/></b></a>");
    // The place of the fault; none if the source is taken.
    const std::tuple<const WCHAR*, int, int> rows[] = {
        {_T("<p:n>&e;</p:n>"), 0, 0},
        {_T(" <n/>\n"), 0, 0},
        {_T("<n z='&lt;'>1</n>"), 0, 0},
        {_T("<q:n/>"), 1, 1},
        {_T("<n>\n &f;</n>"), 2, 2},
        {_T("<n>\n<m></n>"), 2, 6},
        {_T(""), 1, 1},
        {_T("text"), 1, 1},
        {_T("<n/><m/>"), 1, 5},
        {_T("<n z=1/>"), 1, 6},
        {_T("<!-- --><n/>"), 1, 1},
        {_T("<n z='>'/>"), 1, 1}, // the parser ends the tag there
    };
    for (const auto& [source, line, column] : rows) {
        Document document = Read(kWithPrefix);
        CXMLFault fault;
        EXPECT_EQ(document.ReplaceSource(2, source, fault), line == 0) << CString(source);
        EXPECT_EQ(document.GetDoc() == kWithPrefix, line != 0) << CString(source);
        EXPECT_EQ(std::pair(fault.nLine, fault.nColumn), std::pair(line, column))
            << CString(source);
        EXPECT_EQ(CString(document.SourceOf(2)), line != 0 ? _T("<c/>") : CString(source).Trim());
        EXPECT_EQ(document.ElementCount(), 3) << CString(source);
    }
    // A document that was at fault before can still be mended.
    Document document = Read(_T("<a x=1><b/></a>"));
    CXMLFault fault;
    EXPECT_TRUE(document.ReplaceSource(1, _T("<c/>"), fault));
    EXPECT_EQ(document.GetDoc(), _T("<a x=1><c/></a>"));
}

} // namespace

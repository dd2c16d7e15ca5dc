#include "xml/markup_probe.h"

#include <quorvel/framework/exceptions.h>

#include "support/test.h"

TEST(MarkupParser, RefusesMalformedTextsWithTheirError) {
    const std::tuple<const char*, const WCHAR*, const WCHAR*> rows[] = {
        {"empty", _T(""), _T("")},
        {"bracket at the end", _T("<a><"), _T("Abrupt end within tag")},
        {"instruction without an end", _T("<?xml ?"), _T("Invalid node")},
        {"comment without an end", _T("<!-- -- >"), _T("Invalid node")},
        {"declaration without an end", _T("<!DOCTYPE a [ <!ENTITY b 'c]>'> "), _T("Invalid node")},
        {"a bracket in a longer word opens a level", _T("<!DOCTYPE x[ ><a/>"), _T("Invalid node")},
        {"quote in its comment", _T("<!DOCTYPE a [<!-- 'tis -->]><a/>"), _T("Invalid node")},
        {"blank before the mark", _T("< !-- c --><a/>"), _T("Invalid node")},
        {"start tag without an end", _T("<a b='c'"), _T("End of tag not found")},
        {"tag of brackets alone", _T("<>"), _T("End of tag not found")},
        {"no name in the end tag", _T("<a></>"), _T("End tag not completed for element a")},
        {"quote runs on", _T("<a></a \">"), _T("End tag not completed for element a")},
    };
    for (const auto& [label, text, error] : rows) {
        MarkupProbe markup;
        EXPECT_FALSE(markup.SetDoc(text) || markup.IsWellFormed() || markup.FindElem()) << label;
        EXPECT_EQ(markup.GetError(), error) << label;
        EXPECT_EQ(markup.RecordCount(), 1) << label;
        EXPECT_EQ(markup.GetDoc(), text) << label;
    }
    CMarkup markup;                                  // keeps the error of an earlier parse
    EXPECT_FALSE(markup.SetDoc(_T("<a>\0</a>"), 8)); // a zero character ends the parse
    EXPECT_TRUE(markup.SetDoc(_T("<a/>\0<b>"), 8));
    EXPECT_EQ(markup.GetDoc().GetLength(), 8);
    EXPECT_FALSE(markup.SetDoc(_T("")));
    EXPECT_EQ(markup.GetError(), _T("Element tag not found"));
}

TEST(MarkupParser, IndexesTags) {
    const std::tuple<const char*, const WCHAR*, std::vector<std::array<int, 5>>> rows[] = {
        {"DTD",
         _T("<?x?><!DOCTYPE a [<!ENTITY b \"]>\">]><!----><![CDATA[<]]><a/>"),
         {{56, 59, 58, 59, 0}}},
        {"shortest nodes", _T("<!--><?><a/>"), {{8, 11, 10, 11, 0}}},
        {"siblings and depth",
         _T("<a><c><d/></c> <e/></a>"),
         {{0, 2, 19, 22, 0}, {3, 5, 10, 13, 1}, {6, 9, 8, 9, 2}, {15, 18, 17, 18, 1}}},
        {"an attribute value cuts the tag", _T("<a b='>'></a>"), {{0, 6, 9, 12, 0}}},
        {"a slash before the cut", _T("<a b='/>'></a>"), {{0, 7, 6, 7, 0}}},
        {"blanks in the end tag", _T("<a>< / a\n>"), {{0, 2, 3, 9, 0}}},
        {"a name that goes on with a slash", _T("<item/x></item>"), {{0, 7, 8, 14, 0}}},
        {"a name of one letter", _T("<a/x></a>"), {{0, 4, 5, 8, 0}}},
        {"the first letter of the name alone", _T("<ab></a>"), {}},
        {"another name of one letter", _T("<a></b>"), {}},
        {"a bracket inside a tag", _T("<a <b></a>"), {{0, 5, 6, 9, 0}}},
        {"a tag called >", _T("<> ></>>"), {}},
    };
    for (const auto& [label, text, tree] : rows) {
        MarkupProbe markup;
        EXPECT_EQ(markup.SetDoc(text), !tree.empty())
            << label << ": " << Printable(markup.GetError().GetString(), 60);
        EXPECT_EQ(markup.Tree(), tree) << label;
    }
}

TEST(MarkupParser, RefusedArgumentsChangeNothing) {
    MarkupProbe markup(_T("<a><b/></a>"));
    markup.FindChildElem();
    const auto position = markup.Position();
    EXPECT_FALSE(markup.SetDoc(_T("<c/>"), 0));
    EXPECT_FALSE(markup.SetDoc(static_cast<const char*>(nullptr), 4, 65001));
    EXPECT_EQ(markup.Position(), position);
    EXPECT_FALSE(markup.SetDoc("<c/>", 4, 99999)); // unknown code page: resets the positions
    EXPECT_EQ(markup.Position(), (std::array<int, 4>{}));
    EXPECT_EQ(markup.GetDoc(), _T("<a><b/></a>"));
    EXPECT_TRUE(markup.SetDoc("<c>\xC3\xA9</c>", 9, 65001));
    EXPECT_EQ(markup.GetDoc(), _T("<c>\u00e9</c>"));
    EXPECT_TRUE(markup.SetDoc(markup.GetDocConstRef())); // the text may be a part of the document
    EXPECT_FALSE(markup.SetDoc(markup.GetDocConstRef().GetString() + 3, 1));
    EXPECT_EQ(markup.GetDoc(), _T("\u00e9"));
}

// Depth needs records, not stack: linear time and no overflow.
TEST(MarkupParser, ParsesFiveMillionLevels) {
    constexpr int kDepth = 5'000'000;
    CString text;
    WCHAR* at = text.GetBufferSetLength(7 * kDepth);
    for (int i = 0; i < kDepth; ++i, at += 3)
        std::char_traits<WCHAR>::copy(at, _T("<a>"), 3);
    for (int i = 0; i < kDepth; ++i, at += 4)
        std::char_traits<WCHAR>::copy(at, _T("</a>"), 4);
    MarkupProbe markup;
    ASSERT_TRUE(markup.SetDoc(text));
    EXPECT_EQ(markup.RecordCount(), kDepth + 1);
    EXPECT_EQ(markup.Record(kDepth).nEndTagClose, 3 * kDepth + 3);
    EXPECT_EQ(markup.Record(1).nEndTagClose, 7 * kDepth - 1);
}

TEST(MarkupParser, CopiesNeitherDeclarationNorError) {
    MarkupProbe source(_T("<a><b/></a>")), copy(_T("<"));
    source.SetXMLDeclaration(_T("<?xml version=\"1.1\"?>"));
    source.FindChildElem();
    copy = source;
    EXPECT_TRUE(copy.Tree() == source.Tree() && copy.Position() == source.Position());
    EXPECT_EQ(copy.GetError(), _T("Abrupt end within tag"));
    EXPECT_NE(copy.GetXMLDeclaration(), source.GetXMLDeclaration());
    copy.AddChildElem(_T("c"));
    EXPECT_EQ(source.GetDoc(), _T("<a><b/></a>"));
    EXPECT_THROW(copy = *&copy, CInvalidArgException*);
}

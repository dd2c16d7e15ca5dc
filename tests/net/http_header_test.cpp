#include <quorvel/net/http_header.h>

#include <quorvel/res/message_ids.h>

#include "net/http_header_reader.h"
#include "support/date_time.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace {

typedef quorvel::HttpHeaderReader Reader;

std::vector<std::pair<CString, CString>> FieldsOf(const CHttpHeader& header) {
    std::vector<std::pair<CString, CString>> fields;
    for (POSITION next = header.GetFieldsMap().GetStartPosition(); next != nullptr;) {
        auto& [name, value] = fields.emplace_back();
        header.GetFieldsMap().GetNextAssoc(next, name, value);
    }
    return fields;
}

CString ValueOf(const CHttpHeader& header, const WCHAR* name) {
    CString value = _T("(none)");
    header.GetFieldValue(name, value);
    return value;
}

CHttpHeader WithField(const WCHAR* name, const WCHAR* value) {
    CHttpHeader header;
    header.SetFieldValue(name, value);
    return header;
}

TEST(HttpHeader, AStatusLineIsAWordAndANumberOrChangesNothing) {
    static const struct {
        const WCHAR *text, *version; // null: refused
        int code, length;
    } kRows[] = {
        {_T("HTTP/1.1 404 Not Found\r\n\r\nbody\r\n\r\n"), _T("HTTP/1.1"), 404, 26},
        {_T("HTTP/1.0 200\r\n\r\n"), _T("HTTP/1.0"), 200, 16},
        {_T(" \tHTTP/2 \t 0301x\r\n\r\n"), _T("HTTP/2"), 301, 20},
        {_T("x -5\r\n\r\n"), _T("x"), -5, 8},
        {_T("x +7\r\n\r\n"), _T("x"), 7, 8},
        {_T("x 99999999999999999999\r\n\r\n"), _T("x"), 2147483647, 26},
        {_T("x -99999999999999999999\r\n\r\n"), _T("x"), -2147483647 - 1, 27},
        {_T(""), nullptr, 0, 0},
        {_T("HTTP/1.1 200 OK\r\nA: b\r\n"), nullptr, 0, 0},
        {_T("HTTP/1.1 200 OK\n\nA: b\n\n"), nullptr, 0, 0},
        {_T("\r\n\r\n"), nullptr, 0, 0},
        {_T("\r\nHTTP/1.1 200 OK\r\n\r\n"), nullptr, 0, 0},
        {_T("HTTP/1.1\r\n200\r\n\r\n"), nullptr, 0, 0},
        {_T("HTTP/1.1 OK\r\n\r\n"), nullptr, 0, 0},
        {_T("HTTP/1.1 - 2\r\n\r\n"), nullptr, 0, 0},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::PrintToString(CString(row.text)));
        CHttpHeader header = WithField(_T("A"), _T("kept"));
        EXPECT_EQ(row.version != nullptr, header.InitializeFromStream(row.text) != FALSE);
        EXPECT_EQ(CString(row.version != nullptr ? row.version : _T("HTTP/1.1")),
                  header.GetVersion());
        EXPECT_EQ(static_cast<UINT>(row.code), header.GetStatusCode());
        EXPECT_EQ(row.length, static_cast<int>(header.GetLength()));
        EXPECT_EQ(row.version != nullptr ? 0 : 1, header.GetFieldsMap().GetCount());
    }
}

TEST(HttpHeader, FieldsLoseTheirOuterWhiteSpaceAndReplaceEarlierOnes) {
    CHttpHeader header = WithField(_T("Old"), _T("x"));
    header.SetLocalFilePath(_T("file"));
    const CString text(_T("HTTP/1.1 200 OK\r\nLocation: \t x:y \r\n no colon\r\n : no name\r\n")
                       _T("Empty:\r\nlocation: other\r\nTwice: 1\r\nTwice: 2\r\nlone\rcr: \n\r\n")
                       _T("\xe9: \xa0\r\n\r\nBody: x\r\n\r\n"));
    ASSERT_TRUE(header.InitializeFromStream(text));
    const std::vector<std::pair<CString, CString>> expected = {
        {_T("Empty"), _T("")},         {_T("Location"), _T("x:y")}, {_T("Twice"), _T("2")},
        {_T("location"), _T("other")}, {_T("lone\rcr"), _T("")},    {_T("\xe9"), _T("\xa0")}};
    EXPECT_EQ(expected, FieldsOf(header));
    EXPECT_EQ(text.Find(_T("Body")), static_cast<int>(header.GetLength()));
    EXPECT_EQ(_T("file"), header.GetLocalFilePath());

    const CHttpHeader copy = header;
    CHttpHeader assigned = WithField(_T("Old"), _T("x"));
    assigned = copy;
    header.RemoveAllFields();
    EXPECT_EQ(expected, FieldsOf(assigned));
    EXPECT_EQ(copy.GetLength(), assigned.GetLength());
    EXPECT_EQ(_T("file"), assigned.GetLocalFilePath());
}

TEST(HttpHeader, FieldsAreFoundByExactNameAndOnRequestByAny) {
    CHttpHeader header = WithField(_T("DATE"), _T("1"));
    header.SetFieldValue(_T("Date"), _T("2"));
    header.SetFieldValue(nullptr, _T("x"));
    header.SetFieldValue(_T("Date"), nullptr);
    // What GetFieldValue and FindFieldValue give; null for FALSE.
    const std::tuple<const WCHAR*, const WCHAR*, const WCHAR*> rows[] = {
        {_T("DATE"), _T("1"), _T("1")}, {_T("Date"), _T("2"), _T("2")},
        {_T("date"), nullptr, _T("1")}, {_T("Dat"), nullptr, nullptr},
        {_T(""), nullptr, nullptr},     {nullptr, nullptr, nullptr},
    };
    for (const auto& [name, exact, any] : rows) {
        SCOPED_TRACE(testing::PrintToString(CString(name)));
        CString value = _T("marker");
        EXPECT_EQ(exact != nullptr, header.GetFieldValue(name, value) != FALSE);
        EXPECT_EQ(CString(exact != nullptr ? exact : _T("marker")), value);
        value = _T("marker");
        EXPECT_EQ(any != nullptr, header.FindFieldValue(name, value) != FALSE);
        EXPECT_EQ(CString(any != nullptr ? any : _T("marker")), value);
    }
    EXPECT_FALSE(header.RemoveField(_T("date")) || header.RemoveField(nullptr));
    EXPECT_TRUE(header.RemoveField(_T("Date")));
    EXPECT_EQ(1, header.GetFieldsMap().GetCount());
}

TEST(HttpHeader, LengthsAddUpAndNeverWrap) {
    const ULONGLONG max = 18446744073709551615u;
    const std::tuple<const WCHAR*, ULONGLONG, ULONGLONG> rows[] = {
        {_T("2000"), 2000, 2100},
        {_T("4294967296"), 4294967296, 4294967396},
        {_T("18446744073709551615"), max, max},
        {_T("18446744073709551616"), 0, 100},
        {_T("99999999999999999999999"), 0, 100},
        {_T(""), 0, 100},
        {_T("-1"), 0, 100},
        {_T("12 bytes"), 0, 100},
        {_T("7, 7"), 0, 100},
    };
    for (const auto& [value, content, file] : rows) {
        SCOPED_TRACE(testing::PrintToString(CString(value)));
        CHttpHeader header = WithField(_T("Content-Length"), value);
        header.SetLength(100);
        EXPECT_EQ(content, header.GetContentLength());
        EXPECT_EQ(file, header.GetFileLength());
    }
    EXPECT_EQ(0u, WithField(_T("content-length"), _T("5")).GetContentLength());
}

TEST(HttpHeader, FieldsTellTheDateAndDeliberatelyTheInverseOfChunked) {
    const COleDateTime empty;
    EXPECT_EQ(
        COleDateTime(1994, 11, 6, 8, 49, 37),
        WithField(_T("Last-Modified"), _T("Sun, 06 Nov 1994 08:49:37 GMT")).GetLastModified());
    EXPECT_EQ(empty, WithField(_T("Last-Modified"), _T("yesterday")).GetLastModified());
    EXPECT_EQ(empty, CHttpHeader().GetLastModified());

    EXPECT_EQ(0, WithField(_T("Transfer-Content"), _T("Chunked")).IsChunked());
    EXPECT_NE(0, WithField(_T("Transfer-Content"), _T("gzip")).IsChunked());
    EXPECT_NE(0, WithField(_T("Transfer-Encoding"), _T("chunked")).IsChunked());
    EXPECT_NE(0, CHttpHeader().IsChunked());
}

TEST(HttpHeader, StatusCodesHaveASentence) {
    const std::tuple<DWORD, UINT> rows[] = {{100, 22701},  {206, 22709}, {300, 22711}, {305, 22716},
                                            {306, 22700},  {307, 22717}, {404, 22722}, {415, 22733},
                                            {449, 22700},  {500, 22735}, {505, 22740}, {0, 22700},
                                            {10060, 22700}};
    for (const auto& [code, id] : rows) {
        CString expected;
        ASSERT_TRUE(expected.LoadString(id));
        EXPECT_EQ(expected, AfxGetHTTPStatusCodeText(code)) << code;
    }
}

TEST(HttpHeaderReader, AHeaderIsCompleteWithItsBlankLineHoweverItIsSplit) {
    const std::string text = "HTTP/1.1 200 OK\r\nA: \xc3\xa9\r\n\r";
    for (std::size_t split = 0; split <= text.size(); ++split) {
        SCOPED_TRACE(split);
        CHttpHeader header;
        Reader reader;
        EXPECT_EQ(Reader::State::incomplete, reader.Add(text.data(), split, header));
        EXPECT_EQ(Reader::State::incomplete,
                  reader.Add(text.data() + split, text.size() - split, header));
        EXPECT_EQ(Reader::State::complete, reader.Add("\n\r\n\r\n", 5, header));
        EXPECT_EQ(text.size() + 1, header.GetLength()) << "bytes, not characters";
        EXPECT_EQ(_T("\xc3\xa9"), ValueOf(header, _T("A")));
        EXPECT_EQ(Reader::State::complete, reader.Add("\0\r\n\r\n", 5, header));
        EXPECT_EQ(200u, header.GetStatusCode());
    }
}

TEST(HttpHeaderReader, BytesThatCannotBecomeAHeaderAreGivenUp) {
    const std::tuple<std::string, std::size_t, Reader::State> rows[] = {
        {"no status\r", 100, Reader::State::incomplete},
        {"no status\r\n", 100, Reader::State::refused},
        {"\r\n", 100, Reader::State::refused},
        {"HTTP/1.1 200 OK\r\n\r\n", 19, Reader::State::complete},
        {"HTTP/1.1 200 OK\r\n\r\n", 18, Reader::State::refused},
        {"HTTP/1.1 200 OK\r\nA: b", 21, Reader::State::refused},
        {"HTTP/1.1 200 OK\r\nA: b", 22, Reader::State::incomplete},
    };
    for (const auto& [bytes, limit, state] : rows) {
        SCOPED_TRACE(testing::PrintToString(bytes) + " up to " + std::to_string(limit));
        CHttpHeader header;
        Reader whole(limit);
        EXPECT_EQ(state, whole.Add(bytes.data(), bytes.size(), header));
        Reader pieced(limit);
        for (const char byte : bytes)
            pieced.Add(&byte, 1, header);
        EXPECT_EQ(state, pieced.GetState());
        pieced.Reset();
        EXPECT_EQ(Reader::State::complete, pieced.Add("x 1\r\n\r\n", 7, header));
    }
}

TEST(HttpHeaderReader, AMegabyteByteByByteIsReadInLinearTime) {
    std::string bytes = "HTTP/1.1 200 OK\r\n";
    while (bytes.size() < 1 << 20)
        bytes += "X-" + std::to_string(bytes.size()) + ": value\r\n";
    bytes += "\r\n";
    CHttpHeader header;
    Reader reader;
    for (const char byte : bytes) // a quadratic search would take half an hour
        reader.Add(&byte, 1, header);
    EXPECT_EQ(Reader::State::complete, reader.GetState());
    EXPECT_EQ(bytes.size(), header.GetLength());
}

} // namespace

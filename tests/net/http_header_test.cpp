// The fuzz target checks that a header gives the same result in pieces and as a whole.
#include <quorvel/net/http_header.h>

#include "net/http_header_reader.h"
#include "support/date_time.h"
#include "support/test.h"

namespace {

typedef quorvel::HttpHeaderReader Reader;

// The fields, ordered by name: "name=value;".
CString FieldsOf(const CHttpHeader& header) {
    CString fields;
    for (POSITION next = header.GetFieldsMap().GetStartPosition(); next != nullptr;) {
        CString name, value;
        header.GetFieldsMap().GetNextAssoc(next, name, value);
        fields += name + _T("=") + value + _T(";");
    }
    return fields;
}

CHttpHeader WithField(const WCHAR* name, const WCHAR* value) {
    CHttpHeader header;
    header.SetFieldValue(name, value);
    return header;
}

TEST(HttpHeader, AStatusLineIsAWordAndANumberOrChangesNothing) {
    const std::tuple<CString, const WCHAR*, int, UINT> rows[] = {
        {_T("HTTP/1.1 404 Not Found\r\n\r\nbody\r\n\r\n"), _T("HTTP/1.1"), 404, 26},
        {_T(" \tHTTP/2 \t 0301x\r\n\r\n"), _T("HTTP/2"), 301, 20},
        {_T("x -5\r\n\r\n"), _T("x"), -5, 8},
        {_T("x 99999999999999999999\r\n\r\n"), _T("x"), 2147483647, 26},
        {_T("HTTP/1.1 200 OK\r\nA: b\r\n"), nullptr, 0, 0},
        {_T("HTTP/1.1 200 OK\n\nA: b\n\n"), nullptr, 0, 0},
        {_T("\r\nHTTP/1.1 200 OK\r\n\r\n"), nullptr, 0, 0},
        {_T("HTTP/1.1\r\n200\r\n\r\n"), nullptr, 0, 0},
        {_T("HTTP/1.1 - 2\r\n\r\n"), nullptr, 0, 0},
        {CString(_T("HTTP/1.1\0 200\r\n\r\n"), 17), nullptr, 0, 0},
    };
    for (const auto& [text, version, code, length] : rows) {
        SCOPED_TRACE(testing::PrintToString(text));
        CHttpHeader header = WithField(_T("A"), _T("kept"));
        header.SetVersion(_T("old"));
        EXPECT_EQ(version != nullptr, header.InitializeFromStream(text) != FALSE);
        EXPECT_EQ(CString(version != nullptr ? version : _T("old")), header.GetVersion());
        EXPECT_EQ(static_cast<UINT>(code), header.GetStatusCode());
        EXPECT_EQ(length, header.GetLength());
        EXPECT_EQ(CString(version != nullptr ? _T("") : _T("A=kept;")), FieldsOf(header));
    }
}

TEST(HttpHeader, FieldsLoseTheirOuterWhiteSpaceAndReplaceEarlierOnes) {
    CHttpHeader header;
    ASSERT_TRUE(header.InitializeFromStream(
        _T("HTTP/1.1 200 OK\r\nLocation: \t x:y \r\n no colon\r\n : no name\r\nEmpty:\r\n")
        _T("location: other\r\nTwice: 1\r\nTwice: 2\r\n\xe9: \xa0\r\n\r\nBody: x\r\n\r\n")));
    const CHttpHeader copy = header;
    header.RemoveAllFields();
    header = copy;
    EXPECT_EQ(_T("Empty=;Location=x:y;Twice=2;location=other;\xe9=\xa0;"), FieldsOf(header));
    EXPECT_EQ(200u, header.GetStatusCode());
}

TEST(HttpHeader, FieldsAreFoundByExactNameAndOnRequestByAny) {
    CHttpHeader header = WithField(_T("DATE"), _T("1"));
    header.SetFieldValue(_T("Date"), _T("2"));
    header.SetFieldValue(nullptr, _T("x"));
    header.SetFieldValue(_T("Date"), nullptr);
    // The results of GetFieldValue and FindFieldValue; FALSE leaves the marker.
    const std::pair<const WCHAR*, CString> rows[] = {{_T("DATE"), _T("1 1")},
                                                     {_T("Date"), _T("2 2")},
                                                     {_T("date"), _T("- 1")},
                                                     {_T("Dat"), _T("- -")},
                                                     {nullptr, _T("- -")}};
    for (const auto& [name, values] : rows) {
        CString exact = _T("-"), any = _T("-");
        EXPECT_EQ(header.GetFieldValue(name, exact) == FALSE, values[0] == '-');
        EXPECT_EQ(header.FindFieldValue(name, any) == FALSE, values[2] == '-');
        EXPECT_EQ(values, exact + _T(" ") + any) << testing::PrintToString(CString(name));
    }
    EXPECT_FALSE(header.RemoveField(_T("date")) || header.RemoveField(nullptr));
    EXPECT_TRUE(header.RemoveField(_T("Date")));
}

TEST(HttpHeader, FieldsHoldLengthDateAndDeliberatelyTheInverseOfChunked) {
    const ULONGLONG max = 18446744073709551615u;
    // The lengths of the body and of a file with a header of 100 bytes.
    const std::tuple<const WCHAR*, ULONGLONG, ULONGLONG> rows[] = {
        {_T("4294967296"), 4294967296, 4294967396},
        {_T("18446744073709551615"), max, max},
        {_T("18446744073709551616"), 0, 100},
        {_T("18446744073709551617"), 0, 100},
        {_T("-1"), 0, 100},
        {_T("12 bytes"), 0, 100},
    };
    for (const auto& [value, content, file] : rows) {
        CHttpHeader header = WithField(_T("Content-Length"), value);
        header.SetLength(100);
        EXPECT_EQ(std::pair(content, file),
                  std::pair(header.GetContentLength(), header.GetFileLength()));
    }
    EXPECT_EQ(0u, WithField(_T("content-length"), _T("5")).GetContentLength());
    EXPECT_EQ(
        COleDateTime(1994, 11, 6, 8, 49, 37),
        WithField(_T("Last-Modified"), _T("Sun, 06 Nov 1994 08:49:37 GMT")).GetLastModified());
    EXPECT_EQ(COleDateTime(), CHttpHeader().GetLastModified());
    EXPECT_EQ(0, WithField(_T("Transfer-Content"), _T("Chunked")).IsChunked());
    EXPECT_NE(0, WithField(_T("Transfer-Encoding"), _T("chunked")).IsChunked());
}

TEST(HttpHeaderReader, BytesThatCannotBecomeAHeaderAreGivenUp) {
    const std::tuple<std::string, std::size_t, Reader::State> rows[] = {
        {"no status\r", 100, Reader::State::Incomplete},
        {"no status\r\n", 100, Reader::State::Refused},
        {"HTTP/1.1 200 OK\r\n\r\n", 19, Reader::State::Complete},
        {"HTTP/1.1 200 OK\r\n\r\n", 18, Reader::State::Refused},
        {"HTTP/1.1 200 OK\r\nA: b", 21, Reader::State::Refused},
        {"HTTP/1.1 200 OK\r\nA: b", 22, Reader::State::Incomplete},
    };
    for (const auto& [bytes, limit, state] : rows) {
        CHttpHeader header;
        Reader reader(limit);
        for (const char byte : bytes)
            reader.Add(&byte, 1, header);
        EXPECT_EQ(state, reader.GetState()) << bytes << " up to " << limit;
        reader.Reset();
        EXPECT_EQ(Reader::State::Complete, reader.Add("x 1\r\n\r\n", 7, header));
    }
}

TEST(HttpHeaderReader, AMegabyteByteByByteIsReadInLinearTime) {
    std::string bytes = "HTTP/1.1 200 OK\r\nA: ";
    bytes.append("\xe9").append(1 << 20, '\r').append("\r\n\r\n");
    CHttpHeader header;
    Reader reader;
    for (const char byte : bytes) // a quadratic search would take half an hour
        reader.Add(&byte, 1, header);
    EXPECT_EQ(bytes.size(), header.GetLength()) << "bytes, whatever the code page";
}

} // namespace

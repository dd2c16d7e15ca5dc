#include <quorvel/util/compression/compression.h>

#include "support/message_box_recorder.h"
#include "support/test.h"
#include "util/compression/test_file.h"

#include <new>

namespace {

class Compression : public testing::Test {
protected:
    BOOL Convert(bool deflating, CFile& source, CFile& destination, int level = -1) {
        m_read = m_written = 0xdeadbeef;
        return deflating
                   ? AfxDeflate(source, m_read, destination, m_written, level, FALSE, nullptr,
                                nullptr)
                   : AfxInflate(source, m_read, destination, m_written, FALSE, nullptr, nullptr);
    }
    void ExpectFailure(bool deflating, CFile& source, CFile& destination, const CString& text,
                       int level = -1) {
        EXPECT_FALSE(Convert(deflating, source, destination, level));
        EXPECT_EQ(m_read + m_written, 0u);
        const CString whole = _T("An error has occurred while ") +
                              CString(deflating ? _T("de") : _T("in")) +
                              _T("flating data.\r\n\r\n") + text;
        EXPECT_EQ(m_recorder.Take(),
                  (std::vector<RecordedMessageBox>{{whole, MB_ICONEXCLAMATION, 0}}));
    }

    MessageBoxRecorder m_recorder;
    DWORD m_read = 0, m_written = 0;
};

TEST_F(Compression, RoundTripsWholeStreams) {
    for (const std::string& bytes :
         {std::string("x"), SomeText(32768), RandomBytes(300000), std::string(3000000, 'a')})
        for (const int level : {-1, 0, 1, 9}) {
            SCOPED_TRACE(std::to_string(bytes.size()) + ", level " + std::to_string(level));
            TestFile plain(bytes), packed, again;
            EXPECT_TRUE(Convert(true, plain, packed, level));
            EXPECT_TRUE(m_read == bytes.size() && m_written == packed.GetPosition());
            const std::string stream = packed.Contents();
            TestFile followed(stream + std::string(20000, '#'));
            EXPECT_TRUE(Convert(false, followed, again));
            EXPECT_EQ(m_read, stream.size()); // does not read beyond the stream
            EXPECT_TRUE(m_written == bytes.size() && again.Contents() == bytes);
        }
    EXPECT_TRUE(m_recorder.Take().empty());
}

TEST_F(Compression, WritesTheZlibStreamAndNothingElse) {
    const std::string image("\x78\x9c\xcb\x48\xcd\xc9\xc9\x07\x00\x06\x2c\x02\x15", 13);
    TestFile plain("<hello"), packed("before, and what is overwritten");
    plain.Seek(1, CFile::begin);
    packed.Seek(6, CFile::begin);
    ASSERT_TRUE(Convert(true, plain, packed));
    EXPECT_EQ(m_read, 5u);
    EXPECT_EQ(m_written, 13u);
    EXPECT_EQ(packed.Contents(), "before" + image + " overwritten");
}

TEST_F(Compression, RefusesSilently) {
    // The end of a file, and a progress box without one of its texts.
    const std::tuple<int, BOOL, const WCHAR*, const WCHAR*> rows[] = {
        {3, FALSE, nullptr, nullptr}, {0, TRUE, nullptr, _T("")}, {0, TRUE, _T(""), nullptr}};
    for (const auto& [position, box, caption, status] : rows) {
        TestFile source("abc"), destination("unchanged");
        source.Seek(position, CFile::begin);
        EXPECT_FALSE(AfxDeflate(source, m_read, destination, m_written, -1, box, caption, status) ||
                     AfxInflate(source, m_read, destination, m_written, box, caption, status));
        EXPECT_EQ(destination.Contents(), "unchanged");
    }
    EXPECT_TRUE(m_recorder.Take().empty());
}

TEST_F(Compression, ReportsTruncatedStreamsAndWrongLevels) {
    const std::string bytes = SomeText(2500) + RandomBytes(150);
    TestFile plain(bytes), packed;
    ASSERT_TRUE(Convert(true, plain, packed));
    const std::string stream = packed.Contents();
    for (const std::size_t i : {std::size_t{1}, std::size_t{2}, stream.size() - 1}) {
        TestFile truncated(stream.substr(0, i)), partial;
        ExpectFailure(false, truncated, partial, _T("No further progress is possible."));
        EXPECT_TRUE(bytes.starts_with(partial.Contents()));
    }
    TestFile needsDictionary(std::string("\x78\xbb\x00\x01\x00\x01\x4b\x04\x00", 9)), destination;
    ExpectFailure(false, needsDictionary, destination, _T("The input data is corrupted."));
    plain.SeekToBegin();
    for (const int level : {10, -2})
        ExpectFailure(true, plain, destination, _T("Invalid compression level."), level);
    EXPECT_TRUE(destination.Contents().empty());
}

TEST_F(Compression, NothingThatAFileThrowsEscapes) {
    const std::string bytes = RandomBytes(100000);
    TestFile plain(bytes), packed;
    ASSERT_TRUE(Convert(true, plain, packed));
    const std::pair<void (*)(), const WCHAR*> rows[] = {
        {[] { AfxThrowFileException(CFileException::diskFull); }, _T("The disk is full.")},
        {[] { AfxThrowMemoryException(); }, _T("Out of memory.")},
        {[] { throw std::bad_alloc(); }, _T("Not enough memory to perform the operation.")},
        {[] { throw 7; }, _T("Unknown compression error.")},
    };
    for (const auto& [throwIt, text] : rows)
        for (const bool deflating : {true, false})
            for (const bool reading : {true, false}) {
                SCOPED_TRACE(deflating ? "deflating" : "inflating");
                TestFile source(deflating ? bytes : packed.Contents());
                TestFile destination;
                int calls = 0;
                (reading ? source.m_onRead : destination.m_onWrite) = [&, raise = throwIt] {
                    if (++calls == 2)
                        raise();
                };
                ExpectFailure(deflating, source, destination, text);
                EXPECT_GT(destination.GetLength(), 0u); // written data stays
            }
}

} // namespace

#include <quorvel/util/compression/compression.h>

#include "support/message_box_recorder.h"
#include "support/test.h"
#include "util/compression/test_file.h"

#include <zlib.h>

namespace {

const CString kDeflatingFailed(_T("An error has occurred while deflating data.\r\n\r\n"));
const CString kInflatingFailed(_T("An error has occurred while inflating data.\r\n\r\n"));
const WCHAR* const kUnknown = _T("Unknown compression error.");
const WCHAR* const kInvalidLevel = _T("Invalid compression level.");
const WCHAR* const kCorrupt = _T("The input data is corrupted.");
const WCHAR* const kNoProgress = _T("No further progress is possible.");
constexpr DWORD kMarker = 0xdeadbeef;

class Compression : public testing::Test {
protected:
    BOOL Convert(bool deflating, CFile& source, CFile& destination, int level = -1,
                 BOOL showProgress = FALSE, const WCHAR* caption = nullptr,
                 const WCHAR* status = nullptr) {
        m_read = m_written = kMarker;
        return deflating ? AfxDeflate(source, m_read, destination, m_written, level, showProgress,
                                      caption, status)
                         : AfxInflate(source, m_read, destination, m_written, showProgress, caption,
                                      status);
    }
    void ExpectConverted(bool deflating, CFile& source, CFile& destination, int level = -1) {
        EXPECT_TRUE(Convert(deflating, source, destination, level));
        EXPECT_EQ(m_written, destination.GetPosition());
    }
    void ExpectFailure(bool deflating, CFile& source, CFile& destination, const CString& text,
                       int level = -1) {
        EXPECT_FALSE(Convert(deflating, source, destination, level));
        EXPECT_EQ(m_read + m_written, 0u);
        ExpectShown((deflating ? kDeflatingFailed : kInflatingFailed) + text);
    }
    void ExpectShown(const CString& text) {
        const auto boxes = m_recorder.Take();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, text);
        EXPECT_EQ(boxes[0].type, UINT{MB_ICONEXCLAMATION});
        EXPECT_EQ(boxes[0].helpId, 0u);
    }

    MessageBoxRecorder m_recorder;
    DWORD m_read = 0;
    DWORD m_written = 0;
};

TEST_F(Compression, RoundTripsWholeStreams) {
    for (const std::string& bytes :
         {std::string("x"), SomeText(32768), RandomBytes(300000), std::string(3000000, 'a')})
        for (const int level : {-1, 0, 1, 9}) {
            SCOPED_TRACE(std::to_string(bytes.size()) + ", level " + std::to_string(level));
            TestFile plain(bytes);
            TestFile packed;
            ExpectConverted(true, plain, packed, level);
            EXPECT_EQ(m_read, bytes.size());
            const std::string stream = packed.Contents();
            TestFile followed(stream + std::string(20000, '#'));
            TestFile again;
            ExpectConverted(false, followed, again);
            EXPECT_EQ(m_read, stream.size()); // does not read beyond the stream
            EXPECT_TRUE(again.Contents() == bytes);
        }
    EXPECT_TRUE(m_recorder.Take().empty());
}

TEST_F(Compression, WritesTheZlibStreamAndNothingElse) {
    const std::string image("\x78\x9c\xcb\x48\xcd\xc9\xc9\x07\x00\x06\x2c\x02\x15", 13);
    TestFile plain("<hello");
    TestFile packed("before, and what is overwritten");
    plain.Seek(1, CFile::begin);
    packed.Seek(6, CFile::begin);
    ASSERT_TRUE(Convert(true, plain, packed));
    EXPECT_EQ(m_read, 5u);
    EXPECT_EQ(m_written, 13u);
    EXPECT_EQ(packed.Contents(), "before" + image + " overwritten");
    TestFile stream(image);
    TestFile again;
    ExpectConverted(false, stream, again);
    EXPECT_EQ(again.Contents(), "hello");
}

TEST_F(Compression, RefusesSilently) {
    const std::tuple<const char*, int, BOOL, const WCHAR*, const WCHAR*> rows[] = {
        {"abc", 3, FALSE, nullptr, nullptr},
        {"abc", 0, TRUE, nullptr, _T("")},
        {"abc", 0, TRUE, _T(""), nullptr},
    };
    for (const auto& [bytes, position, showProgress, caption, status] : rows)
        for (const bool deflating : {true, false}) {
            TestFile source(bytes);
            source.Seek(position, CFile::begin);
            TestFile destination("unchanged");
            EXPECT_FALSE(
                Convert(deflating, source, destination, -1, showProgress, caption, status));
            EXPECT_EQ(m_read + m_written, 0u) << position;
            EXPECT_EQ(destination.Contents(), "unchanged");
        }
    EXPECT_TRUE(m_recorder.Take().empty());
}

TEST_F(Compression, EveryStageHasItsTexts) {
    const std::tuple<BOOL, compressionStage, int, CString> rows[] = {
        {TRUE, compressionStageInitialize, Z_STREAM_ERROR, kDeflatingFailed + kInvalidLevel},
        {2, compressionStageEnd, Z_DATA_ERROR,
         kDeflatingFailed + _T("The stream was freed prematurely.")},
        {FALSE, compressionStageInitialize, Z_STREAM_ERROR, kInflatingFailed + kUnknown},
        {-1, compressionStageRun, Z_STREAM_ERROR,
         kInflatingFailed + _T("The stream structure is inconsistent.")},
    };
    m_recorder.m_answer = IDRETRY;
    for (const auto& [direction, stage, error, text] : rows) {
        EXPECT_EQ(AfxCompressionErrorMessageBox(direction, stage, error, MB_ICONEXCLAMATION),
                  IDRETRY);
        ExpectShown(text);
    }
}

TEST_F(Compression, TellsOfTruncatedStreamsAndWrongLevels) {
    const std::string bytes = SomeText(2500) + RandomBytes(150);
    TestFile plain(bytes);
    TestFile packed;
    ASSERT_TRUE(Convert(true, plain, packed));
    const std::string stream = packed.Contents();
    for (const std::size_t i : {std::size_t{1}, std::size_t{2}, stream.size() - 1}) {
        TestFile truncated(stream.substr(0, i));
        TestFile partial;
        ExpectFailure(false, truncated, partial, kNoProgress);
        EXPECT_TRUE(bytes.starts_with(partial.Contents()));
    }
    TestFile needsDictionary(std::string("\x78\xbb\x00\x01\x00\x01\x4b\x04\x00", 9));
    TestFile destination;
    ExpectFailure(false, needsDictionary, destination, kCorrupt);
    plain.SeekToBegin();
    for (const int level : {10, -2})
        ExpectFailure(true, plain, destination, kInvalidLevel, level);
    EXPECT_TRUE(destination.Contents().empty());
}

TEST_F(Compression, NothingThatAFileThrowsEscapes) {
    const std::string bytes = RandomBytes(100000);
    TestFile plain(bytes);
    TestFile packed;
    ASSERT_TRUE(Convert(true, plain, packed));
    for (const ThrowRow& row : kThrown)
        for (const bool deflating : {true, false})
            for (const bool reading : {true, false}) {
                SCOPED_TRACE(deflating ? "deflating" : "inflating");
                TestFile source(deflating ? bytes : packed.Contents());
                TestFile destination;
                int calls = 0;
                (reading ? source.m_onRead : destination.m_onWrite) = [&] {
                    if (++calls == 2)
                        row.throwIt();
                };
                ExpectFailure(deflating, source, destination, row.text);
                EXPECT_GT(destination.GetLength(), 0u); // written data stays
            }
}

TEST_F(Compression, FilesThatCannotBeUsedAreTold) {
    const WCHAR* const noAccess = _T("The file could not be accessed.");
    const CString name(_T("unusable.tmp"));
    TestFile other("abc");
    CFile unusable(name, CFile::modeCreate | CFile::modeWrite);
    unusable.Write("abc", 3);
    unusable.SeekToBegin();
    ExpectFailure(true, unusable, other, noAccess);
    ASSERT_TRUE(unusable.Open(name, CFile::modeRead));
    ExpectFailure(true, other, unusable, noAccess);
    unusable.Close();
    CFile::Remove(name);
    if (!kOnLinux)
        return; // only Linux has a device that is always full
    CFile full(_T("/dev/full"), CFile::modeWrite);
    other.SeekToBegin();
    ExpectFailure(true, other, full, _T("The disk is full."));
}

} // namespace

#include <quorvel/util/compression/compression.h>

#include "support/message_box_recorder.h"
#include "support/platform.h"
#include "support/text.h"
#include "util/compression/test_file.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <tuple>

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
         {std::string("x"), SomeText(32767), SomeText(32768), SomeText(32769), SomeText(1000003),
          RandomBytes(300000), std::string(3000000, 'a')})
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
            EXPECT_EQ(m_read, stream.size()); // what follows is not of it
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
        {"", 0, TRUE, nullptr, nullptr},     {"abc", 3, FALSE, nullptr, nullptr},
        {"abc", 4, FALSE, nullptr, nullptr}, {"abc", 0, TRUE, nullptr, _T("")},
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
    const WCHAR* const memory = _T("Not enough memory to perform the operation.");
    const WCHAR* const version = _T("The zlib library version is incompatible with the version ")
                                 _T("assumed by the caller.");
    const WCHAR* const state = _T("The stream state is inconsistent.");
    const WCHAR* const structure = _T("The stream structure is inconsistent.");
    const WCHAR* const freed = _T("The stream was freed prematurely.");
    // By direction, stage and error, from -1 (of the system) down to -6 (a wrong version).
    const WCHAR* const texts[2][3][6] = {
        {{kUnknown, kUnknown, kUnknown, memory, kUnknown, version},
         {kUnknown, structure, kCorrupt, memory, kNoProgress, kUnknown},
         {kUnknown, state, kUnknown, kUnknown, kUnknown, kUnknown}},
        {{kUnknown, kInvalidLevel, kUnknown, memory, kUnknown, version},
         {kUnknown, state, kUnknown, kUnknown, kNoProgress, kUnknown},
         {kUnknown, state, freed, kUnknown, kUnknown, kUnknown}},
    };
    m_recorder.m_answer = IDRETRY;
    for (int stage = 0; stage < 3; ++stage)
        for (int error = -1; error >= -6; --error)
            for (const BOOL direction : {TRUE, 2, FALSE, -1}) {
                SCOPED_TRACE("stage " + std::to_string(stage) + ", error " + std::to_string(error));
                EXPECT_EQ(AfxCompressionErrorMessageBox(direction,
                                                        static_cast<compressionStage>(stage), error,
                                                        MB_ICONEXCLAMATION),
                          IDRETRY);
                ExpectShown((direction > 0 ? kDeflatingFailed : kInflatingFailed) +
                            texts[direction > 0][stage][-error - 1]);
            }
}

// A stream of some blocks, damaged at each of its bytes.
TEST_F(Compression, TellsOfTruncatedAndDamagedStreams) {
    const std::string bytes = SomeText(2500) + RandomBytes(150);
    TestFile plain(bytes);
    TestFile packed;
    ASSERT_TRUE(Convert(true, plain, packed));
    const std::string stream = packed.Contents();
    for (std::size_t i = 1; i < stream.size(); ++i) {
        TestFile truncated(stream.substr(0, i));
        TestFile partial;
        ExpectFailure(false, truncated, partial, kNoProgress);
        EXPECT_TRUE(bytes.starts_with(partial.Contents()));
    }
    for (std::size_t i = 0; i < stream.size(); ++i)
        for (const int flip : {0x01, 0x20, 0x80, 0xff}) {
            std::string changed = stream;
            changed[i] = static_cast<char>(changed[i] ^ flip);
            TestFile damaged(changed);
            TestFile destination;
            if (Convert(false, damaged, destination)) { // bits that only fill up a byte
                EXPECT_EQ(destination.Contents(), bytes);
                continue;
            }
            const auto boxes = m_recorder.Take();
            ASSERT_EQ(boxes.size(), 1u);
            EXPECT_TRUE(boxes[0].text == kInflatingFailed + kCorrupt ||
                        boxes[0].text == kInflatingFailed + kNoProgress);
        }
    TestFile needsDictionary(std::string("\x78\xbb\x00\x01\x00\x01\x4b\x04\x00", 9));
    TestFile destination;
    ExpectFailure(false, needsDictionary, destination, kCorrupt);
    plain.SeekToBegin();
    for (const int level : {12, 10, -2})
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
                EXPECT_GT(destination.GetLength(), 0u); // what was written stays
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
    ExpectFailure(false, unusable, other, noAccess);
    ASSERT_TRUE(unusable.Open(name, CFile::modeRead));
    ExpectFailure(true, other, unusable, noAccess);
    unusable.Close();
    CFile::Remove(name);
    EXPECT_FALSE(Convert(false, unusable, other)); // not open
    EXPECT_EQ(m_recorder.Take().size(), 1u);
    if (!kOnLinux)
        return; // elsewhere there is no device that is always full
    for (const std::string& bytes : {std::string("abc"), RandomBytes(200000)}) {
        TestFile source(bytes);
        CFile full(_T("/dev/full"), CFile::modeWrite);
        ExpectFailure(true, source, full, _T("The disk is full."));
    }
}

} // namespace

#include <quorvel/util/compression/compression.h>

#include "support/message_box_recorder.h"
#include "support/text.h"
#include "util/compression/bytes.h"

#include <gtest/gtest.h>

#include <cstdio>

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
    BOOL Deflate(CFile& source, CFile& destination, int level = -1) {
        m_bytesRead = m_bytesWritten = kMarker;
        return AfxDeflate(source, m_bytesRead, destination, m_bytesWritten, level, FALSE, nullptr,
                          nullptr);
    }
    BOOL Inflate(CFile& source, CFile& destination) {
        m_bytesRead = m_bytesWritten = kMarker;
        return AfxInflate(source, m_bytesRead, destination, m_bytesWritten, FALSE, nullptr,
                          nullptr);
    }

    void ExpectCounts(std::size_t bytesRead, std::size_t bytesWritten) {
        EXPECT_EQ(m_bytesRead, bytesRead);
        EXPECT_EQ(m_bytesWritten, bytesWritten);
    }
    void ExpectShown(const CString& text) {
        const auto boxes = m_recorder.Take();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, text);
        EXPECT_EQ(boxes[0].type, UINT{MB_ICONEXCLAMATION});
        EXPECT_EQ(boxes[0].helpId, 0u);
    }
    void ExpectNothingShown() { EXPECT_TRUE(m_recorder.Take().empty()); }

    MessageBoxRecorder m_recorder;
    DWORD m_bytesRead = 0;
    DWORD m_bytesWritten = 0;
};

TEST_F(Compression, RoundTripsWholeStreams) {
    const struct {
        const char* label;
        std::string bytes;
    } rows[] = {
        {"one byte", "x"},
        {"one less than a chunk", SomeText(32767)},
        {"a chunk", SomeText(32768)},
        {"one more than a chunk", SomeText(32769)},
        {"text", SomeText(1000003)},
        {"random", RandomBytes(300000)},
        {"one long run", std::string(3000000, 'a')},
    };
    for (const auto& row : rows)
        for (const int level : {-1, 0, 1, 6, 9}) {
            SCOPED_TRACE(std::string(row.label) + ", level " + std::to_string(level));
            TestFile plain(row.bytes);
            TestFile packed;
            ASSERT_TRUE(Deflate(plain, packed, level));
            const std::string stream = packed.Contents();
            ExpectCounts(row.bytes.size(), stream.size());
            EXPECT_TRUE(Unpacked(stream, row.bytes.size()) == row.bytes);

            // What follows the stream is not of it.
            TestFile followed(stream + std::string(20000, '#'));
            TestFile again;
            ASSERT_TRUE(Inflate(followed, again));
            ExpectCounts(stream.size(), row.bytes.size());
            EXPECT_TRUE(again.Contents() == row.bytes);
        }
    ExpectNothingShown();
}

TEST_F(Compression, WritesTheZlibStreamAndNothingElse) {
    const std::string image("\x78\x9c\xcb\x48\xcd\xc9\xc9\x07\x00\x06\x2c\x02\x15", 13);
    TestFile plain("<hello");
    TestFile packed("before, and what is overwritten");
    plain.Seek(1, CFile::begin);
    packed.Seek(6, CFile::begin);
    ASSERT_TRUE(Deflate(plain, packed));
    ExpectCounts(5, 13);
    EXPECT_EQ(packed.Contents(), "before" + image + " overwritten"); // the rest of the former file

    TestFile stream(image);
    TestFile again;
    ASSERT_TRUE(Inflate(stream, again));
    ExpectCounts(13, 5);
    EXPECT_EQ(again.Contents(), "hello");
}

TEST_F(Compression, RefusesSilently) {
    const WCHAR* const null = nullptr;
    const struct {
        const char* label;
        const char* bytes;
        int position;
        BOOL showProgress;
        const WCHAR* caption;
        const WCHAR* status;
    } rows[] = {
        {"empty", "", 0, FALSE, null, null},
        {"empty, with progress", "", 0, TRUE, null, null},
        {"at the end", "abc", 3, FALSE, null, null},
        {"behind the end", "abc", 4, FALSE, null, null},
        {"no caption", "abc", 0, TRUE, null, _T("")},
        {"no status", "abc", 0, TRUE, _T(""), null},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label);
        for (const bool deflating : {true, false}) {
            TestFile source(row.bytes);
            source.Seek(row.position, CFile::begin);
            TestFile destination("unchanged");
            DWORD bytesRead = kMarker;
            DWORD bytesWritten = kMarker;
            EXPECT_FALSE(deflating ? AfxDeflate(source, bytesRead, destination, bytesWritten, -1,
                                                row.showProgress, row.caption, row.status)
                                   : AfxInflate(source, bytesRead, destination, bytesWritten,
                                                row.showProgress, row.caption, row.status));
            EXPECT_EQ(bytesRead + bytesWritten, 0u);
            EXPECT_EQ(destination.Contents(), "unchanged");
        }
    }
    ExpectNothingShown();
}

TEST_F(Compression, EveryStageHasItsTexts) {
    const WCHAR* const memory = _T("Not enough memory to perform the operation.");
    const WCHAR* const version = _T("The zlib library version is incompatible with the version ")
                                 _T("assumed by the caller.");
    const WCHAR* const state = _T("The stream state is inconsistent.");
    const WCHAR* const structure = _T("The stream structure is inconsistent.");
    const WCHAR* const freed = _T("The stream was freed prematurely.");
    // By stage and from -1 (a system error) down to -6 (a wrong version).
    const WCHAR* const deflating[3][6] = {
        {kUnknown, kInvalidLevel, kUnknown, memory, kUnknown, version},
        {kUnknown, state, kUnknown, kUnknown, kNoProgress, kUnknown},
        {kUnknown, state, freed, kUnknown, kUnknown, kUnknown},
    };
    const WCHAR* const inflating[3][6] = {
        {kUnknown, kUnknown, kUnknown, memory, kUnknown, version},
        {kUnknown, structure, kCorrupt, memory, kNoProgress, kUnknown},
        {kUnknown, state, kUnknown, kUnknown, kUnknown, kUnknown},
    };
    m_recorder.m_answer = IDRETRY;
    for (int stage = 0; stage < 3; ++stage)
        for (int error = -1; error >= -6; --error) {
            SCOPED_TRACE("stage " + std::to_string(stage) + ", error " + std::to_string(error));
            for (const BOOL direction : {TRUE, 2, FALSE, -1}) {
                EXPECT_EQ(AfxCompressionErrorMessageBox(direction,
                                                        static_cast<compressionStage>(stage), error,
                                                        MB_ICONEXCLAMATION),
                          IDRETRY);
                ExpectShown(direction > 0 ? kDeflatingFailed + deflating[stage][-error - 1]
                                          : kInflatingFailed + inflating[stage][-error - 1]);
            }
        }
    AfxCompressionErrorMessageBox(TRUE, static_cast<compressionStage>(3), -2, MB_ICONEXCLAMATION);
    ExpectShown(kDeflatingFailed + kUnknown);
}

TEST_F(Compression, ALevelOutOfRangeIsTold) {
    for (const int level : {12, 10, -2}) {
        TestFile source("abc");
        TestFile destination("unchanged");
        EXPECT_FALSE(Deflate(source, destination, level));
        ExpectCounts(0, 0);
        ExpectShown(kDeflatingFailed + kInvalidLevel);
        EXPECT_EQ(destination.Contents(), "unchanged");
    }
}

// A stream of some blocks, damaged at each of its bytes.
TEST_F(Compression, TellsOfTruncatedAndDamagedStreams) {
    const std::string bytes = SomeText(2500) + RandomBytes(150);
    const std::string stream = Packed(bytes);
    for (std::size_t i = 0; i < stream.size(); ++i) {
        SCOPED_TRACE(i);
        if (i > 0) {
            TestFile truncated(stream.substr(0, i));
            TestFile destination;
            EXPECT_FALSE(Inflate(truncated, destination));
            ExpectCounts(0, 0);
            ExpectShown(kInflatingFailed + kNoProgress);
            const std::string partial = destination.Contents();
            EXPECT_EQ(partial, bytes.substr(0, partial.size()));
        }
        for (const int flip : {0x01, 0x20, 0x80, 0xff}) {
            std::string changed = stream;
            changed[i] = static_cast<char>(changed[i] ^ flip);
            TestFile damaged(changed);
            TestFile destination;
            // Bits that fill up the byte before the trailer say nothing.
            if (Inflate(damaged, destination)) {
                EXPECT_EQ(destination.Contents(), bytes);
                continue;
            }
            const auto boxes = m_recorder.Take();
            ASSERT_EQ(boxes.size(), 1u);
            EXPECT_TRUE(boxes[0].text == kInflatingFailed + kCorrupt ||
                        boxes[0].text == kInflatingFailed + kNoProgress);
        }
    }
    TestFile needsDictionary(std::string("\x78\xbb\x00\x01\x00\x01\x4b\x04\x00", 9));
    TestFile destination;
    EXPECT_FALSE(Inflate(needsDictionary, destination));
    ExpectShown(kInflatingFailed + kCorrupt);
}

TEST_F(Compression, NothingThatAFileThrowsEscapes) {
    const std::string bytes = RandomBytes(100000);
    const std::string stream = Packed(bytes);
    for (const ThrowRow& row : kThrown)
        for (const bool deflating : {true, false})
            for (auto TestFile::*event :
                 {&TestFile::m_onRead, &TestFile::m_onWrite, &TestFile::m_onGetLength}) {
                SCOPED_TRACE(row.label);
                TestFile source(deflating ? bytes : stream);
                TestFile destination;
                int calls = 0;
                const bool atOnce = event == &TestFile::m_onGetLength;
                (event == &TestFile::m_onWrite ? destination : source).*event = [&] {
                    if (atOnce || ++calls == 2)
                        row.throwIt();
                };
                EXPECT_FALSE(deflating ? Deflate(source, destination)
                                       : Inflate(source, destination));
                ExpectCounts(0, 0);
                ExpectShown((deflating ? kDeflatingFailed : kInflatingFailed) + row.text);
                EXPECT_EQ(destination.CMemFile::GetLength() > 0, !atOnce); // what was written stays
            }
}

TEST_F(Compression, FilesThatCannotBeUsedAreTold) {
    const CString name(_T("unusable.tmp"));
    {
        CFile writeOnly(name, CFile::modeCreate | CFile::modeWrite);
        writeOnly.Write("abc", 3);
        writeOnly.SeekToBegin();
        TestFile other;
        EXPECT_FALSE(Deflate(writeOnly, other));
        ExpectShown(kDeflatingFailed + _T("The file could not be accessed."));
        EXPECT_FALSE(Inflate(writeOnly, other));
        ExpectShown(kInflatingFailed + _T("The file could not be accessed."));
    }
    {
        CFile readOnly(name, CFile::modeRead);
        TestFile source("abc");
        EXPECT_FALSE(Deflate(source, readOnly));
        ExpectShown(kDeflatingFailed + _T("The file could not be accessed."));
    }
    CFile::Remove(name);
    CFile closed;
    TestFile other;
    EXPECT_FALSE(Inflate(closed, other));
    EXPECT_EQ(m_recorder.Take().size(), 1u);
}

} // namespace

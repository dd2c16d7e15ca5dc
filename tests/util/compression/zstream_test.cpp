#include <quorvel/util/compression/zstream.h>

#include "support/message_box_recorder.h"
#include "util/compression/bytes.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

constexpr UINT kAll = 0xffffffff;
constexpr UINT kMarker = 0xdeadbeef;

std::string Deflated(const std::string& bytes) {
    CZStream stream;
    EXPECT_TRUE(stream.DeflateInit(-1));
    TestFile source(bytes);
    TestFile destination;
    UINT written = kMarker;
    EXPECT_EQ(stream.Deflate(source, kAll, destination, written), 1);
    EXPECT_TRUE(stream.DeflateEnd());
    const std::string packed = destination.Contents();
    EXPECT_EQ(written, packed.size());
    return packed;
}

TEST(ZStream, TheTwoDirectionsReportDifferently) {
    CZStream stream;
    EXPECT_EQ(stream.state, nullptr);
    EXPECT_FALSE(stream.AreBuffersInitialized());
    EXPECT_EQ(stream.DeflateInit(9), TRUE);
    EXPECT_EQ(stream.DeflateEnd(), TRUE);
    EXPECT_EQ(stream.InflateInit(), Z_OK);
    EXPECT_EQ(stream.InflateEnd(), Z_OK);
    EXPECT_EQ(stream.DeflateInit(12), FALSE);
    EXPECT_EQ(stream.DeflateEnd(), FALSE); // there is none
    EXPECT_EQ(stream.InflateEnd(), Z_STREAM_ERROR);
}

TEST(ZStream, TheLimitHoldsForTheFirstReadOnly) {
    const std::string bytes = SomeText(100000);
    CZStream stream;
    ASSERT_TRUE(stream.DeflateInit(6));
    TestFile source(bytes);
    TestFile destination;
    UINT written = kMarker;
    EXPECT_EQ(stream.Deflate(source, 100, destination, written), 1);
    EXPECT_EQ(source.m_reads, (std::vector<UINT>{100, 32768, 32768, 32768, 32768, 32768}));
    EXPECT_TRUE(stream.DeflateEnd());
    EXPECT_EQ(written, destination.CMemFile::GetLength());
    EXPECT_TRUE(Unpacked(destination.Contents(), bytes.size()) == bytes);
}

TEST(ZStream, AStreamIsReadInParts) {
    const std::string bytes = SomeText(200000);
    const std::string packed = Packed(bytes);
    const UINT size = static_cast<UINT>(packed.size());
    ASSERT_GT(size, 20000u);
    TestFile source(packed + "more");
    TestFile destination;
    CZStream stream;
    ASSERT_EQ(stream.InflateInit(), 0);
    UINT written = kMarker;
    EXPECT_EQ(stream.Inflate(source, 10000, destination, written), 0);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(source.m_reads, (std::vector<UINT>{8192, 10000 - 8192, 0}));
    EXPECT_EQ(stream.Inflate(source, 0, destination, written), 0);
    EXPECT_EQ(stream.Inflate(source, size - 10001, destination, written), 0);
    EXPECT_EQ(stream.Inflate(source, 3, destination, written), 1);
    EXPECT_EQ(written, bytes.size());
    EXPECT_EQ(stream.avail_in, 2u);
    EXPECT_EQ(stream.InflateEnd(), 0);
    EXPECT_TRUE(destination.Contents() == bytes);
}

TEST(ZStream, AnySizesOfBuffersServe) {
    const std::string bytes = SomeText(3000);
    const struct {
        UINT compressed;
        UINT uncompressed;
    } rows[] = {{1, 1}, {1, 4096}, {4096, 1}, {7, 13}, {100000, 100000}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.compressed);
        CZStream stream;
        ASSERT_TRUE(stream.InitializeBuffers(row.compressed, row.uncompressed));
        ASSERT_TRUE(stream.DeflateInit(6));
        TestFile plain(bytes);
        TestFile packed;
        UINT written;
        EXPECT_EQ(stream.Deflate(plain, kAll, packed, written), 1);
        EXPECT_TRUE(stream.DeflateEnd());
        packed.SeekToBegin();
        ASSERT_EQ(stream.InflateInit(), 0);
        TestFile again;
        EXPECT_EQ(stream.Inflate(packed, kAll, again, written), 1);
        EXPECT_EQ(stream.InflateEnd(), 0);
        EXPECT_EQ(again.Contents(), bytes);
    }
    CZStream stream;
    EXPECT_FALSE(stream.InitializeBuffers(0, 1));
    EXPECT_FALSE(stream.InitializeBuffers(1, 0));
    EXPECT_FALSE(stream.AreBuffersInitialized());
    EXPECT_TRUE(stream.InitializeBuffers(1, 1));
    EXPECT_TRUE(stream.AreBuffersInitialized());
}

TEST(ZStream, CopiesShareTheBuffersUntilTheLastIsGone) {
    const std::string bytes = SomeText(5000);
    std::optional<CZStream> first(std::in_place);
    ASSERT_TRUE(first->InitializeBuffers(100, 100));
    first->total_out = 77;
    CZStream copy(*first);
    CZStream assigned;
    assigned = copy;
    first.reset();
    EXPECT_TRUE(copy.AreBuffersInitialized());
    EXPECT_TRUE(assigned.AreBuffersInitialized());
    EXPECT_EQ(assigned.total_out, 77u);

    ASSERT_EQ(assigned.InflateInit(), 0);
    EXPECT_EQ(CZStream(assigned).InflateEnd(), Z_STREAM_ERROR); // zlib knows the object itself
    TestFile source(Packed(bytes));
    TestFile destination;
    UINT written;
    EXPECT_EQ(assigned.Inflate(source, kAll, destination, written), 1);
    EXPECT_EQ(assigned.InflateEnd(), 0);
    EXPECT_EQ(source.m_reads[0], 100u);
    EXPECT_EQ(destination.Contents(), bytes);
}

// And quietly so; the object serves again afterwards.
TEST(ZStream, FailuresReturnZero) {
    MessageBoxRecorder recorder;
    const std::string bytes = RandomBytes(100000);
    const std::string packed = Deflated(bytes);
    CZStream stream;
    UINT written = kMarker;
    TestFile empty;
    TestFile atEnd("abc");
    TestFile destination;
    atEnd.SeekToEnd();
    EXPECT_EQ(stream.Deflate(empty, kAll, destination, written), 0);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(stream.Deflate(atEnd, kAll, destination, written), 0);
    TestFile plain(bytes);
    EXPECT_EQ(stream.Deflate(plain, kAll, destination, written), 0); // never initialised
    EXPECT_EQ(stream.Inflate(plain, kAll, destination, written), 0);
    EXPECT_TRUE(destination.Contents().empty());

    for (const ThrowRow& row : kThrown)
        for (auto TestFile::*event : {&TestFile::m_onRead, &TestFile::m_onWrite}) {
            SCOPED_TRACE(row.label);
            for (const bool deflating : {true, false}) {
                TestFile source(deflating ? bytes : packed);
                (event == &TestFile::m_onWrite ? destination : source).*event = row.throwIt;
                ASSERT_TRUE(deflating ? stream.DeflateInit(1) : stream.InflateInit() == 0);
                written = kMarker;
                EXPECT_EQ(deflating ? stream.Deflate(source, kAll, destination, written)
                                    : stream.Inflate(source, kAll, destination, written),
                          0);
                EXPECT_EQ(written, 0u);
                if (deflating)
                    EXPECT_EQ(stream.DeflateEnd(), event == &TestFile::m_onRead); // not begun
                else
                    EXPECT_EQ(stream.InflateEnd(), 0);
                destination.m_onWrite = nullptr;
            }
        }

    for (const std::string& bad : {"\x78\x9d" + packed.substr(2), std::string("x"),
                                   std::string("\x78\xbb\x00\x01\x00\x01\x4b\x04", 8)}) {
        TestFile source(bad);
        ASSERT_EQ(stream.InflateInit(), 0);
        EXPECT_EQ(stream.Inflate(source, kAll, destination, written), 0);
        EXPECT_EQ(stream.InflateEnd(), 0);
    }
    TestFile good(packed);
    TestFile again;
    ASSERT_EQ(stream.InflateInit(), 0); // and forgets what is left of the bad ones
    EXPECT_EQ(stream.Inflate(good, kAll, again, written), 1);
    EXPECT_EQ(stream.InflateEnd(), 0);
    EXPECT_TRUE(again.Contents() == bytes);
    EXPECT_TRUE(recorder.Take().empty());
}

} // namespace

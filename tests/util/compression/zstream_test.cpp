#include <quorvel/util/compression/zstream.h>

#include "support/message_box_recorder.h"
#include "support/test.h"
#include "util/compression/test_file.h"

#include <optional>

constexpr UINT kAll = 0xffffffff;
constexpr UINT kMarker = 0xdeadbeef;

static std::string Deflated(CZStream& stream, const std::string& bytes, UINT firstRead = kAll,
                            std::vector<UINT> reads = {}) {
    TestFile source(bytes), destination;
    UINT written = kMarker;
    EXPECT_TRUE(stream.DeflateInit(-1));
    EXPECT_EQ(stream.Deflate(source, firstRead, destination, written), 1);
    EXPECT_EQ(stream.DeflateEnd(), TRUE);
    EXPECT_EQ(written, destination.GetLength());
    source.m_reads.resize(reads.size());
    EXPECT_EQ(source.m_reads, reads);
    return destination.Contents();
}
static std::string Inflated(CZStream& stream, const std::string& packed) {
    TestFile source(packed), destination;
    UINT written = kMarker;
    EXPECT_EQ(stream.InflateInit(), 0);
    EXPECT_EQ(stream.Inflate(source, kAll, destination, written), 1);
    EXPECT_EQ(stream.InflateEnd(), 0);
    EXPECT_EQ(written, destination.GetLength());
    return destination.Contents();
}

TEST(ZStream, IsReadInPartsAndLimitsTheFirstRead) {
    CZStream stream;
    EXPECT_EQ(stream.DeflateInit(12), FALSE);
    EXPECT_EQ(stream.DeflateEnd(), FALSE); // there is no stream; the directions report differently
    EXPECT_EQ(stream.InflateEnd(), Z_STREAM_ERROR);
    const std::string bytes = SomeText(200000);
    const std::string packed = Deflated(stream, bytes, 100, {100, 32768, 32768});
    EXPECT_TRUE(Inflated(stream, packed) == bytes);

    const UINT size = static_cast<UINT>(packed.size());
    TestFile source(packed + "more"), destination;
    ASSERT_EQ(stream.InflateInit(), 0);
    UINT written = kMarker;
    EXPECT_EQ(stream.Inflate(source, 10000, destination, written), 0);
    EXPECT_EQ(written, 0u);
    EXPECT_EQ(source.m_reads, (std::vector<UINT>{8192, 10000 - 8192, 0}));
    EXPECT_EQ(stream.Inflate(source, size - 10001, destination, written), 0);
    EXPECT_EQ(stream.Inflate(source, 3, destination, written), 1);
    EXPECT_EQ(written, bytes.size());
    EXPECT_EQ(stream.avail_in, 2u);
    EXPECT_EQ(stream.InflateEnd(), 0);
    EXPECT_TRUE(destination.Contents() == bytes);
}

TEST(ZStream, CopiesShareTheBuffersUntilTheLastIsDestroyed) {
    std::optional<CZStream> first(std::in_place);
    EXPECT_FALSE(first->InitializeBuffers(0, 1) || first->AreBuffersInitialized());
    ASSERT_TRUE(first->InitializeBuffers(100, 100));
    CZStream copy;
    copy = CZStream(*first);
    first.reset();
    EXPECT_TRUE(copy.AreBuffersInitialized());
    ASSERT_EQ(copy.InflateInit(), 0);
    EXPECT_EQ(CZStream(copy).InflateEnd(), Z_STREAM_ERROR); // zlib accepts only the object itself
    EXPECT_EQ(copy.InflateEnd(), 0);
    EXPECT_EQ(Inflated(copy, Deflated(copy, SomeText(5000), kAll, {100})), SomeText(5000));
}

// Without a box; the object can be used again afterwards.
TEST(ZStream, FailuresReturnZero) {
    MessageBoxRecorder recorder;
    const std::string bytes = RandomBytes(100000);
    CZStream stream;
    UINT written = kMarker;
    TestFile destination, plain(bytes);
    EXPECT_EQ(stream.Deflate(plain, kAll, destination, written), 0); // never initialised
    EXPECT_EQ(written, 0u);
    const std::string packed = Deflated(stream, bytes);
    plain.m_onRead = [] { AfxThrowFileException(CFileException::diskFull); };
    ASSERT_TRUE(stream.DeflateInit(1));
    EXPECT_EQ(stream.Deflate(plain, kAll, destination, written = kMarker), 0);
    EXPECT_TRUE(stream.DeflateEnd() && written == 0); // no data was written
    TestFile bad("\x78\x9d" + packed.substr(2));
    ASSERT_EQ(stream.InflateInit(), 0);
    EXPECT_EQ(stream.Inflate(bad, kAll, destination, written), 0);
    EXPECT_EQ(stream.InflateEnd(), 0);
    EXPECT_TRUE(Inflated(stream, packed) == bytes); // discards the rest of the bad stream
    EXPECT_TRUE(recorder.Take().empty());
}

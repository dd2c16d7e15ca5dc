// Streams. The first byte chooses the buffers. The library and zlib alone decompress the rest and
// must agree.
#include <quorvel/util/compression/zstream.h>

#include "fuzz_input.h"
#include "util/compression/test_file.h"

FUZZ_TARGET(input) {
    const int sizes = input.Byte();
    const std::string bytes = input.Bytes().substr(0, 4096); // a stream can grow a thousandfold
    static std::string s_expected(1100 * 4096, '\0');
    uLongf length = static_cast<uLongf>(s_expected.size());
    uLong used = static_cast<uLong>(bytes.size());
    const bool isWhole = uncompress2(reinterpret_cast<Bytef*>(s_expected.data()), &length,
                                     reinterpret_cast<const Bytef*>(bytes.data()), &used) == Z_OK;
    const std::string expected = s_expected.substr(0, length);

    CZStream stream;
    Require(stream.InitializeBuffers(1u << (sizes & 15), 1u << (sizes >> 4)));
    Require(stream.InflateInit() == Z_OK);
    TestFile source(bytes), destination;
    UINT written;
    Require((stream.Inflate(source, 0xffffffff, destination, written) == 1) == isWhole);
    Require(stream.InflateEnd() == Z_OK);
    Require(written == (isWhole ? destination.GetLength() : 0));
    // The output of a bad stream depends on the buffers.
    Require(isWhole ? destination.Contents() == expected && stream.total_in == used
                    : expected.starts_with(destination.Contents()));
}

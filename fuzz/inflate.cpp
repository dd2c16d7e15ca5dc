// Streams. The first byte chooses the buffers. The library and zlib alone decompress the rest and
// must agree.
#include <quorvel/util/compression/zstream.h>

#include "fuzz_input.h"
#include "util/compression/test_file.h"

namespace {

struct Result {
    bool whole = false;
    std::string bytes;  // possibly only the first part
    ULONGLONG used = 0; // of a complete stream
    bool operator==(const Result&) const = default;
};

Result ByZlib(const std::string& input) {
    z_stream stream = {};
    Require(inflateInit(&stream) == Z_OK);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
    stream.avail_in = static_cast<uInt>(input.size());
    std::string bytes;
    int code = Z_OK;
    while (code == Z_OK) {
        char buffer[1000];
        stream.next_out = reinterpret_cast<Bytef*>(buffer);
        stream.avail_out = sizeof buffer;
        code = inflate(&stream, Z_NO_FLUSH);
        bytes.append(buffer, sizeof buffer - stream.avail_out);
    }
    inflateEnd(&stream);
    return {code == Z_STREAM_END, bytes, code == Z_STREAM_END ? stream.total_in : 0};
}

Result ByStream(const std::string& input, UINT compressedSize, UINT uncompressedSize) {
    CZStream stream;
    Require(stream.InitializeBuffers(compressedSize, uncompressedSize));
    Require(stream.InflateInit() == Z_OK);
    TestFile source(input), destination;
    UINT written;
    const bool whole = stream.Inflate(source, 0xffffffff, destination, written) == 1;
    Require(stream.InflateEnd() == Z_OK);
    Require(written == (whole ? destination.GetLength() : 0));
    return {whole, destination.Contents(), whole ? stream.total_in : 0};
}

} // namespace

FUZZ_TARGET(input) {
    const int sizes = input.Byte();
    const std::string bytes = input.Bytes().substr(0, 4096); // a stream can grow a thousandfold
    const Result zlib = ByZlib(bytes);
    const Result own = ByStream(bytes, 1u << (sizes & 15), 1u << (sizes >> 4));
    // The output of a bad stream depends on the buffers.
    Require(own == zlib || (!own.whole && !zlib.whole && zlib.bytes.starts_with(own.bytes)));
}

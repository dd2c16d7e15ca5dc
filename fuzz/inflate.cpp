// Streams. The first byte chooses the buffers. The library and zlib alone decompress the rest and
// must agree.
#include <quorvel/util/compression/zstream.h>

#include "fuzz_input.h"
#include "util/compression/test_file.h"

namespace {

constexpr std::size_t kMostInput = 4096; // a stream can grow a thousandfold

struct Result {
    bool whole = false;
    std::string bytes;  // possibly only the first part
    ULONGLONG used = 0; // of a complete stream
    bool operator==(const Result&) const = default;

    // The output of a bad stream depends on the buffers.
    bool AgreesWith(const Result& zlib) const {
        return *this == zlib || (!whole && !zlib.whole && zlib.bytes.starts_with(bytes));
    }
};

Result ByZlib(const std::string& input) {
    z_stream stream = {};
    Require(inflateInit(&stream) == Z_OK);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(input.data()));
    stream.avail_in = static_cast<uInt>(input.size());
    Result result;
    int code = Z_OK;
    while (code == Z_OK) {
        char buffer[1000];
        stream.next_out = reinterpret_cast<Bytef*>(buffer);
        stream.avail_out = sizeof buffer;
        code = inflate(&stream, Z_NO_FLUSH);
        result.bytes.append(buffer, sizeof buffer - stream.avail_out);
    }
    result.whole = code == Z_STREAM_END;
    result.used = result.whole ? stream.total_in : 0;
    inflateEnd(&stream);
    return result;
}

Result ByStream(const std::string& input, UINT compressedSize, UINT uncompressedSize) {
    CZStream stream;
    Require(stream.InitializeBuffers(compressedSize, uncompressedSize));
    Require(stream.InflateInit() == Z_OK);
    TestFile source(input);
    TestFile destination;
    UINT written;
    const bool whole = stream.Inflate(source, 0xffffffff, destination, written) == 1;
    Require(stream.InflateEnd() == Z_OK);
    Require(written == (whole ? destination.GetLength() : 0));
    return {whole, destination.Contents(), whole ? stream.total_in : 0};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const int sizes = FuzzInput(data, size).Byte();
    const std::string input =
        size > 1 ? std::string(data + 1, data + std::min(size, kMostInput)) : std::string();
    const Result expected = ByZlib(input);
    Require(ByStream(input, 1u << (sizes & 15), 1u << (sizes >> 4)).AgreesWith(expected));
    return 0;
}

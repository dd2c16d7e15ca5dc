// Streams. The first byte chooses the buffers; the rest is decompressed by both ways the library
// has and by zlib alone, and the three must agree. Then it is compressed, and must come back.
#include <quorvel/framework/app.h>
#include <quorvel/framework/file.h>
#include <quorvel/util/compression/compression.h>
#include <quorvel/util/compression/zstream.h>

#include "fuzz_input.h"

namespace {

constexpr std::size_t kMostInput = 4096; // a stream grows a thousandfold

struct Result {
    bool whole = false;
    std::string bytes;  // as far as there are any
    ULONGLONG used = 0; // of a whole stream
    bool operator==(const Result&) const = default;

    // How much comes out of a bad stream depends on the buffers.
    bool AgreesWith(const Result& zlib) const {
        return *this == zlib || (!whole && !zlib.whole && zlib.bytes.starts_with(bytes));
    }
};

class Silent : public CWinApp {
public:
    int DoMessageBox(const WCHAR*, UINT, UINT) override { return ++m_boxes; }
    int m_boxes = 0;
};

void Fill(CMemFile& file, const std::string& bytes) {
    file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    file.SeekToBegin();
}

std::string Contents(CMemFile& file) {
    std::string bytes(static_cast<std::size_t>(file.GetLength()), '\0');
    file.SeekToBegin();
    file.Read(bytes.data(), static_cast<UINT>(bytes.size()));
    return bytes;
}

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

Result ByFunction(const std::string& input) {
    Silent application;
    CMemFile source;
    CMemFile destination;
    Fill(source, input);
    DWORD bytesRead;
    DWORD bytesWritten;
    const bool whole =
        AfxInflate(source, bytesRead, destination, bytesWritten, FALSE, nullptr, nullptr) != FALSE;
    const Result result = {whole, Contents(destination), bytesRead};
    Require(application.m_boxes == (whole || input.empty() ? 0 : 1));
    Require(bytesWritten == (whole ? result.bytes.size() : 0));
    return result;
}

Result ByStream(const std::string& input, UINT compressedSize, UINT uncompressedSize) {
    CZStream stream;
    Require(stream.InitializeBuffers(compressedSize, uncompressedSize) != FALSE);
    Require(stream.InflateInit() == Z_OK);
    CMemFile source;
    CMemFile destination;
    Fill(source, input);
    UINT written;
    const bool whole = stream.Inflate(source, 0xffffffff, destination, written) == 1;
    const Result result = {whole, Contents(destination), whole ? stream.total_in : 0};
    Require(stream.InflateEnd() == Z_OK);
    Require(written == (whole ? result.bytes.size() : 0));
    return result;
}

void CheckRoundTrip(const std::string& bytes, int level) {
    CMemFile plain;
    CMemFile packed;
    Fill(plain, bytes);
    DWORD bytesRead;
    DWORD bytesWritten;
    Require(AfxDeflate(plain, bytesRead, packed, bytesWritten, level, FALSE, nullptr, nullptr) ==
            (bytes.empty() ? FALSE : TRUE));
    if (!bytes.empty())
        Require(ByFunction(Contents(packed)) == Result{true, bytes, bytesWritten});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const int sizes = FuzzInput(data, size).Byte();
    const std::string input =
        size > 1 ? std::string(data + 1, data + std::min(size, kMostInput)) : std::string();
    const Result expected = ByZlib(input);
    Require(ByFunction(input).AgreesWith(expected));
    const UINT compressedSize = 1u << (sizes & 15);
    const UINT uncompressedSize = 1u << (sizes >> 4);
    Require(ByStream(input, compressedSize, uncompressedSize).AgreesWith(expected));
    CheckRoundTrip(input, sizes % 11 - 1);
    return 0;
}

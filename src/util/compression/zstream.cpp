#include <quorvel/util/compression/zstream.h>

#include "platform/win32.h"
#include "util/compression/source_position.h"
#include "util/compression/stream_loops.h"

#include <algorithm>
#include <new>
#include <utility>

namespace {

constexpr int kStreamEnd = 1;

// Returns the result of `work`, or 0 when it throws. zlib's code is 1 at the end of the stream.
template <class Work>
int ResultOf(Work work) {
    try {
        return work() == Z_STREAM_END ? kStreamEnd : 0;
    } catch (CException* exception) {
        exception->Delete();
    } catch (...) {
        // An exception of the host's own type.
    }
    return 0;
}

UINT SetInput(z_stream& stream, BYTE* buffer, UINT size) {
    stream.next_in = buffer;
    stream.avail_in = size;
    return size;
}

} // namespace

CZStream::CZStream() : z_stream{} {}

CZStream::CZStream(const CZStream& other) = default;

CZStream& CZStream::operator=(const CZStream& other) = default;

CZStream::~CZStream() = default;

BOOL CZStream::DeflateInit(int level) {
    SetInput(*this, nullptr, 0);
    return deflateInit(this, level) == Z_OK;
}

BOOL CZStream::DeflateEnd() {
    return deflateEnd(this) == Z_OK;
}

int CZStream::InflateInit() {
    SetInput(*this, nullptr, 0);
    return inflateInit(this);
}

int CZStream::InflateEnd() {
    return inflateEnd(this);
}

BOOL CZStream::InitializeBuffers(UINT compressedSize, UINT uncompressedSize) {
    if (compressedSize == 0 || uncompressedSize == 0)
        return FALSE;
    try {
        auto compressed = std::make_shared_for_overwrite<BYTE[]>(compressedSize);
        auto uncompressed = std::make_shared_for_overwrite<BYTE[]>(uncompressedSize);
        if (AreBuffersInitialized())
            SetInput(*this, nullptr, 0);
        m_compressed = std::move(compressed);
        m_compressedSize = compressedSize;
        m_uncompressed = std::move(uncompressed);
        m_uncompressedSize = uncompressedSize;
        return TRUE;
    } catch (const std::bad_alloc&) {
        return FALSE;
    }
}

BOOL CZStream::AreBuffersInitialized() const {
    return m_compressed != nullptr && m_uncompressed != nullptr;
}

BOOL CZStream::EnsureBuffers() {
    return AreBuffersInitialized() ||
           InitializeBuffers(DEFAULT_BUFFER_COMPRESSED_SIZE, DEFAULT_BUFFER_UNCOMPRESSED_SIZE);
}

int CZStream::DeflateFile(CFile& source, UINT bytesToRead, CFile& destination) {
    UINT most = bytesToRead;
    const auto read = [&] {
        const UINT wanted = std::min<UINT>(most, m_uncompressedSize);
        most = m_uncompressedSize;
        return SetInput(*this, m_uncompressed.get(), source.Read(m_uncompressed.get(), wanted));
    };
    return quorvel::DeflateAll(*this, read, {m_compressed.get(), m_compressedSize}, destination);
}

int CZStream::InflateFile(CFile& source, UINT bytesToRead, CFile& destination) {
    UINT left = bytesToRead;
    const auto read = [&] {
        const UINT wanted = std::min<UINT>(left, m_compressedSize);
        left -= wanted;
        return SetInput(*this, m_compressed.get(), source.Read(m_compressed.get(), wanted));
    };
    return quorvel::InflateAll(*this, read, {m_uncompressed.get(), m_uncompressedSize},
                               destination);
}

int CZStream::Deflate(CFile& source, UINT bytesToRead, CFile& destination, UINT& bytesWritten) {
    bytesWritten = 0;
    const int result = ResultOf([&] {
        if (quorvel::BytesLeft(source) == 0 || !EnsureBuffers())
            return Z_BUF_ERROR;
        return DeflateFile(source, bytesToRead, destination);
    });
    if (result == kStreamEnd)
        bytesWritten = static_cast<UINT>(total_out);
    return result;
}

int CZStream::Inflate(CFile& source, UINT bytesToRead, CFile& destination, UINT& bytesWritten) {
    bytesWritten = 0;
    const int result = ResultOf([&] {
        return EnsureBuffers() ? InflateFile(source, bytesToRead, destination) : Z_MEM_ERROR;
    });
    if (result == kStreamEnd)
        bytesWritten = static_cast<UINT>(total_out);
    return result;
}

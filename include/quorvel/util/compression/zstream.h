// CZStream: a zlib stream between two open files. The caller runs each step; no box is
// shown.
//
// It derives from zlib's own record, so a host that links zlib can pass it to zlib. Copies share
// the buffers and zlib's internal state: use an object and its copies on one thread at a time. zlib
// itself accepts only the object that was initialised. This header includes zlib's header.
#pragma once

#include <quorvel/platform/platform.h>

#include <zlib.h>

#include <memory>

class CFile;

class QUORVEL_API CZStream : public z_stream {
public:
    enum : UINT { DEFAULT_BUFFER_COMPRESSED_SIZE = 8192, DEFAULT_BUFFER_UNCOMPRESSED_SIZE = 32768 };

    CZStream(); // all fields of zlib are 0, no buffers
    // Share the buffers and zlib's state with the other object.
    CZStream(const CZStream& other);
    CZStream& operator=(const CZStream& other);
    // Deliberate: does not end the stream, whose state a copy may share. The caller ends a stream
    // that was initialised, with DeflateEnd or InflateEnd.
    ~CZStream();

    // Deliberate: the first pair returns TRUE for success, the second pair zlib's own code, where 0
    // is success. `level` is zlib's, -1 to 9. Each Init discards input that an earlier stream left
    // over. DeflateEnd returns FALSE for a stream that was started but not finished, although it
    // frees the stream.
    BOOL DeflateInit(int level);
    BOOL DeflateEnd();
    int InflateInit();
    int InflateEnd();

    // Replaces the buffers and discards input in the old buffer. For a size of 0, or when memory
    // cannot be allocated, returns FALSE and changes nothing.
    BOOL InitializeBuffers(UINT compressedSize, UINT uncompressedSize);
    BOOL AreBuffersInitialized() const;

    // Compresses the source to its end and finishes the stream. Creates buffers of the default
    // sizes if needed. Deliberate: `bytesToRead` limits only the first read; later reads fill
    // the buffer (a first read of 0 bytes counts as the end). Returns 1 and sets `bytesWritten`
    // to the total output of the stream, modulo 2^32. Returns 0 and sets it to 0 when the
    // source is empty or at its end, when zlib fails, or when a file throws. Does not end the
    // stream.
    int Deflate(CFile& source, UINT bytesToRead, CFile& destination, UINT& bytesWritten);
    // Decompresses to the end of the stream, and reads at most `bytesToRead` bytes. Returns 1 or 0
    // as Deflate does. When it returns 0 because the input ran out, another call continues the
    // stream. A stream that needs a preset dictionary fails.
    int Inflate(CFile& source, UINT bytesToRead, CFile& destination, UINT& bytesWritten);

private:
    BOOL EnsureBuffers();
    int DeflateFile(CFile& source, UINT bytesToRead, CFile& destination);
    int InflateFile(CFile& source, UINT bytesToRead, CFile& destination);

    std::shared_ptr<BYTE[]> m_compressed;
    DWORD m_compressedSize = 0;
    std::shared_ptr<BYTE[]> m_uncompressed;
    DWORD m_uncompressedSize = 0;
};

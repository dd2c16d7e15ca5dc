// CZStream: a zlib stream between two open files that a caller drives step by step, without
// messages.
//
// It begins with zlib's own record, to which a host that links zlib may pass it. Copies share the
// buffers and the state inside zlib, so an object and its copies are used by one thread at a time,
// and zlib serves only the object that was initialised. Including this needs zlib's own header.
#pragma once

#include <quorvel/platform/platform.h>

#include <zlib.h>

#include <memory>

class CFile;

class QUORVEL_API CZStream : public z_stream {
public:
    enum : UINT { DEFAULT_BUFFER_COMPRESSED_SIZE = 8192, DEFAULT_BUFFER_UNCOMPRESSED_SIZE = 32768 };

    CZStream(); // every field of zlib's is 0, and there are no buffers
    CZStream(const CZStream& other);
    CZStream& operator=(const CZStream& other);
    // Deliberate: does not end the stream, whose state a copy may share. A stream that was
    // initialised is ended by the caller with DeflateEnd or InflateEnd.
    ~CZStream();

    // Deliberate: the first pair returns TRUE for success, the second zlib's own code, so that 0 is
    // success. `level` is zlib's, -1 to 9. Each Init forgets input that an earlier stream has left
    // over. DeflateEnd gives FALSE for a stream that was begun and not finished, although it frees
    // it.
    BOOL DeflateInit(int level);
    BOOL DeflateEnd();
    int InflateInit();
    int InflateEnd();

    // Replaces the buffers. FALSE, and nothing changed, for a size of 0 and when there is no
    // memory. Input that waits in the former buffer is forgotten.
    BOOL InitializeBuffers(UINT compressedSize, UINT uncompressedSize);
    BOOL AreBuffersInitialized() const;

    // Compresses the source to its end and finishes the stream, with buffers of the default sizes
    // where there are none. Deliberate: `bytesToRead` limits the first read only, every later one
    // fills the buffer (a first read of 0 bytes counts as the end). Returns 1, with `bytesWritten`
    // what the stream has written altogether, modulo 2^32; otherwise 0, with 0 bytes: the source is
    // empty or at its end, zlib has failed, or a file has thrown something. The stream is not
    // ended.
    int Deflate(CFile& source, UINT bytesToRead, CFile& destination, UINT& bytesWritten);
    // Decompresses up to the end of the stream, reading at most `bytesToRead` bytes. Returns 1 or
    // 0 as Deflate does; after a 0 for want of input a further call goes on with the stream. A
    // stream that needs a preset dictionary fails.
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

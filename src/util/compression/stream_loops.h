// The two loops around zlib: a function provides the input, a file receives the output.
#pragma once

#include <quorvel/framework/file.h>

#include <zlib.h>

namespace quorvel {

struct OutputBuffer {
    BYTE* bytes;
    UINT size;
};

// Runs `step` (deflate or inflate) once and writes its output unless it fails. Returns zlib's code.
template <class Step>
int RunAndWrite(z_stream& stream, Step step, int flush, OutputBuffer output, CFile& destination) {
    stream.next_out = output.bytes;
    stream.avail_out = output.size;
    const int result = step(&stream, flush);
    const UINT produced = output.size - stream.avail_out;
    if (result >= 0 && produced > 0)
        destination.Write(output.bytes, produced);
    return result;
}

// Compresses until `read` returns 0, and finishes the stream. `read` sets the stream's input and
// returns its size. Returns Z_STREAM_END, or zlib's negative code; the rest of the input is then
// not processed.
template <class Read>
int DeflateAll(z_stream& stream, Read read, OutputBuffer output, CFile& destination) {
    int result = Z_OK;
    while (read() > 0) {
        do {
            result = RunAndWrite(stream, deflate, Z_NO_FLUSH, output, destination);
            if (result < 0)
                return result;
        } while (stream.avail_out == 0);
    }
    do
        result = RunAndWrite(stream, deflate, Z_FINISH, output, destination);
    while (result == Z_OK);
    return result;
}

// Decompresses up to the end of the stream. Calls `read` when the input is used up. At the end of
// the input zlib first writes its remaining output and then returns Z_BUF_ERROR.
template <class Read>
int InflateAll(z_stream& stream, Read read, OutputBuffer output, CFile& destination) {
    int result = Z_OK;
    do {
        if (stream.avail_in == 0)
            read();
        result = RunAndWrite(stream, inflate, Z_NO_FLUSH, output, destination);
    } while (result == Z_OK);
    // There is never a dictionary, and zlib would ask for it in an endless loop.
    return result == Z_NEED_DICT ? Z_DATA_ERROR : result;
}

} // namespace quorvel

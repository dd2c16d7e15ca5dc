// Decodes the body of an HTTP response while it arrives: chunked transfer, one layer of gzip, and
// the length in the header.
//
// Bytes after the announced length or after the last chunk do not belong to the body. The last
// chunk ends the chunked form; the empty line after it may be missing. A body without a length ends
// with the connection, so nothing shows whether it is complete.
#pragma once

#include <quorvel/net/http_header.h>

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace quorvel {

// The field "Content-Length" in any letter case; no value if it is missing or not a number.
std::optional<ULONGLONG> AnnouncedLength(const CHttpHeader& header);

class BodyDecoder {
public:
    typedef std::function<void(const char* bytes, std::size_t count)> Sink;
    enum class Outcome {
        Complete,
        Incomplete,
        Damaged, // or the encoding is not supported
        TooLong
    };

    // Accepts at most `limit` decoded bytes.
    BodyDecoder(const CHttpHeader& header, ULONGLONG limit, Sink sink);
    BodyDecoder(const BodyDecoder&) = delete;
    ~BodyDecoder();

    // Returns false once the body is refused; further bytes then have no effect. Throws the sink's
    // exceptions and std::bad_alloc.
    bool Add(const char* bytes, std::size_t count);
    // The outcome for the bytes added so far, if no more follow.
    Outcome GetOutcome() const;

private:
    class Gunzip;
    enum class Framing { UntilEnd, Length, Chunks };
    enum class Place { Size, Extension, Data, DataEnd, Trailer, End }; // in the chunked form

    void ReadCodings(const CHttpHeader& header, const WCHAR* field);
    void ReadCoding(const CString& coding);
    void AddChunked(std::string_view bytes);
    void AddToChunkLine(char byte);
    void EndChunkSize();
    void AddData(std::string_view bytes);
    void Emit(const char* bytes, std::size_t count);
    bool IsRefused() const { return m_refusal != Outcome::Complete; }

    const ULONGLONG m_limit;
    const Sink m_sink;
    Outcome m_refusal = Outcome::Complete;
    Framing m_framing = Framing::UntilEnd;
    Place m_place = Place::Size;
    ULONGLONG m_left = 0; // bytes left in the body or the chunk
    std::size_t m_lineLength = 0;
    ULONGLONG m_emitted = 0;
    std::unique_ptr<Gunzip> m_gunzip;
};

} // namespace quorvel

// Decodes the body of an HTTP response as it comes: chunked transfer, one layer of gzip, and the
// length that the header announces.
//
// What follows the announced length or the last chunk is not part of the body. The chunked form
// ends with its last chunk; the empty line behind it may be missing. A body without any length ends
// with the connection, so that nothing shows whether it is whole.
#pragma once

#include <quorvel/net/http_header.h>

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

namespace quorvel {

// The field "Content-Length" in any letter case; nothing when it is missing or no number.
std::optional<ULONGLONG> AnnouncedLength(const CHttpHeader& header);

class BodyDecoder {
public:
    typedef std::function<void(const char* bytes, std::size_t count)> Sink;
    enum class Outcome {
        Complete,
        Incomplete,
        Damaged, // or in an encoding that is not supported
        TooLong
    };

    // At most `limit` decoded bytes are accepted.
    BodyDecoder(const CHttpHeader& header, ULONGLONG limit, Sink sink);
    BodyDecoder(const BodyDecoder&) = delete;
    ~BodyDecoder();

    // False once the body is refused: more bytes change nothing. Throws what the sink throws, and
    // std::bad_alloc.
    bool Add(const char* bytes, std::size_t count);
    // Of what was added, when no more follows.
    Outcome GetOutcome() const;

private:
    class Gunzip;
    enum class Framing { UntilEnd, Length, Chunks };
    enum class Place { Size, Extension, Data, DataEnd, Trailer, End }; // in the chunks

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
    ULONGLONG m_left = 0; // of the body or the chunk
    std::size_t m_lineLength = 0;
    ULONGLONG m_emitted = 0;
    std::unique_ptr<Gunzip> m_gunzip;
};

} // namespace quorvel

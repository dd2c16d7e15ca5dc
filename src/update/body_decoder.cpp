#include "update/body_decoder.h"

#include "net/http_field_values.h"

#include <zlib.h>

#include <algorithm>
#include <new>
#include <utility>

namespace quorvel {

namespace {

int HexDigit(char character) {
    if (character >= '0' && character <= '9')
        return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

} // namespace

std::optional<ULONGLONG> AnnouncedLength(const CHttpHeader& header) {
    CString value;
    if (!header.FindFieldValue(_T("Content-Length"), value))
        return std::nullopt;
    const ULONGLONG length = ReadContentLength(value);
    return length > 0 || value == _T("0") ? std::optional(length) : std::nullopt;
}

class BodyDecoder::Gunzip {
public:
    Gunzip() {
        constexpr int kGzipOnly = 16 + MAX_WBITS;
        if (::inflateInit2(&m_stream, kGzipOnly) != Z_OK)
            throw std::bad_alloc();
    }
    Gunzip(const Gunzip&) = delete;
    ~Gunzip() { ::inflateEnd(&m_stream); }

    bool IsAtEnd() const { return m_isAtEnd; }
    // Calls `emit(bytes, count)`, which returns false to stop. Returns false for invalid gzip data.
    template <class Emit>
    bool Add(std::string_view bytes, Emit emit) {
        m_stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
        m_stream.avail_in = static_cast<uInt>(bytes.size());
        char block[32 * 1024];
        do {
            if (m_isAtEnd) { // another gzip member follows
                if (m_stream.avail_in == 0)
                    return true;
                ::inflateReset(&m_stream);
            }
            m_stream.next_out = reinterpret_cast<Bytef*>(block);
            m_stream.avail_out = sizeof block;
            const int result = ::inflate(&m_stream, Z_NO_FLUSH);
            if (result == Z_MEM_ERROR)
                throw std::bad_alloc();
            if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR)
                return false;
            m_isAtEnd = result == Z_STREAM_END;
            if (!emit(block, sizeof block - m_stream.avail_out))
                return true;
        } while (m_stream.avail_in > 0 || m_stream.avail_out == 0);
        return true;
    }

private:
    z_stream m_stream = {};
    bool m_isAtEnd = false;
};

BodyDecoder::BodyDecoder(const CHttpHeader& header, ULONGLONG limit, Sink sink)
    : m_limit(limit), m_sink(std::move(sink)) {
    ReadCodings(header, _T("Content-Encoding"));
    if (m_framing == Framing::Chunks) // "chunked" is not an encoding of the content
        m_refusal = Outcome::Damaged;
    ReadCodings(header, _T("Transfer-Encoding"));
    const std::optional<ULONGLONG> length = AnnouncedLength(header);
    if (m_framing == Framing::Chunks || !length)
        return;
    m_framing = Framing::Length;
    m_left = *length;
}

BodyDecoder::~BodyDecoder() = default;

void BodyDecoder::ReadCodings(const CHttpHeader& header, const WCHAR* field) {
    CString codings;
    header.FindFieldValue(field, codings);
    for (int begin = 0; begin < codings.GetLength();) {
        const int comma = codings.Find(',', begin);
        const int end = comma >= 0 ? comma : codings.GetLength();
        ReadCoding(codings.Mid(begin, end - begin).Trim().MakeLower());
        begin = end + 1;
    }
}

void BodyDecoder::ReadCoding(const CString& coding) {
    const bool isGzip = coding == _T("gzip") || coding == _T("x-gzip");
    const bool isChunked = coding == _T("chunked");
    if (m_framing == Framing::Chunks || (isGzip && m_gunzip != nullptr))
        m_refusal = Outcome::Damaged; // chunks must be last, and only one gzip layer is allowed
    else if (isGzip)
        m_gunzip = std::make_unique<Gunzip>();
    else if (isChunked)
        m_framing = Framing::Chunks;
    else if (!coding.IsEmpty() && coding != _T("identity"))
        m_refusal = Outcome::Damaged;
}

bool BodyDecoder::Add(const char* bytes, std::size_t count) {
    std::string_view added(bytes, count);
    if (m_framing == Framing::Chunks) {
        AddChunked(added);
    } else {
        if (m_framing == Framing::Length) {
            added = added.substr(0, static_cast<std::size_t>(std::min<ULONGLONG>(m_left, count)));
            m_left -= added.size();
        }
        AddData(added);
    }
    return !IsRefused();
}

void BodyDecoder::AddChunked(std::string_view bytes) {
    while (!bytes.empty() && !IsRefused() && m_place != Place::End) {
        if (m_place != Place::Data) {
            AddToChunkLine(bytes.front());
            bytes.remove_prefix(1);
            continue;
        }
        const auto count = static_cast<std::size_t>(std::min<ULONGLONG>(m_left, bytes.size()));
        AddData(bytes.substr(0, count));
        bytes.remove_prefix(count);
        m_left -= count;
        if (m_left == 0)
            m_place = Place::DataEnd;
    }
}

// Handles the lines between the data: a hexadecimal size with an ignored extension, the line end
// after the data, and fields after the last chunk.
void BodyDecoder::AddToChunkLine(char byte) {
    const int digit = HexDigit(byte);
    if (byte == '\r' || (m_place == Place::Extension && byte != '\n'))
        return;
    if (byte == '\n') {
        if (m_place == Place::Trailer)
            m_place = m_lineLength == 0 ? Place::End : Place::Trailer;
        else if (m_place == Place::DataEnd)
            m_place = Place::Size;
        else
            return EndChunkSize();
        m_lineLength = 0;
        m_left = 0;
    } else if (m_place == Place::Trailer) {
        ++m_lineLength;
    } else if (m_place == Place::Size && digit >= 0 && m_left >> 60 == 0) {
        m_left = m_left * 16 + static_cast<unsigned>(digit);
        ++m_lineLength;
    } else if (m_place == Place::Size && (byte == ';' || byte == ' ' || byte == '\t')) {
        m_place = Place::Extension;
    } else {
        m_refusal = Outcome::Damaged;
    }
}

void BodyDecoder::EndChunkSize() {
    if (m_lineLength == 0)
        m_refusal = Outcome::Damaged;
    m_lineLength = 0;
    m_place = m_left > 0 ? Place::Data : Place::Trailer;
}

void BodyDecoder::AddData(std::string_view bytes) {
    if (IsRefused() || bytes.empty())
        return;
    if (m_gunzip == nullptr)
        return Emit(bytes.data(), bytes.size());
    const bool isGzip = m_gunzip->Add(bytes, [this](const char* block, std::size_t count) {
        Emit(block, count);
        return !IsRefused();
    });
    if (!isGzip)
        m_refusal = Outcome::Damaged;
}

void BodyDecoder::Emit(const char* bytes, std::size_t count) {
    m_emitted += count;
    if (m_emitted > m_limit)
        m_refusal = Outcome::TooLong;
    else if (count > 0)
        m_sink(bytes, count);
}

BodyDecoder::Outcome BodyDecoder::GetOutcome() const {
    const bool isWhole = m_framing == Framing::Chunks
                             ? m_place == Place::Trailer || m_place == Place::End
                             : m_left == 0;
    if (IsRefused())
        return m_refusal;
    return isWhole && (m_gunzip == nullptr || m_gunzip->IsAtEnd()) ? Outcome::Complete
                                                                   : Outcome::Incomplete;
}

} // namespace quorvel

// Reads a server's answer as a whole and in pieces, which must agree. The first byte seeds the
// sizes of the pieces; the header with its blank line and the body follow.
#include "fuzz_input.h"
#include "net/http_header_reader.h"
#include "update/body_decoder.h"

typedef quorvel::BodyDecoder Decoder;

static CString TextOf(const CHttpHeader& header) {
    CString text;
    text.Format(_T("%u %u "), header.GetStatusCode(), header.GetLength());
    text += header.GetVersion();
    for (POSITION next = header.GetFieldsMap().GetStartPosition(); next != nullptr;) {
        CString name, value, found;
        header.GetFieldsMap().GetNextAssoc(next, name, value);
        text += _T("\n") + name + _T(":") + value;
        Require(!name.IsEmpty() && header.FindFieldValue(name.MakeLower(), found));
    }
    return text;
}

// Passes the bytes on in pieces of the sizes that `nextSize` returns.
template <class NextSize, class Take>
static void InPieces(const std::string& bytes, NextSize nextSize, Take take) {
    for (std::size_t at = 0, count = 0; at < bytes.size(); at += count) {
        count = std::min(bytes.size() - at, nextSize());
        take(bytes.data() + at, count);
    }
}

// A fault may be in the same piece as the bytes that make the body too long: both are Damaged here.
template <class NextSize>
static std::pair<Decoder::Outcome, std::string> Decode(const CHttpHeader& header,
                                                       const std::string& body, NextSize nextSize) {
    std::string decoded;
    constexpr ULONGLONG limit = 1 << 20;
    Decoder decoder(header, limit,
                    [&](const char* bytes, std::size_t count) { decoded.append(bytes, count); });
    InPieces(body, nextSize, [&](const char* bytes, std::size_t n) { decoder.Add(bytes, n); });
    Require(decoded.size() <= limit);
    const Decoder::Outcome outcome = decoder.GetOutcome();
    if (outcome == Decoder::Outcome::Damaged || outcome == Decoder::Outcome::TooLong)
        return {Decoder::Outcome::Damaged, {}};
    return {outcome, decoded};
}

FUZZ_TARGET(input) {
    typedef quorvel::HttpHeaderReader Reader;
    unsigned seed = input.Byte();
    const auto next = [&seed]() -> std::size_t {
        seed = seed * 1103515245 + 12345;
        return (seed >> 16) % 9 + 1;
    };
    const std::string bytes = input.Bytes();
    CHttpHeader header, pieced;
    Reader reader;
    const WideText text = Widened(bytes);
    const BOOL isComplete =
        header.InitializeFromStream(CString(text.data(), static_cast<int>(text.size())));
    InPieces(bytes, next, [&](const char* part, std::size_t n) { reader.Add(part, n, pieced); });
    Require((reader.GetState() == Reader::State::Complete) == (isComplete != FALSE));
    Require(TextOf(header) == TextOf(pieced));
    if (!isComplete)
        return;
    Require(bytes.find("\r\n\r\n") + 4 == header.GetLength());
    Require(header.GetFileLength() >= header.GetLength());
    header.GetLastModified();
    const std::string body = bytes.substr(header.GetLength());
    Require(Decode(header, body, [&] { return body.size(); }) == Decode(header, body, next));
}

// Reads a server's answer as a whole and in pieces, which must agree. The first byte seeds the
// sizes of the pieces; the header with its blank line and the body follow.
#include "fuzz_input.h"
#include "net/http_header_reader.h"
#include "update/body_decoder.h"

namespace {

typedef quorvel::BodyDecoder Decoder;
constexpr ULONGLONG kLimit = 1 << 20;

void RequireSame(const CHttpHeader& left, const CHttpHeader& right) {
    Require(left.GetVersion() == right.GetVersion() &&
            left.GetStatusCode() == right.GetStatusCode() && left.GetLength() == right.GetLength());
    const CMapStringToString& fields = left.GetFieldsMap();
    Require(fields.GetCount() == right.GetFieldsMap().GetCount());
    for (POSITION next = fields.GetStartPosition(); next != nullptr;) {
        CString name, value, other;
        fields.GetNextAssoc(next, name, value);
        Require(!name.IsEmpty() && right.GetFieldValue(name, other) && other == value);
        Require(right.FindFieldValue(name.MakeLower(), other));
    }
}

// Passes the bytes on in pieces of the sizes that `nextSize` returns.
template <class NextSize, class Take>
void InPieces(const std::string& bytes, NextSize nextSize, Take take) {
    for (std::size_t at = 0, count = 0; at < bytes.size(); at += count) {
        count = std::min(bytes.size() - at, nextSize());
        take(bytes.data() + at, count);
    }
}

template <class NextSize>
Decoder::Outcome Decode(const CHttpHeader& header, const std::string& body, NextSize nextSize,
                        std::string& decoded) {
    Decoder decoder(header, kLimit,
                    [&](const char* bytes, std::size_t count) { decoded.append(bytes, count); });
    InPieces(body, nextSize, [&](const char* bytes, std::size_t n) { decoder.Add(bytes, n); });
    Require(decoded.size() <= kLimit);
    return decoder.GetOutcome();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    typedef quorvel::HttpHeaderReader Reader;
    if (size == 0 || size > 1 << 16)
        return 0;
    unsigned seed = data[0];
    const auto next = [&seed]() -> std::size_t {
        seed = seed * 1103515245 + 12345;
        return (seed >> 16) % 9 + 1;
    };
    const std::string bytes(data + 1, data + size);
    CHttpHeader header, pieced;
    Reader reader;
    const WideText text = Widened(bytes);
    const BOOL isComplete =
        header.InitializeFromStream(CString(text.data(), static_cast<int>(text.size())));
    InPieces(bytes, next, [&](const char* part, std::size_t n) { reader.Add(part, n, pieced); });
    Require((reader.GetState() == Reader::State::Complete) == (isComplete != FALSE));
    RequireSame(header, pieced);
    if (!isComplete)
        return 0;
    Require(bytes.find("\r\n\r\n") + 4 == header.GetLength());
    Require(header.GetFileLength() >= header.GetLength());
    header.GetLastModified();

    const std::string body = bytes.substr(header.GetLength());
    std::string whole, inPieces;
    const auto all = [&] { return body.size(); };
    const auto first = Decode(header, body, all, whole);
    const auto second = Decode(header, body, next, inPieces);
    // A fault may be in the same piece as the bytes that make the body too long.
    const auto isRefused = [](Decoder::Outcome each) {
        return each == Decoder::Outcome::Damaged || each == Decoder::Outcome::TooLong;
    };
    Require(isRefused(first) ? isRefused(second) : second == first && inPieces == whole);
    return 0;
}

// Decodes a response's body as a whole and in pieces, which must agree: the first byte seeds the
// sizes of the pieces, then come the header with its blank line, and the body.
#include "update/body_decoder.h"
#include "fuzz_input.h"

namespace {

typedef quorvel::BodyDecoder Decoder;
constexpr ULONGLONG kLimit = 1 << 20;

template <class NextSize>
Decoder::Outcome Decode(const CHttpHeader& header, const std::string& body, NextSize nextSize,
                        std::string& decoded) {
    Decoder decoder(header, kLimit,
                    [&](const char* bytes, std::size_t count) { decoded.append(bytes, count); });
    for (std::size_t at = 0, count = 0; at < body.size(); at += count) {
        count = std::min(body.size() - at, nextSize());
        decoder.Add(body.data() + at, count);
    }
    Require(decoded.size() <= kLimit);
    return decoder.GetOutcome();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0 || size > 1 << 16)
        return 0;
    unsigned seed = data[0];
    const std::string bytes(data + 1, data + size);
    CHttpHeader header;
    const WideText text = Widened(bytes);
    if (!header.InitializeFromStream(CString(text.data(), static_cast<int>(text.size()))))
        return 0;
    const std::string body = bytes.substr(header.GetLength());
    std::string whole;
    std::string pieced;
    const auto outcome = Decode(
        header, body, [&] { return body.size(); }, whole);
    const auto next = [&seed]() -> std::size_t {
        seed = seed * 1103515245 + 12345;
        return (seed >> 16) % 9 + 1;
    };
    // A damaged place may lie in one piece with bytes that make the body too long.
    const auto isRefused = [](Decoder::Outcome each) {
        return each == Decoder::Outcome::Damaged || each == Decoder::Outcome::TooLong;
    };
    const auto second = Decode(header, body, next, pieced);
    Require(isRefused(outcome) ? isRefused(second) : second == outcome && pieced == whole);
    return 0;
}

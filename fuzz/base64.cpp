// Base64. The first byte contains the flags; the next two say how many bytes the decoder's buffer
// is too small. The rest is decoded as narrow and wide text, and encoded as bytes. The portable and
// the vector kernels must agree, and encoded bytes must decode to themselves.
#include <quorvel/util/text/base64.h>

#include "fuzz_input.h"
#include "util/text/base64_kernels.h"

#include <tuple>

namespace {

// Whether all bytes fit, their length, and the bytes; unwritten ones keep a marker.
typedef std::tuple<BOOL, int, std::vector<BYTE>> Result;

template <class Ch>
Result Decode(const quorvel::Base64Kernels<Ch>& kernels, const std::vector<Ch>& text, int room) {
    std::vector<BYTE> bytes(static_cast<std::size_t>(room), '#');
    BYTE none;
    const BOOL fits = DecodeBase64(kernels, text.data(), static_cast<int>(text.size()),
                                   room > 0 ? bytes.data() : &none, &room);
    return {fits, room, bytes};
}

template <class Ch>
std::vector<Ch> Encode(const quorvel::Base64Kernels<Ch>& kernels, const std::vector<BYTE>& input,
                       DWORD flags) {
    const int size = static_cast<int>(input.size());
    int length = AfxBase64EncodeGetRequiredLength(size, flags);
    std::vector<Ch> text(static_cast<std::size_t>(length));
    Require(size == 0 || EncodeBase64(kernels, input.data(), size, text.data(), &length, flags));
    text.resize(std::min(text.size(), static_cast<std::size_t>(length)));
    return text;
}

template <class Ch>
void Check(const std::vector<BYTE>& input, int missing, DWORD flags) {
    const int size = static_cast<int>(input.size());
    std::vector<Ch> text; // bytes above 0x7f become 0xff80 and up
    for (const BYTE each : input)
        text.push_back(static_cast<Ch>(static_cast<signed char>(each)));
    const int room = std::max(AfxBase64DecodeGetRequiredLength(size) - missing, 0);
    const auto& portable = quorvel::PortableBase64<Ch>();
    const Result decoded = Decode(portable, text, room);
    Require(size == 0 || std::get<0>(decoded) == (std::get<1>(decoded) <= room));
    const std::vector<Ch> encoded = Encode(portable, input, flags);
    for (const auto* kernels : {quorvel::Ssse3Base64<Ch>(), quorvel::Avx2Base64<Ch>()})
        Require(kernels == nullptr || (decoded == Decode(*kernels, text, room) &&
                                       encoded == Encode(*kernels, input, flags)));
    Require(std::get<2>(Decode(portable, encoded, size)) == input);
}

} // namespace

FUZZ_TARGET(input) {
    const DWORD flags = input.Byte() & 3;
    const int missing = input.Value<std::uint16_t>();
    Check<char>(input.Block(), missing, flags);
    Check<WCHAR>(input.Block(), missing, flags);
}

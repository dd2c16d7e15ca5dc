// Base64. The first byte holds the flags, the next two how much room the decoder lacks; the rest is
// decoded as narrow and as wide text, and encoded as bytes. The portable and the vector kernels
// must agree, and what was encoded must decode to itself.
#include <quorvel/util/text/base64.h>

#include "fuzz_input.h"
#include "util/text/base64_kernels.h"

#include <vector>

namespace {

struct Result {
    BOOL fitted;
    int length;
    std::vector<BYTE> bytes; // marked where nothing was written
    bool operator==(const Result&) const = default;
};

template <class Ch>
Result Decode(const quorvel::Base64Kernels<Ch>& kernels, const std::vector<Ch>& text, int room) {
    Result result = {FALSE, room, std::vector<BYTE>(static_cast<std::size_t>(room), '#')};
    BYTE none;
    result.fitted = DecodeBase64(kernels, text.data(), static_cast<int>(text.size()),
                                 room > 0 ? result.bytes.data() : &none, &result.length);
    return result;
}

template <class Ch>
void CheckDecoding(const std::string& input, int missing) {
    const std::vector<Ch> text(input.begin(), input.end()); // bytes above 0x7f become 0xff80 on
    const int size = static_cast<int>(text.size());
    const int room = std::max(AfxBase64DecodeGetRequiredLength(size) - missing, 0);
    const Result portable = Decode(quorvel::PortableBase64<Ch>(), text, room);
    Require(size == 0 || portable.fitted == (portable.length <= room));
    for (const auto* kernels : {quorvel::Ssse3Base64<Ch>(), quorvel::Avx512Base64<Ch>()})
        Require(kernels == nullptr || portable == Decode(*kernels, text, room));
}

template <class Ch>
std::vector<Ch> Encode(const quorvel::Base64Kernels<Ch>& kernels, const std::string& input,
                       DWORD flags) {
    const int size = static_cast<int>(input.size());
    int length = AfxBase64EncodeGetRequiredLength(size, flags);
    std::vector<Ch> text(static_cast<std::size_t>(length));
    Require(EncodeBase64(kernels, reinterpret_cast<const BYTE*>(input.data()), size, text.data(),
                         &length, flags));
    Require(length <= static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

template <class Ch>
void CheckEncoding(const std::string& input, DWORD flags) {
    const std::vector<Ch> text = Encode(quorvel::PortableBase64<Ch>(), input, flags);
    for (const auto* kernels : {quorvel::Ssse3Base64<Ch>(), quorvel::Avx512Base64<Ch>()})
        Require(kernels == nullptr || text == Encode(*kernels, input, flags));
    const Result decoded =
        Decode(quorvel::PortableBase64<Ch>(), text, static_cast<int>(input.size()));
    Require(decoded.fitted && std::string(decoded.bytes.begin(), decoded.bytes.end()) == input);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const DWORD flags = input.Byte() & 3;
    const int missing = input.Value<std::uint16_t>();
    const std::string rest = size > 3 ? std::string(data + 3, data + size) : std::string();
    CheckDecoding<char>(rest, missing);
    CheckDecoding<WCHAR>(rest, missing);
    if (!rest.empty()) {
        CheckEncoding<char>(rest, flags);
        CheckEncoding<WCHAR>(rest, flags);
    }
    return 0;
}

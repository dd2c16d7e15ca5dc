// Parses the input as a key and as a signature. Each has only one text: another text with the same
// meaning differs only in line ends and in the unsigned comment.
#include "update/minisign.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quorvel::minisign;
    const std::string text(data, data + size);
    PublicKey key;
    key.id.fill(0xa5);
    const KeyId before = key.id;
    if (!ReadPublicKey(text, key))
        Require(key.id == before);
    Signature signature;
    if (!ReadSignature(text, signature))
        return 0;
    Require(signature.trustedComment.size() <= 8192);
    Require(signature.trustedComment.find('\n') == std::string::npos);
    Require(text.find("trusted comment: " + signature.trustedComment) != std::string::npos);
    Require(!ReadSignature(text + text, signature) && !ReadSignature("\n" + text, signature));
    ReadFacts(signature.trustedComment);
    PublicKey other;
    other.point.fill(1);
    Require(!Verify(signature, Hash{}, other));
    return 0;
}

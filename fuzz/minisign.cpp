// Parses the input as a key and as a signature. Each has only one text: another text with the same
// meaning differs only in line ends and in the unsigned comment.
#include "update/minisign.h"
#include "fuzz_input.h"

FUZZ_TARGET(input) {
    using namespace quorvel::minisign;
    const std::string text = input.Bytes();
    PublicKey key;
    key.id.fill(0xa5);
    const KeyId before = key.id;
    Require(ReadPublicKey(text, key) || key.id == before);
    Signature signature;
    if (!ReadSignature(text, signature))
        return;
    const std::string& comment = signature.trustedComment;
    Require(comment.size() <= 8192 && comment.find('\n') == std::string::npos);
    Require(text.find("trusted comment: " + comment) != std::string::npos);
    Require(!ReadSignature(text + text, signature) && !ReadSignature("\n" + text, signature));
    ReadFacts(comment);
    PublicKey other;
    other.point.fill(1);
    Require(!Verify(signature, Hash{}, other));
}

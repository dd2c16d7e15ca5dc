#include "listing/signing.h"

#include <quorvel/util/text/base64.h>

#include <sodium.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

typedef std::vector<unsigned char> Bytes;

// "Ed", no derivation, "B2"; then salt and limits of a derivation, which stay zero; the key; and a
// checksum, which is not used without a password.
constexpr std::string_view kSecretStart("Ed\0\0B2", 6);
constexpr std::size_t kSecretKeyAt = 54;
constexpr std::size_t kSecretLength = 158;

std::string Base64(const Bytes& bytes) {
    std::string text(bytes.size() * 2 + 16, 0);
    int length = static_cast<int>(text.size());
    AfxBase64EncodeMultiByte(bytes.data(), static_cast<int>(bytes.size()), text.data(), &length,
                             BASE64_NO_LINE_BREAKS);
    return text.substr(0, static_cast<std::size_t>(length));
}

template <class Part>
void Append(Bytes& bytes, const Part& part) {
    bytes.insert(bytes.end(), part.begin(), part.end());
}

std::string IdText(const SigningKey& key) {
    std::string text;
    for (auto byte = key.id.rbegin(); byte != key.id.rend(); ++byte) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", *byte);
        text += digits;
    }
    return text;
}

std::array<unsigned char, 64> Sign(const SigningKey& key, const Bytes& bytes) {
    std::array<unsigned char, 64> signature;
    crypto_sign_ed25519_detached(signature.data(), nullptr, bytes.data(), bytes.size(),
                                 key.secret.data());
    return signature;
}

} // namespace

SigningKey MakeSigningKey(const std::array<unsigned char, 40>& random) {
    SigningKey key;
    std::copy_n(random.begin(), key.id.size(), key.id.begin());
    crypto_sign_ed25519_seed_keypair(key.point.data(), key.secret.data(),
                                     random.data() + key.id.size());
    return key;
}

std::string PublicKeyText(const SigningKey& key) {
    Bytes bytes = {'E', 'd'};
    Append(bytes, key.id);
    Append(bytes, key.point);
    return "untrusted comment: minisign public key " + IdText(key) + "\n" + Base64(bytes) + "\n";
}

std::string SecretKeyText(const SigningKey& key) {
    Bytes bytes(kSecretStart.begin(), kSecretStart.end());
    bytes.resize(kSecretKeyAt);
    Append(bytes, key.id);
    Append(bytes, key.secret);
    bytes.resize(kSecretLength);
    return "untrusted comment: minisign encrypted secret key\n" + Base64(bytes) + "\n";
}

bool ReadSecretKey(std::string_view text, SigningKey& key) {
    text.remove_prefix(std::min(text.find('\n') + 1, text.size()));
    text = text.substr(0, text.find_first_of("\r\n"));
    Bytes bytes(text.size() + 3);
    int length = static_cast<int>(bytes.size());
    if (text.empty() ||
        !AfxBase64DecodeMultiByte(text.data(), static_cast<int>(text.size()), bytes.data(),
                                  &length) ||
        length != static_cast<int>(kSecretLength) ||
        !std::equal(kSecretStart.begin(), kSecretStart.end(), bytes.begin()))
        return false;
    const auto id = bytes.begin() + static_cast<std::ptrdiff_t>(kSecretKeyAt);
    std::copy_n(id, key.id.size(), key.id.begin());
    std::copy_n(id + 8, key.secret.size(), key.secret.begin());
    std::copy_n(id + 40, key.point.size(), key.point.begin());
    return true;
}

std::string SignatureText(const SigningKey& key, std::string_view bytes, std::string_view comment) {
    Bytes hash(64);
    crypto_generichash_blake2b_state state;
    crypto_generichash_blake2b_init(&state, nullptr, 0, hash.size());
    crypto_generichash_blake2b_update(&state, reinterpret_cast<const unsigned char*>(bytes.data()),
                                      bytes.size());
    crypto_generichash_blake2b_final(&state, hash.data(), hash.size());
    const auto ofFile = Sign(key, hash);
    Bytes signedComment(ofFile.begin(), ofFile.end());
    Append(signedComment, comment);
    const auto ofComment = Sign(key, signedComment);
    Bytes first = {'E', 'D'};
    Append(first, key.id);
    Append(first, ofFile);
    return "untrusted comment: signature of key " + IdText(key) + "\n" + Base64(first) +
           "\ntrusted comment: " + std::string(comment) + "\n" +
           Base64(Bytes(ofComment.begin(), ofComment.end())) + "\n";
}

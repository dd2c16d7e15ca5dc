#include "update/minisign.h"

#include <quorvel/framework/file.h>
#include <quorvel/util/text/base64.h>

#include <sodium.h>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace quorvel::minisign {

namespace {

constexpr std::string_view kUntrusted = "untrusted comment: ";
constexpr std::string_view kTrusted = "trusted comment: ";
constexpr char kKeyAlgorithm[] = {'E', 'd'};
constexpr char kHashedAlgorithm[] = {'E', 'D'};
constexpr std::size_t kCommentLimit = 8192; // minisign's own limit

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == text.npos ? text.size() : end + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

// Decodes, and accepts only a text that encoding would produce.
template <std::size_t Count>
bool Decode(std::string_view text, std::array<BYTE, Count>& bytes) {
    std::array<BYTE, Count + 3> decoded;
    std::array<char, Count * 2 + 16> encoded;
    if (text.size() != (Count + 2) / 3 * 4)
        return false;
    int length = static_cast<int>(decoded.size());
    if (!AfxBase64DecodeMultiByte(text.data(), static_cast<int>(text.size()), decoded.data(),
                                  &length) ||
        length != static_cast<int>(Count))
        return false;
    length = static_cast<int>(encoded.size());
    if (!AfxBase64EncodeMultiByte(decoded.data(), static_cast<int>(Count), encoded.data(), &length,
                                  BASE64_NO_LINE_BREAKS) ||
        std::string_view(encoded.data(), static_cast<std::size_t>(length)) != text)
        return false;
    std::copy_n(decoded.begin(), Count, bytes.begin());
    return true;
}

std::optional<ULONGLONG> FactOf(std::string_view comment, std::string_view name) {
    while (!comment.empty()) {
        const std::size_t end = std::min(comment.find_first_of(" \t"), comment.size());
        const std::string_view word = comment.substr(0, end);
        comment.remove_prefix(std::min(end + 1, comment.size()));
        if (!word.starts_with(name))
            continue;
        ULONGLONG number = 0;
        const char* const last = word.data() + word.size();
        const auto result = std::from_chars(word.data() + name.size(), last, number);
        if (result.ec == std::errc() && result.ptr == last)
            return number;
        return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

bool ReadPublicKey(std::string_view text, PublicKey& key) {
    std::string_view line = TakeLine(text);
    if (line.starts_with(kUntrusted))
        line = TakeLine(text);
    std::array<BYTE, 42> bytes;
    if (!text.empty() || !Decode(line, bytes) ||
        std::memcmp(bytes.data(), kKeyAlgorithm, sizeof kKeyAlgorithm) != 0)
        return false;
    std::copy_n(bytes.begin() + 2, key.id.size(), key.id.begin());
    std::copy_n(bytes.begin() + 10, key.point.size(), key.point.begin());
    return true;
}

bool ReadSignature(std::string_view text, Signature& signature) {
    std::array<BYTE, 74> ofFile;
    std::array<BYTE, 64> ofComment;
    if (text.find('\0') != text.npos || !TakeLine(text).starts_with(kUntrusted) ||
        !Decode(TakeLine(text), ofFile) ||
        std::memcmp(ofFile.data(), kHashedAlgorithm, sizeof kHashedAlgorithm) != 0)
        return false;
    const std::string_view comment = TakeLine(text);
    if (!comment.starts_with(kTrusted) || comment.size() > kTrusted.size() + kCommentLimit ||
        !Decode(TakeLine(text), ofComment) || !text.empty())
        return false;
    std::copy_n(ofFile.begin() + 2, signature.id.size(), signature.id.begin());
    std::copy_n(ofFile.begin() + 10, signature.ofFile.size(), signature.ofFile.begin());
    signature.trustedComment = comment.substr(kTrusted.size());
    signature.ofComment = ofComment;
    return true;
}

CString KeyIdText(const KeyId& id) {
    CString text;
    for (auto byte = id.rbegin(); byte != id.rend(); ++byte)
        text.AppendFormat(_T("%02X"), *byte);
    return text;
}

Hash HashFile(const WCHAR* fileName) {
    Hash hash;
    CFile file(fileName, CFile::modeRead | CFile::shareDenyWrite);
    crypto_generichash_blake2b_state state;
    crypto_generichash_blake2b_init(&state, nullptr, 0, hash.size());
    BYTE block[32 * 1024];
    while (const UINT count = file.Read(block, sizeof block))
        crypto_generichash_blake2b_update(&state, block, count);
    crypto_generichash_blake2b_final(&state, hash.data(), hash.size());
    return hash;
}

bool Verify(const Signature& signature, const Hash& hash, const PublicKey& key) {
    std::string signedComment(signature.ofFile.begin(), signature.ofFile.end());
    signedComment += signature.trustedComment;
    return crypto_sign_ed25519_verify_detached(signature.ofFile.data(), hash.data(), hash.size(),
                                               key.point.data()) == 0 &&
           crypto_sign_ed25519_verify_detached(signature.ofComment.data(),
                                               reinterpret_cast<const BYTE*>(signedComment.data()),
                                               signedComment.size(), key.point.data()) == 0;
}

Facts ReadFacts(std::string_view trustedComment) {
    return {FactOf(trustedComment, "timestamp:"), FactOf(trustedComment, "serial:")};
}

} // namespace quorvel::minisign

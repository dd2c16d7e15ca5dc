// Keys and signatures in the text format of minisign: Ed25519 over the BLAKE2b hash of a file.
//
// A key is one line of base64, "Ed", an id of 8 bytes and 32 of key, with a line of comment before
// it or not. A signature is exactly four lines:
//
//     untrusted comment: <anything>
//     <base64: "ED", the key's id, 64 bytes over the file's hash>
//     trusted comment: <text>
//     <base64: 64 bytes over those 64 bytes and the text>
//
// Lines end with LF or CR LF, the last one also with the text. Base64 is taken in its one proper
// form only, so that no two texts are the same signature. "Ed" in a signature is an older form over
// the file itself, which would have to be in memory as a whole: it is not supported.
#pragma once

#include <quorvel/framework/string.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel::minisign {

typedef std::array<BYTE, 8> KeyId;
typedef std::array<BYTE, 64> Hash;

struct PublicKey {
    KeyId id;
    std::array<BYTE, 32> point;
};

struct Signature {
    KeyId id;
    std::array<BYTE, 64> ofFile;
    std::string trustedComment;
    std::array<BYTE, 64> ofComment;
};

// Both leave the result as it was when the text is none.
bool ReadPublicKey(std::string_view text, PublicKey& key);
bool ReadSignature(std::string_view text, Signature& signature);

CString KeyIdText(const KeyId& id); // as minisign writes it: 16 hexadecimal digits

// Throws CFileException.
Hash HashFile(const WCHAR* fileName);
// Whether the key made both signatures. The ids are not compared.
bool Verify(const Signature& signature, const Hash& hash, const PublicKey& key);

// What the words "timestamp:<seconds since 1970>" and "serial:<number>" of a trusted comment say;
// the first of each counts.
struct Facts {
    std::optional<ULONGLONG> timestamp;
    std::optional<ULONGLONG> serial;
};
Facts ReadFacts(std::string_view trustedComment);

} // namespace quorvel::minisign

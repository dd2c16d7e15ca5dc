// Keys and signatures in the text format of minisign: Ed25519 over the BLAKE2b hash of a file.
//
// A key is one line of base64 ("Ed", an id of 8 bytes, and 32 bytes of key). A comment line may
// precede it. A signature is exactly four lines:
//
//     untrusted comment: <anything>
//     <base64: "ED", the key's id, 64 bytes over the file's hash>
//     trusted comment: <text>
//     <base64: 64 bytes over those 64 bytes and the text>
//
// Lines end with LF or CR LF; the last one may also end with the text. Base64 must be in its
// canonical form, so that only one text is a given signature. "Ed" in a signature means an older
// form over the file itself. It is not supported, because it needs the whole file in memory.
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

// Both leave the result unchanged if the text is invalid.
bool ReadPublicKey(std::string_view text, PublicKey& key);
bool ReadSignature(std::string_view text, Signature& signature);

CString KeyIdText(const KeyId& id); // in minisign's form: 16 hexadecimal digits

// Throws CFileException.
Hash HashFile(const WCHAR* fileName);
// Whether the key made both signatures. Does not compare the ids.
bool Verify(const Signature& signature, const Hash& hash, const PublicKey& key);

// The values of "timestamp:<seconds since 1970>" and "serial:<number>" in a trusted comment. The
// first of each counts.
struct Facts {
    std::optional<ULONGLONG> timestamp;
    std::optional<ULONGLONG> serial;
};
Facts ReadFacts(std::string_view trustedComment);

} // namespace quorvel::minisign

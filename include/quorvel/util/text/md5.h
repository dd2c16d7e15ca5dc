// MD5 digests (RFC 1321) of memory and files, and their text form. MD5 is broken: not for security.
//
// A digest is 16 bytes; a checksum is its text: 32 hexadecimal digits in the order of the bytes.
// Nothing throws. FALSE leaves the outputs unchanged, except where a function says otherwise. Any
// thread; one thread at a time for each context.
#pragma once

#include <quorvel/framework/string.h>

#include <cstddef>

namespace quorvel {

// The state between two updates.
struct MD5_CTX {
    DWORD state[4];   // the digest of the complete blocks
    ULONGLONG length; // in bytes
    BYTE block[64];   // bytes of an incomplete block
};

} // namespace quorvel

// <openssl/md5.h> declares a type of the same name. A source that includes both writes
// quorvel::MD5_CTX, and the bare name is OpenSSL's. Nothing else is needed when OpenSSL's header
// comes first. When it comes later, define QUORVEL_NO_MD5_CTX before this header, because a
// declared name cannot be withdrawn.
#if !defined(QUORVEL_NO_MD5_CTX) && !defined(OPENSSL_MD5_H) && !defined(HEADER_MD5_H)
using quorvel::MD5_CTX;
#endif

// Computes a digest step by step. A null context or null data has no effect. AfxMD5Final clears the
// context.
QUORVEL_API void AfxMD5Init(quorvel::MD5_CTX* context);
QUORVEL_API void AfxMD5Update(quorvel::MD5_CTX* context, const BYTE* data, unsigned int length);
QUORVEL_API void AfxMD5Final(BYTE digest[16], quorvel::MD5_CTX* context);

// FALSE for a null pointer, including null data of length 0.
QUORVEL_API BOOL AfxGenerateMD5Digest(const BYTE* data, unsigned int length, BYTE digest[16]);
QUORVEL_API BOOL AfxFormatMD5Checksum(const BYTE digest[16], CStringA& text, BOOL upperCase);
QUORVEL_API BOOL AfxGenerateMD5Checksum(const BYTE* data, unsigned int length, CStringA& text,
                                        BOOL upperCase);

// The lower-case checksum of an open file from its current position to its end. When a read fails,
// returns FALSE with an empty text; the position is then undefined. The handle stays open.
QUORVEL_API BOOL AfxGenerateFileMD5Checksum(HANDLE file, CStringA& text);
// The same for a whole file by its path. For a null path, or a file that cannot be opened for
// reading, returns FALSE, leaves the text unchanged and sets the platform's last error.
QUORVEL_API BOOL AfxGenerateFileMD5Checksum(const WCHAR* path, CStringA& text);
// A bare nullptr is a null path.
inline BOOL AfxGenerateFileMD5Checksum(std::nullptr_t, CStringA& text) {
    return AfxGenerateFileMD5Checksum(static_cast<const WCHAR*>(nullptr), text);
}

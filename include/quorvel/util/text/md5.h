// MD5 digests (RFC 1321) of memory and of files, and their text. Not for secrets: MD5 is broken.
//
// A digest is 16 bytes; a checksum is its text, 32 hexadecimal digits in the order of the bytes.
// Nothing throws; FALSE leaves the outputs as they are, except where a function says otherwise.
// Any thread, one context at a time.
#pragma once

#include <quorvel/framework/string.h>

#include <cstddef>

namespace quorvel {

// The state between two updates.
struct MD5_CTX {
    DWORD state[4];
    ULONGLONG length; // in bytes
    BYTE block[64];   // what does not fill a block yet
};

} // namespace quorvel

// <openssl/md5.h> has a type of this name for itself. A source that includes both says
// quorvel::MD5_CTX, and then the bare name is OpenSSL's. That is so by itself where OpenSSL's
// header comes first. Where it comes later, QUORVEL_NO_MD5_CTX is defined before this header: a
// name once declared cannot be withdrawn.
#if !defined(QUORVEL_NO_MD5_CTX) && !defined(OPENSSL_MD5_H) && !defined(HEADER_MD5_H)
using quorvel::MD5_CTX;
#endif

// The digest step by step. A null context does nothing, nor does null data; finishing clears the
// context.
QUORVEL_API void AfxMD5Init(quorvel::MD5_CTX* context);
QUORVEL_API void AfxMD5Update(quorvel::MD5_CTX* context, const BYTE* data, unsigned int length);
QUORVEL_API void AfxMD5Final(BYTE digest[16], quorvel::MD5_CTX* context);

// FALSE for a null pointer, null data of length 0 included.
QUORVEL_API BOOL AfxGenerateMD5Digest(const BYTE* data, unsigned int length, BYTE digest[16]);
QUORVEL_API BOOL AfxFormatMD5Checksum(const BYTE digest[16], CStringA& text, BOOL upperCase);
QUORVEL_API BOOL AfxGenerateMD5Checksum(const BYTE* data, unsigned int length, CStringA& text,
                                        BOOL upperCase);

// The lower-case checksum of an open file from its current position to its end. FALSE, and the text
// empty, when a read fails; the position is then undefined. The handle stays open.
QUORVEL_API BOOL AfxGenerateFileMD5Checksum(HANDLE file, CStringA& text);
// The same of a whole file by its path. FALSE, and the text as it was, for a null path or a file
// that cannot be opened for reading; the platform's last error tells why.
QUORVEL_API BOOL AfxGenerateFileMD5Checksum(const WCHAR* path, CStringA& text);
// A bare nullptr is a null path.
inline BOOL AfxGenerateFileMD5Checksum(std::nullptr_t, CStringA& text) {
    return AfxGenerateFileMD5Checksum(static_cast<const WCHAR*>(nullptr), text);
}

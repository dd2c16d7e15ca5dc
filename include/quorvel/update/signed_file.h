// Verifies the signature of a file: for hosts that download updates by themselves, and for tools of
// publishers.
#pragma once

#include <quorvel/framework/string.h>

// The signature is in minisign's current format, over the hash of the file. The key is the text of
// a minisign public key file, or only its second line. Returns FALSE with the reason in `text` when
// the signature does not match the file and the key, or one of the three cannot be read. Otherwise
// `text` is the trusted comment (bytes beyond ASCII as '?'). Any thread.
QUORVEL_API BOOL AfxVerifySignedFile(const WCHAR* fileName, const WCHAR* signatureFileName,
                                     const WCHAR* publicKey, CString& text);

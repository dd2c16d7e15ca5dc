// Whether a file is what a publisher has signed: for a host that downloads its update by itself,
// and for tools of publishers.
#pragma once

#include <quorvel/framework/string.h>

// The signature is in the format of minisign, in its present form over the hash of the file; the
// key is the text of its public key file, or the second line of that alone. FALSE when the file is
// not what the owner of the key has signed, or one of the three can't be read; `text` then says
// why. Otherwise `text` is the trusted comment (bytes beyond ASCII as '?'). Any thread.
QUORVEL_API BOOL AfxVerifySignedFile(const WCHAR* fileName, const WCHAR* signatureFileName,
                                     const WCHAR* publicKey, CString& text);

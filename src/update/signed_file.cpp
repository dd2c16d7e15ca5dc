#include <quorvel/update/signed_file.h>

#include <quorvel/frame/exception_text.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "update/update_verifier.h"

#include <new>

BOOL AfxVerifySignedFile(const WCHAR* fileName, const WCHAR* signatureFileName,
                         const WCHAR* publicKey, CString& text) {
    try {
        quorvel::UpdateVerifier verifier(CRegistryPath(), {});
        CString insert;
        UINT textId = quorvel::kTextUpdatesKeyInvalid;
        if (verifier.SetKey(publicKey))
            textId = verifier.Verify(fileName, signatureFileName, insert);
        if (textId == 0)
            text = verifier.GetTrustedComment();
        else
            text.FormatMessage(textId, insert.GetString());
        return textId == 0;
    } catch (CException* exception) {
        AfxGetExceptionText(exception, text);
        exception->Delete();
    } catch (const std::bad_alloc&) {
        AfxGetMemoryExceptionErrorMessage(text);
    }
    return FALSE;
}

#include <quorvel/frame/exception_text.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "framework/cause_text.h"
#include "framework/local_text.h"
#include "platform/win32.h"

namespace {

constexpr int kFileCauses = CFileException::endOfFile + 1;
constexpr int kArchiveCauses = CArchiveException::badSchema + 1;
constexpr UINT kExceptionTextSize = 256; // in characters, with the terminator

} // namespace

BOOL AfxGetSystemErrorText(DWORD error, CString& text) {
    text.Empty();
    WCHAR* allocated = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, error, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
        reinterpret_cast<LPWSTR>(&allocated), 0, nullptr);
    const quorvel::LocalText owner(allocated);
    if (length == 0)
        return FALSE;
    text.SetString(allocated, static_cast<int>(length));
    text.TrimRight(_T("\r\n"));
    return TRUE;
}

BOOL AfxGetExceptionText(CException* exception, CString& text) {
    text.Empty();
    if (exception == nullptr)
        return FALSE;
    WCHAR buffer[kExceptionTextSize] = {};
    if (!exception->GetErrorMessage(buffer, kExceptionTextSize))
        return FALSE;
    buffer[kExceptionTextSize - 1] = 0; // a host's class may omit the terminator
    text = buffer;
    return TRUE;
}

BOOL AfxIsValidFileExceptionCause(int cause) {
    return cause >= 0 && cause < kFileCauses;
}

BOOL AfxGetFileExceptionErrorMessage(int cause, CString& text) {
    return text.LoadString(quorvel::FileCauseText(cause));
}

BOOL AfxIsValidArchiveExceptionCause(int cause) {
    return cause >= 0 && cause < kArchiveCauses;
}

BOOL AfxGetArchiveExceptionErrorMessage(int cause, CString& text) {
    return text.LoadString(quorvel::ArchiveCauseText(cause));
}

BOOL AfxGetResourceExceptionErrorMessage(CString& text) {
    return text.LoadString(quorvel::kTextExceptionResource);
}

BOOL AfxGetMemoryExceptionErrorMessage(CString& text) {
    return text.LoadString(quorvel::kTextExceptionMemory);
}

BOOL AfxGetNotSupportedExceptionErrorMessage(CString& text) {
    return text.LoadString(quorvel::kTextExceptionNotSupported);
}

BOOL AfxGetUserExceptionErrorMessage(CString& text) {
    return text.LoadString(quorvel::kTextExceptionUser);
}

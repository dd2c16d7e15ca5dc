#include <quorvel/frame/exception_text.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/xml/xml_file.h>

#include "platform/win32.h"
#include "xml/xml_file_steps.h"

#include <algorithm>
#include <climits>
#include <exception>
#include <string>

IMPLEMENT_DYNAMIC(CXMLFileException, CFileException)

CXMLFileException::CXMLFileException(int cause, const WCHAR* fileName)
    : CFileException(IsValidCause(cause) ? cause : static_cast<int>(generic), -1, fileName) {}

BOOL CXMLFileException::IsValidCause(int cause) {
    return static_cast<unsigned>(cause) <= internalError;
}

BOOL CXMLFileException::GetErrorMessage(LPWSTR text, UINT maxChars, UINT*) {
    CString message;
    if (text == nullptr || maxChars == 0 || !IsValidCause(m_cause) ||
        !message.LoadString(quorvel::kTextXmlFileCauseNone + static_cast<UINT>(m_cause)))
        return FALSE;
    const std::size_t length =
        std::min<std::size_t>(static_cast<std::size_t>(message.GetLength()), maxChars - 1);
    std::char_traits<WCHAR>::copy(text, message, length);
    text[length] = 0;
    return TRUE;
}

BOOL AfxIsValidXMLFileExceptionCause(int cause) {
    return CXMLFileException::IsValidCause(cause);
}

BOOL AfxGetXMLFileExceptionErrorMessage(int cause, CString& text) {
    const DWORD systemError = GetLastError();
    text.Empty();
    if (!CXMLFileException::IsValidCause(cause))
        cause = CXMLFileException::generic;
    if (cause == CXMLFileException::systemError)
        return AfxGetSystemErrorText(systemError, text);
    if (!text.LoadString(quorvel::kTextXmlFileCauseNone + static_cast<UINT>(cause)))
        return FALSE;
    if (cause == CXMLFileException::fileTooLarge)
        text.Format(CString(text), static_cast<LONG>(INT_MAX));
    return TRUE;
}

void AfxThrowXMLFileException(int cause, const WCHAR* fileName) {
    throw new CXMLFileException(cause, fileName);
}

namespace quorvel {

void DescribeCurrentException(CString& errorText, DWORD systemError) {
    try {
        throw;
    } catch (CXMLFileException* exception) {
        SetLastError(systemError);
        AfxGetXMLFileExceptionErrorMessage(exception->m_cause, errorText);
        exception->Delete();
    } catch (CException* exception) {
        AfxGetExceptionText(exception, errorText);
        exception->Delete();
    } catch (const std::exception&) {
        errorText.LoadString(kTextXmlFileCauseInternalError);
    } catch (...) {
        errorText.LoadString(kTextXmlFileCauseUnspecified);
    }
}

} // namespace quorvel

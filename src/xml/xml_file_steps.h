// Steps that loading and saving an XML file share.
#pragma once

#include <quorvel/frame/lengthy_operation.h>
#include <quorvel/framework/string.h>

#include <string_view>

namespace quorvel {

inline void Pump(CLengthyOperationHandler* handler) {
    if (handler != nullptr)
        handler->PumpMessages();
}

inline CString TextOf(std::basic_string_view<WCHAR> text) {
    return CString(text.data(), static_cast<int>(text.size()));
}

// The text of the exception that is being handled, to show to the caller. `systemError` is the
// error code behind CXMLFileException::systemError.
void DescribeCurrentException(CString& errorText, DWORD systemError = 0);

} // namespace quorvel

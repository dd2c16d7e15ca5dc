#include "frame/html_help.h"

#include "frame/win/html_help_control.h"

#include <htmlhelp.h>
#include <oleauto.h>

#include <memory>
#include <type_traits>

namespace quorvel {

namespace {

// The record that HH_GET_LAST_ERROR fills. The compiler's header lacks it.
struct LastError {
    int size;
    HRESULT code;
    BSTR description;
};

struct FreeString {
    void operator()(BSTR text) const { SysFreeString(text); }
};

} // namespace

// The error belongs to the process. Where the control is not loaded there is no error, so this
// function never loads it.
BOOL QueryHtmlHelpError(HtmlHelpError& error) {
    const HtmlHelpFunction htmlHelp = HtmlHelpOf(GetModuleHandleW(kHtmlHelpControl));
    if (htmlHelp == nullptr)
        return FALSE;
    LastError last = {sizeof last, S_OK, nullptr};
    const bool answered = htmlHelp(nullptr, nullptr, HH_GET_LAST_ERROR,
                                   reinterpret_cast<DWORD_PTR>(&last)) != nullptr;
    const std::unique_ptr<std::remove_pointer_t<BSTR>, FreeString> description(last.description);
    if (!answered)
        return FALSE;
    error.code = last.code;
    error.description = last.description;
    return TRUE;
}

} // namespace quorvel

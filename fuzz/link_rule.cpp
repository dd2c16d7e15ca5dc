// Checks a link, and similar links that would start a program.
#include "system/link_rule.h"

#include <quorvel/util/text/validation.h>

#include "fuzz_input.h"

static bool Opens(const WideText& link) {
    return quorvel::IsHarmlessLink(link.c_str());
}

// Endings that make a document's path a program, for any part that a reader may take.
static constexpr const WCHAR* kEndsOfPrograms[] = {
    _T(".exe"), _T("%2eexe"), _T(".lnk"),    _T(":x.exe"),        _T("?.exe"),
    _T("#.js"), _T("/.bat"),  _T("%00.txt"), _T("\\..\\cmd.exe"), _T(". ")};

FUZZ_TARGET(input) {
    const WideText link = Widened(input.Rest());
    WideText lower = link;
    for (WCHAR& unit : lower)
        if (unit >= 'A' && unit <= 'Z')
            unit = static_cast<WCHAR>(unit + ('a' - 'A'));
    Require(Opens(link) == Opens(lower));
    if (!Opens(link))
        return;
    Require(AfxIsValidURL(link.c_str()));
    Require(lower.find(_T("script:")) != 0);
    if (!lower.starts_with(_T("file:"))) {
        Require(link.find('"') == link.npos && !Opens(link + _T("\"")));
        return;
    }
    for (const WCHAR* end : kEndsOfPrograms)
        Require(!Opens(link + end));
    const WideText path = link.substr(7);
    for (const WCHAR* begin :
         {_T("file://server"), _T("file:////server/"), _T("file://\\\\server\\"), _T("")})
        Require(!Opens(begin + path));
}

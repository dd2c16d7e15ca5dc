#include "update/entry_text.h"

#include "support/test.h"

namespace {

using quorvel::MultilineText;
using quorvel::OneLineText;

TEST(EntryText, IsMadeFitForControls) {
    const CString emoji = _T("\xd83d\xde00");
    const CString line(_T('a'), 999);
    const CString text(_T('b'), 100000);
    ExpectCases<CString>({
        CASE(OneLineText(_T("")), _T("")),
        CASE(OneLineText(_T("<b>a & b</b>")), _T("<b>a & b</b>")),
        CASE(OneLineText(_T("a\r\n\tb\x1b\x85")), _T("a   b  ")),
        CASE(OneLineText(line + _T("c")), line + _T("c")),
        CASE(OneLineText(line + _T("cd")), line + _T("c\x2026")),
        CASE(OneLineText(line + emoji), line + _T("\x2026")),
        CASE(MultilineText(_T("a\nb\r\nc\rd\n\re")), _T("a\r\nb\r\nc\r\nd\r\n\r\ne")),
        CASE(MultilineText(_T("a\tb\x01")), _T("a\tb ")),
        CASE(MultilineText(text), text),
        CASE(MultilineText(text + text), text + _T("\x2026")),
    });
}

} // namespace

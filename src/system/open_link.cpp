#include "system/open_link.h"

#include <quorvel/frame/message_box.h>
#include <quorvel/frame/module.h>
#include <quorvel/res/message_ids.h>
#include <quorvel/system/open_file.h>
#include <quorvel/util/text/validation.h>

#include "frame/external_link.h"
#include "system/link_rule.h"

namespace quorvel {

namespace {

constexpr int kShownLength = 500;

bool MayOpen(const CString& link) {
    if (QuorvelGetOpenExternalLinkCallback() != nullptr)
        return MayOpenExternalLink(link) != FALSE;
    if (IsHarmlessLink(link))
        return true;
    AfxFormatStringErrorMessageBox(kTextLinkRefused, MB_OK | MB_ICONEXCLAMATION, 0,
                                   link.Left(kShownLength).GetString());
    return false;
}

} // namespace

BOOL OpenExternalLink(const WCHAR* link) {
    if (!AfxIsValidURL(link))
        return FALSE;
    const CString copy = link; // the hook may destroy the caller's text
    if (!MayOpen(copy))
        return FALSE;
    AfxOpenFile(copy, _T(""), _T(""), TRUE);
    return TRUE;
}

} // namespace quorvel

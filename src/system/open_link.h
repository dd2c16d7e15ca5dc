// Opens links that come from a document, a download or the user.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Opens an external link with AfxOpenFile. The host's hook (QuorvelSetOpenExternalLinkCallback)
// decides. Without a hook IsHarmlessLink decides, and a message box names a link that is refused. A
// text that is not a valid address (AfxIsValidURL), such as a bare path or "javascript:...", is
// refused at once.
//
// Returns FALSE when the link is refused. Returns TRUE when it was passed to the system; a message
// box reports a failure there. The hook may destroy the link's text.
BOOL OpenExternalLink(const WCHAR* link);

} // namespace quorvel

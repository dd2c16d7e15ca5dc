// Opening links that a document, a download or the user has named.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Opens an external link by AfxOpenFile. The host's hook decides whether
// (QuorvelSetOpenExternalLinkCallback); without one it is IsHarmlessLink, and a box names a link
// that is refused. A text that is no valid address (AfxIsValidURL), such as a bare path or
// "javascript:...", is refused at once.
//
// FALSE when it is refused. TRUE when it was handed to the system; a failure there is shown in a
// box. The link's text may be destroyed by the hook.
BOOL OpenExternalLink(const WCHAR* link);

} // namespace quorvel

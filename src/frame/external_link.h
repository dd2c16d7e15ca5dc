// Asks the host before each external link is opened.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// FALSE for a null link; TRUE without a hook; otherwise the hook's answer.
BOOL MayOpenExternalLink(const WCHAR* link);

} // namespace quorvel

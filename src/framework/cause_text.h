// The catalogue texts of the causes of file and archive exceptions.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// The text id of the cause, or of genericException for an unknown cause.
UINT FileCauseText(int cause);
UINT ArchiveCauseText(int cause);

} // namespace quorvel

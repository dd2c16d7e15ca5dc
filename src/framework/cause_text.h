// The catalogue texts of the causes of file and archive exceptions.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// The id of the cause's text; of genericException for a cause that is none.
UINT FileCauseText(int cause);
UINT ArchiveCauseText(int cause);

} // namespace quorvel

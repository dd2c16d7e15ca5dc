// A new file in the temporary folder, without a message.
#pragma once

#include <quorvel/framework/string.h>

namespace quorvel {

// 0, or the system's error; the name is then as it was.
DWORD NewTemporaryFile(CString& fileName);

} // namespace quorvel

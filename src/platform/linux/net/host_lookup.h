// The source of answers for asynchronous look-ups.
#pragma once

#include <quorvel/platform/sockets.h>

#include <functional>
#include <string>
#include <vector>

namespace quorvel {

// Fills in the addresses. Returns 0 or a Winsock error. Runs on its own thread and may block.
using HostResolver = std::function<int(const std::string& name, std::vector<ULONG>& addresses)>;

// For tests: later look-ups call this resolver; an empty function restores the system's.
void SetHostResolver(HostResolver resolver);

} // namespace quorvel

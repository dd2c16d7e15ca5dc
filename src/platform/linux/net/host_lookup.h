// Where asynchronous look-ups get their answers.
#pragma once

#include <quorvel/platform/sockets.h>

#include <functional>
#include <string>
#include <vector>

namespace quorvel {

// Fills in the addresses; 0, or a Winsock error. Called on a thread of its own and may block.
using HostResolver = std::function<int(const std::string& name, std::vector<ULONG>& addresses)>;

// For tests: look-ups that begin from now on ask this one; an empty function asks the system.
void SetHostResolver(HostResolver resolver);

} // namespace quorvel

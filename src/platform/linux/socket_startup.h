// Whether the program has started Winsock.
#pragma once

namespace quorvel {

bool IsWinsockStarted();

} // namespace quorvel

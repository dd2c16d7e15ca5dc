#include "platform/random.h"

#include <quorvel/platform/platform.h>

#include <ntsecapi.h>

namespace quorvel {

bool FillRandom(void* bytes, std::size_t count) {
    return count <= MAXDWORD && RtlGenRandom(bytes, static_cast<ULONG>(count)) != FALSE;
}

} // namespace quorvel

#include "platform/random.h"

#include <cerrno>
#include <sys/random.h>

namespace quorvel {

bool FillRandom(void* bytes, std::size_t count) {
    auto next = static_cast<char*>(bytes);
    while (count > 0) { // a signal may interrupt a large request
        const ssize_t got = getrandom(next, count, 0);
        if (got < 0 && errno != EINTR)
            return false;
        if (got > 0) {
            next += got;
            count -= static_cast<std::size_t>(got);
        }
    }
    return true;
}

} // namespace quorvel

// A check together with the connections that it makes over HTTP.
#pragma once

#include "update/http_connection.h"

namespace quorvel {

// The window of the source may still receive statuses when the check is destroyed: it forgets the
// check first.
template <class Flow>
struct CheckEngine {
    template <class Subject>
    CheckEngine(const CRegistryPath& path, const Subject& subject, CCheckForUpdatesView& view)
        : flow(path, subject, view, source) {
        source.SetFlow(&flow);
    }
    ~CheckEngine() { source.SetFlow(nullptr); }

    HttpSource source;
    Flow flow;
};

} // namespace quorvel

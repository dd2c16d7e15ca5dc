// A check and the source of its HTTP connections.
#pragma once

#include "update/http_connection.h"

namespace quorvel {

// The source's window may still receive statuses while the check is destroyed, so the window loses
// its pointer to the check first.
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

#include "frame/external_link.h"

#include <quorvel/frame/module.h>

namespace {

typedef int (*OpenExternalLink)(const WCHAR*);
constinit OpenExternalLink s_openExternalLink = nullptr;

} // namespace

BOOL quorvel::MayOpenExternalLink(const WCHAR* link) {
    if (link == nullptr)
        return FALSE;
    return s_openExternalLink == nullptr ? TRUE : s_openExternalLink(link);
}

void QuorvelSetOpenExternalLinkCallback(int (*callback)(const WCHAR*)) {
    s_openExternalLink = callback;
}

int (*QuorvelGetOpenExternalLinkCallback())(const WCHAR*) {
    return s_openExternalLink;
}

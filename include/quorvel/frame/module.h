// The library as a module: its handles, and the hook that is asked before a link is opened.
//
// The library attaches itself when it is loaded: it stores its instance handle and enters the
// framework's resource chain. On Windows the load is refused when it cannot. Nothing here is
// synchronised: the host sets the resources and the hook on its user-interface thread.
#pragma once

#include <quorvel/platform/platform.h>

// The library's own module; the program's when the library is linked to it statically.
QUORVEL_API HINSTANCE QuorvelGetInstanceHandle();

// The module that the library's texts, dialogs and bitmaps are taken from: the library itself until
// a host sets a language library. It serves what is loaded from then on, and it alone: a text that
// it lacks does not load, no English one stands in; with null the library has no texts. Only what
// the program itself has under the same number comes before it (extension_module.h). The module
// stays the host's, which sets the former handle again before it frees it. FALSE, and null, when
// the library could not attach.
QUORVEL_API BOOL QuorvelSetResourceHandle(HINSTANCE resources);
QUORVEL_API HINSTANCE QuorvelGetResourceHandle();

// The host's answer to "may this link be opened?"; null, as at first, allows every link. The link
// is never null.
QUORVEL_API void QuorvelSetOpenExternalLinkCallback(int (*callback)(const WCHAR* link));
QUORVEL_API int (*QuorvelGetOpenExternalLinkCallback())(const WCHAR* link);

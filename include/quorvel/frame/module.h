// The library's module: its handles, and the hook that decides whether a link may be opened.
//
// The library attaches itself when it is loaded: it stores its instance handle and adds itself to
// the framework's resource chain. If that fails on Windows, the library does not load. Nothing here
// is synchronised: set the resources and the hook on the user-interface thread.
#pragma once

#include <quorvel/platform/platform.h>

// The library's own module, or the program's when the library is statically linked.
QUORVEL_API HINSTANCE QuorvelGetInstanceHandle();

// The module with the library's texts, dialogs and bitmaps: the library itself until a host sets a
// language library. A change affects what is loaded afterwards. There is no fallback: a text that
// the module lacks is missing, and with null the library has no texts. Only resources of the
// program with the same number have priority (extension_module.h). The host owns the module, and
// must restore the old handle before it frees the module. FALSE, and a null handle, when the
// library could not attach.
QUORVEL_API BOOL QuorvelSetResourceHandle(HINSTANCE resources);
QUORVEL_API HINSTANCE QuorvelGetResourceHandle();

// The host's callback returns whether the link, which is never null, may be opened. Null, the
// default, allows every link.
QUORVEL_API void QuorvelSetOpenExternalLinkCallback(int (*callback)(const WCHAR* link));
QUORVEL_API int (*QuorvelGetOpenExternalLinkCallback())(const WCHAR* link);

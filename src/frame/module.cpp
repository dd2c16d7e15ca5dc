#include <quorvel/frame/module.h>

#include <quorvel/framework/extension_module.h>

#include "frame/module.h"

#include <new>

namespace {

constinit AFX_EXTENSION_MODULE s_module = {};
constinit HINSTANCE s_instance = nullptr;
constinit CDynLinkLibrary* s_resources = nullptr; // AfxTermExtensionModule deletes it
typedef int (*OpenExternalLink)(const WCHAR*);
constinit OpenExternalLink s_openExternalLink = nullptr;

// The library's life where no entry point is called: from static construction to destruction.
struct ModuleLife {
    ModuleLife() {
        if (HINSTANCE instance = quorvel::InstanceToAttach(); instance != nullptr)
            quorvel::AttachModule(instance);
    }
    ~ModuleLife() {
        if (quorvel::InstanceToAttach() != nullptr)
            quorvel::DetachModule();
    }
} s_life;

} // namespace

namespace quorvel {

BOOL AttachModule(HINSTANCE instance) {
    if (!AfxInitExtensionModule(s_module, instance))
        return FALSE;
    s_instance = instance;
    s_resources = new (std::nothrow) CDynLinkLibrary(s_module);
    return s_resources != nullptr;
}

void DetachModule() {
    s_resources = nullptr;
    AfxTermExtensionModule(s_module);
}

BOOL MayOpenExternalLink(const WCHAR* link) {
    if (link == nullptr)
        return FALSE;
    return s_openExternalLink == nullptr ? TRUE : s_openExternalLink(link);
}

} // namespace quorvel

HINSTANCE QuorvelGetInstanceHandle() {
    return s_instance;
}

BOOL QuorvelSetResourceHandle(HINSTANCE resources) {
    if (s_resources == nullptr)
        return FALSE;
    s_resources->m_hResource = resources;
    return TRUE;
}

HINSTANCE QuorvelGetResourceHandle() {
    return s_resources != nullptr ? s_resources->m_hResource : nullptr;
}

void QuorvelSetOpenExternalLinkCallback(int (*callback)(const WCHAR*)) {
    s_openExternalLink = callback;
}

int (*QuorvelGetOpenExternalLinkCallback())(const WCHAR*) {
    return s_openExternalLink;
}

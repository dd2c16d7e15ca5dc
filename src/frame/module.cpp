#include <quorvel/frame/module.h>

#include <quorvel/framework/extension_module.h>

#include "frame/module_entry.h"

#include <new>

namespace {

constinit AFX_EXTENSION_MODULE s_module = {};
constinit HINSTANCE s_instance = nullptr;
constinit CDynLinkLibrary* s_resources = nullptr; // AfxTermExtensionModule deletes it

// Attaches and detaches the library with its static objects, where it has no entry point.
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

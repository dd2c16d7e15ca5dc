#include "frame/module_entry.h"

namespace quorvel {

// The entry point attaches a DLL; code linked into the program has no entry point.
HINSTANCE InstanceToAttach() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&InstanceToAttach), &module);
    return module == GetModuleHandleW(nullptr) ? module : nullptr;
}

} // namespace quorvel

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        return quorvel::AttachModule(instance);
    if (reason == DLL_PROCESS_DETACH)
        quorvel::DetachModule();
    return TRUE;
}

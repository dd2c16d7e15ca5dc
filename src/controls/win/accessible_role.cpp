#include "controls/win/accessible_role.h"

#include <initguid.h>
#include <oleacc.h>

namespace quorvel {

namespace {

// Calls `work` with the system's accessibility properties; does nothing if they are missing.
template <class Work>
void WithProperties(Work work) {
    IAccPropServices* services = nullptr;
    if (FAILED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                  IID_IAccPropServices, reinterpret_cast<void**>(&services))))
        return;
    work(*services);
    services->Release();
}

constexpr DWORD kClient = static_cast<DWORD>(OBJID_CLIENT);

} // namespace

void SetAccessibleRole(HWND window, LONG role) {
    WithProperties([=](IAccPropServices& services) {
        VARIANT value = {};
        value.vt = VT_I4;
        value.lVal = role;
        services.SetHwndProp(window, kClient, CHILDID_SELF, PROPID_ACC_ROLE, value);
    });
}

void ClearAccessibleRole(HWND window) {
    WithProperties([=](IAccPropServices& services) {
        services.ClearHwndProps(window, kClient, CHILDID_SELF, &PROPID_ACC_ROLE, 1);
    });
}

} // namespace quorvel

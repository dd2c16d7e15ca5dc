// The German resources, in force as long as an object lives.
#pragma once

#include <quorvel/frame/module.h>

class German {
public:
    German() : m_library(::LoadLibraryW(L"Quorvel_DEU.dll")), m_former(QuorvelGetResourceHandle()) {
        QuorvelSetResourceHandle(m_library);
        IsInForce() = true;
    }
    German(const German&) = delete;
    ~German() {
        IsInForce() = false;
        QuorvelSetResourceHandle(m_former);
        ::FreeLibrary(m_library);
    }

    static bool& IsInForce() {
        static bool s_isInForce = false;
        return s_isInForce;
    }

private:
    const HINSTANCE m_library;
    const HINSTANCE m_former;
};

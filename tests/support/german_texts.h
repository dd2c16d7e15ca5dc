// Puts the German language library, or a copy of it, first in the resource chain while the object
// exists.
#pragma once

#include <quorvel/framework/extension_module.h>
#include <quorvel/framework/string.h>

using namespace quorvel::win32;

class GermanTexts {
public:
    explicit GermanTexts(const WCHAR* fileName = _T("Quorvel_DEU.dll"))
        : m_module(LoadLibraryExW(fileName, nullptr, LOAD_LIBRARY_AS_DATAFILE)) {
        AfxInitExtensionModule(m_state, m_module);
        new CDynLinkLibrary(m_state);
    }
    ~GermanTexts() {
        AfxTermExtensionModule(m_state);
        FreeLibrary(m_module);
    }
    GermanTexts(const GermanTexts&) = delete;

    HINSTANCE Module() const { return m_module; }
    CString Text(UINT id) const {
        CString text;
        text.LoadString(m_module, id);
        return text;
    }

private:
    HINSTANCE m_module;
    AFX_EXTENSION_MODULE m_state = {};
};

// The part of the component model that enumerators of texts need.
//
// On Windows this header includes the SDK. On Linux it declares the same names, values and virtual
// function order. The functions are in namespace quorvel::win32.
#pragma once

#include <quorvel/platform/platform.h>

#if defined(_WIN32)

#include <objbase.h>
#include <objidl.h>

#else

#define STDMETHODCALLTYPE

typedef LONG HRESULT;
typedef GUID IID;
typedef const IID& REFIID;

#define S_OK (static_cast<HRESULT>(0))
#define S_FALSE (static_cast<HRESULT>(1))
#define E_NOINTERFACE (static_cast<HRESULT>(0x80004002u))
#define E_POINTER (static_cast<HRESULT>(0x80004003u))
#define E_FAIL (static_cast<HRESULT>(0x80004005u))
#define E_OUTOFMEMORY (static_cast<HRESULT>(0x8007000eu))
#define E_INVALIDARG (static_cast<HRESULT>(0x80070057u))

inline bool operator==(const GUID& left, const GUID& right) {
    return __builtin_memcmp(&left, &right, sizeof left) == 0;
}

// The last Release destroys an object. Never delete one through an interface.
struct IUnknown {
    virtual HRESULT QueryInterface(REFIID id, void** object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};
struct IEnumString : IUnknown {
    virtual HRESULT Next(ULONG count, WCHAR** texts, ULONG* fetched) = 0;
    virtual HRESULT Skip(ULONG count) = 0;
    virtual HRESULT Reset() = 0;
    virtual HRESULT Clone(IEnumString** copy) = 0;

protected:
    ~IEnumString() = default;
};

inline constexpr IID IID_IUnknown = {0, 0, 0, {0xc0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IEnumString = {0x101, 0, 0, {0xc0, 0, 0, 0, 0, 0, 0, 0x46}};

namespace quorvel::win32 {

// Memory that one component allocates and another one frees. Null when the allocation fails. A size
// of 0 gives a unique address. Freeing null does nothing. Any thread.
QUORVEL_API LPVOID CoTaskMemAlloc(SIZE_T size);
QUORVEL_API void CoTaskMemFree(LPVOID memory);

} // namespace quorvel::win32

#endif

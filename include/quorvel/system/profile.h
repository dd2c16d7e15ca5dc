// Typed values of the registry. Any thread. The functions never throw and never show a box.
//
// Each type has a writer and a getter, each in four forms. The forms differ in where the value is:
//   in an open key             AfxWriteProfileDWord(key, _T("Size"), 5)
//   in the key at a path       AfxWriteProfileDWord(path, _T("Size"), 5)
//   in a sub key of a key      AfxWriteProfileDWord(key, _T("Window"), _T("Size"), 5)
//   in a sub key of a path     AfxWriteProfileDWord(path, _T("Window"), _T("Size"), 5)
// A getter has a default in the place of the value: AfxGetProfileDWord(path, _T("Size"), 0).
//
// Writers create missing keys. Getters create nothing, but they open keys for reading and writing,
// so for a key that the user may only read they return the default. All of them close the keys that
// they opened. See registry_path.h for how keys are opened and closed.
//
// A writer returns FALSE when a pointer is null, the path is invalid or the system refuses. A
// getter returns the default when a pointer is null, the path is invalid, the value does not exist,
// or its type or size differs. An empty name means the default value of the key. A null sub key is
// refused; an empty sub key is the key itself.
#pragma once

#include <quorvel/framework/date_time.h>
#include <quorvel/system/registry_path.h>

// REG_DWORD, 4 bytes.
QUORVEL_API BOOL AfxWriteProfileDWord(HKEY key, const WCHAR* name, DWORD value);
QUORVEL_API BOOL AfxWriteProfileDWord(const CRegistryPath& path, const WCHAR* name, DWORD value);
QUORVEL_API BOOL AfxWriteProfileDWord(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                      DWORD value);
QUORVEL_API BOOL AfxWriteProfileDWord(const CRegistryPath& path, const WCHAR* subKey,
                                      const WCHAR* name, DWORD value);
QUORVEL_API DWORD AfxGetProfileDWord(HKEY key, const WCHAR* name, DWORD defaultValue);
QUORVEL_API DWORD AfxGetProfileDWord(const CRegistryPath& path, const WCHAR* name,
                                     DWORD defaultValue);
QUORVEL_API DWORD AfxGetProfileDWord(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                     DWORD defaultValue);
QUORVEL_API DWORD AfxGetProfileDWord(const CRegistryPath& path, const WCHAR* subKey,
                                     const WCHAR* name, DWORD defaultValue);

// REG_QWORD, 8 bytes.
QUORVEL_API BOOL AfxWriteProfileQWord(HKEY key, const WCHAR* name, ULONGLONG value);
QUORVEL_API BOOL AfxWriteProfileQWord(const CRegistryPath& path, const WCHAR* name,
                                      ULONGLONG value);
QUORVEL_API BOOL AfxWriteProfileQWord(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                      ULONGLONG value);
QUORVEL_API BOOL AfxWriteProfileQWord(const CRegistryPath& path, const WCHAR* subKey,
                                      const WCHAR* name, ULONGLONG value);
QUORVEL_API ULONGLONG AfxGetProfileQWord(HKEY key, const WCHAR* name, ULONGLONG defaultValue);
QUORVEL_API ULONGLONG AfxGetProfileQWord(const CRegistryPath& path, const WCHAR* name,
                                         ULONGLONG defaultValue);
QUORVEL_API ULONGLONG AfxGetProfileQWord(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                         ULONGLONG defaultValue);
QUORVEL_API ULONGLONG AfxGetProfileQWord(const CRegistryPath& path, const WCHAR* subKey,
                                         const WCHAR* name, ULONGLONG defaultValue);

// REG_SZ, written with its terminator. A text that was stored without a terminator is read in full;
// any other text is read up to its first zero. An odd last byte is ignored. A null value is
// refused, an empty one is written. The getters return an empty text instead of the default when
// the key, a name or the default is null, and when the sub key of an open key cannot be opened.
QUORVEL_API BOOL AfxWriteProfileString(HKEY key, const WCHAR* name, const WCHAR* value);
QUORVEL_API BOOL AfxWriteProfileString(const CRegistryPath& path, const WCHAR* name,
                                       const WCHAR* value);
QUORVEL_API BOOL AfxWriteProfileString(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                       const WCHAR* value);
QUORVEL_API BOOL AfxWriteProfileString(const CRegistryPath& path, const WCHAR* subKey,
                                       const WCHAR* name, const WCHAR* value);
QUORVEL_API CString AfxGetProfileString(HKEY key, const WCHAR* name, const WCHAR* defaultValue);
QUORVEL_API CString AfxGetProfileString(const CRegistryPath& path, const WCHAR* name,
                                        const WCHAR* defaultValue);
QUORVEL_API CString AfxGetProfileString(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                        const WCHAR* defaultValue);
QUORVEL_API CString AfxGetProfileString(const CRegistryPath& path, const WCHAR* subKey,
                                        const WCHAR* name, const WCHAR* defaultValue);

// REG_BINARY. The writers refuse null data and a length of 0. The getters return TRUE with a new
// buffer, which the caller frees with delete[]. On FALSE they set *data to null and *length to 0,
// except when a pointer is null or the key cannot be opened: then both are unchanged.
QUORVEL_API BOOL AfxWriteProfileBinary(HKEY key, const WCHAR* name, BYTE* data, UINT length);
QUORVEL_API BOOL AfxWriteProfileBinary(const CRegistryPath& path, const WCHAR* name, BYTE* data,
                                       UINT length);
QUORVEL_API BOOL AfxWriteProfileBinary(HKEY key, const WCHAR* subKey, const WCHAR* name, BYTE* data,
                                       UINT length);
QUORVEL_API BOOL AfxWriteProfileBinary(const CRegistryPath& path, const WCHAR* subKey,
                                       const WCHAR* name, BYTE* data, UINT length);
QUORVEL_API BOOL AfxGetProfileBinary(HKEY key, const WCHAR* name, BYTE** data, UINT* length);
QUORVEL_API BOOL AfxGetProfileBinary(const CRegistryPath& path, const WCHAR* name, BYTE** data,
                                     UINT* length);
QUORVEL_API BOOL AfxGetProfileBinary(HKEY key, const WCHAR* subKey, const WCHAR* name, BYTE** data,
                                     UINT* length);
QUORVEL_API BOOL AfxGetProfileBinary(const CRegistryPath& path, const WCHAR* subKey,
                                     const WCHAR* name, BYTE** data, UINT* length);

// REG_BINARY, 12 bytes: the date as a double, then the status in 4 bytes. The getters return the
// stored bytes unchecked, even with an unknown status or with the status valid and a number that is
// NaN or out of range. COleDateTime treats such a number as an invalid date.
QUORVEL_API BOOL AfxWriteProfileOleDateTime(HKEY key, const WCHAR* name, const COleDateTime& value);
QUORVEL_API BOOL AfxWriteProfileOleDateTime(const CRegistryPath& path, const WCHAR* name,
                                            const COleDateTime& value);
QUORVEL_API BOOL AfxWriteProfileOleDateTime(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                            const COleDateTime& value);
QUORVEL_API BOOL AfxWriteProfileOleDateTime(const CRegistryPath& path, const WCHAR* subKey,
                                            const WCHAR* name, const COleDateTime& value);
QUORVEL_API COleDateTime AfxGetProfileOleDateTime(HKEY key, const WCHAR* name,
                                                  COleDateTime defaultValue);
QUORVEL_API COleDateTime AfxGetProfileOleDateTime(const CRegistryPath& path, const WCHAR* name,
                                                  COleDateTime defaultValue);
QUORVEL_API COleDateTime AfxGetProfileOleDateTime(HKEY key, const WCHAR* subKey, const WCHAR* name,
                                                  COleDateTime defaultValue);
QUORVEL_API COleDateTime AfxGetProfileOleDateTime(const CRegistryPath& path, const WCHAR* subKey,
                                                  const WCHAR* name, COleDateTime defaultValue);

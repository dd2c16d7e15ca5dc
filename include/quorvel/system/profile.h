// Values of the registry by name and type. Any thread; nothing throws and nothing is shown.
//
// Each type has a writer and a getter, and each of these four forms. The value lies
//   - in a key that is open,
//   - in the key of a path,
//   - in the sub key of a key that is open,
//   - in the sub key of a path.
// Writers make the keys that are missing; getters make nothing, but open their keys for reading and
// writing, so in a registry that may only be read they find nothing. All close what they opened.
// How a key is opened and closed: registry_path.h.
//
// A writer returns FALSE when a pointer is null or the path invalid, and otherwise when the system
// refuses. A getter returns the default when a pointer is null, the path is invalid, there is no
// such value or it is not of exactly this kind and size. An empty name is that of a key's default
// value. A null sub key is refused, an empty one is the key itself.
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

// REG_SZ with its terminator. A text that was stored without one is read whole, any other one up to
// its first zero; half a unit at the end does not count. A null value is refused, an empty one
// written. The result is empty, not the default, when the key, a name or the default is null, and
// when the sub key of an open key cannot be opened.
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
// buffer, which the caller frees with delete[]. FALSE leaves null and 0; it leaves both as they
// were when a pointer is null or the key cannot be opened.
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

// REG_BINARY, 12 bytes: the date as a double, then the status in 4. A date comes back as its bytes
// were stored, also one whose status is none of the three or is valid for a number out of range or
// for none at all (NaN). What COleDateTime makes of such a number is as for an invalid date.
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

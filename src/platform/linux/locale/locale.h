// Languages and their formats. Any thread.
//
// The user's locale is read once from the environment: from LC_ALL, otherwise LC_NUMERIC, otherwise
// LANG, for example "de_DE.UTF-8" or "sr_RS@latin". "C", "POSIX" and unknown names mean English
// (United States). A locale without a Windows id (en_DK) has the id LOCALE_CUSTOM_DEFAULT. Names
// and formats are ICU's. The invariant language (0x007f) and sort orders (the upper half of an
// LCID) are not supported.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <string>

namespace quorvel::win32 {

LCID GetUserDefaultLCID();
LANGID GetUserDefaultLangID();

// TRUE for the ids of Windows, with neutral ones (sub-language 0). The flags have no effect.
BOOL IsValidLocale(LCID locale, DWORD flags);

// LOCALE_SABBREVLANGNAME, _SLANGUAGE (in the user's language), _SENGLANGUAGE, _SNATIVELANGNAME,
// _SDECIMAL, _STHOUSAND, _SGROUPING, _IDIGITS, _ILZERO, _INEGNUMBER, _STIME. Returns the length
// with the terminator; a length of 0 asks for it. 0 with 87 for an unknown locale or a bad buffer,
// 1004 for another item, 122 for a too small buffer, which is unchanged.
int GetLocaleInfoW(LCID locale, LCTYPE item, LPWSTR text, int length);

// Groups the digits of a whole number by `format`. `value` has digits only, without leading zeros.
// Results as above; also 87 for any other value, a null format or one with decimals, and flags.
int GetNumberFormatW(LCID locale, DWORD flags, LPCWSTR value, const NUMBERFMTW* format, LPWSTR text,
                     int length);

// "532 bytes", "1.50 KB", ... "7.99 EB": three digits, cut and not rounded, with the user's decimal
// separator. Bytes, also negative counts, are written in full and always in English. Returns the
// buffer. Cuts a text that does not fit.
LPWSTR StrFormatByteSizeW(LONGLONG size, LPWSTR text, UINT length);

} // namespace quorvel::win32

namespace quorvel {

// ICU's name of a locale; null for an unknown one.
const char* IcuLocaleName(LCID locale);

// The id of a locale with a name from the environment.
LCID LocaleIdOf(const std::string& posixName);

// The value of a locale item, for other operations of the platform; empty for an unknown item.
std::u16string LocaleItem(LCID locale, LCTYPE item);

// Copies a result and its terminator. Returns its length with the terminator, or 0 with the last
// error set.
int ReturnText(const std::u16string& result, LPWSTR text, int length);

} // namespace quorvel

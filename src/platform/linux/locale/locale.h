// Languages and what is written differently in them. Any thread.
//
// The user's locale is read once from the environment: LC_ALL, else LC_NUMERIC, else LANG, as in
// "de_DE.UTF-8" or "sr_RS@latin". "C" and "POSIX", and names that mean nothing, are English
// (United States). A locale without a Windows id (en_DK) has the id LOCALE_CUSTOM_DEFAULT. Names
// and formats are ICU's; the invariant language (0x007f) and sort orders (an LCID's upper half) are
// not provided.
#pragma once

#include <quorvel/platform/linux_types.h>

#include <string>

namespace quorvel::win32 {

LCID GetUserDefaultLCID();
LANGID GetUserDefaultLangID();

// Of the ids of Windows, neutral ones (a sub-language of 0) included. The flags make no difference.
BOOL IsValidLocale(LCID locale, DWORD flags);

// LOCALE_SABBREVLANGNAME, _SLANGUAGE (in the user's language), _SENGLANGUAGE, _SNATIVELANGNAME,
// _SDECIMAL, _STHOUSAND, _SGROUPING, _IDIGITS, _ILZERO, _INEGNUMBER and _STIME. Returns the length
// with the terminator; a length of 0 asks for it. 0 and the error 87 for an unknown locale or a bad
// buffer, 1004 for another item, 122 for a buffer too small, which is then unchanged.
int GetLocaleInfoW(LCID locale, LCTYPE item, LPWSTR text, int length);

// Groups a whole number, given as its digits without leading zeros, the way of `format`. Returns as
// above; 87 also for any other value, a format with decimals or none, and flags.
int GetNumberFormatW(LCID locale, DWORD flags, LPCWSTR value, const NUMBERFMTW* format, LPWSTR text,
                     int length);

// "532 bytes", "1.50 KB", ... "7.99 EB": three digits, cut and not rounded, with the user's decimal
// separator. Bytes, negative counts too, are written in full and always in English. Returns the
// buffer; a text that does not fit is cut.
LPWSTR StrFormatByteSizeW(LONGLONG size, LPWSTR text, UINT length);

} // namespace quorvel::win32

namespace quorvel {

// ICU's name of a locale; null for an unknown one.
const char* IcuLocaleName(LCID locale);

// The id of a locale named as the environment names it.
LCID LocaleIdOf(const std::string& posixName);

// What a locale item is, for other operations of the platform; empty for one that there is not.
std::u16string LocaleItem(LCID locale, LCTYPE item);

// Copies a result with its terminator as the locale operations do: returns its length with it, or 0
// with the last error set.
int ReturnText(const std::u16string& result, LPWSTR text, int length);

} // namespace quorvel

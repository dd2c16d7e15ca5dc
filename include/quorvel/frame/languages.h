// Languages by their ids, and the resource libraries that hold the texts of one language each.
//
// Every function has a second form that takes the primary language and the sub-language, which make
// the id sub << 10 | primary. Texts are emptied first and stay empty on failure. Any thread.
//
// A template names the libraries of one build configuration, as "Quorvel_%s.dll" does: its first
// "%s" becomes the language's abbreviation and "%%" becomes "%"; anything else stands for itself,
// and a template without "%s" names the same file for every language.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <vector>

// The locale's names: "DEU"; language and country in the user's language, "German (Germany)"; the
// language in English, "German", and in itself, "Deutsch". FALSE for a language that the system
// does not support.
QUORVEL_API BOOL AfxGetAbbreviatedLanguageName(LANGID language, CString& name);
QUORVEL_API BOOL AfxGetAbbreviatedLanguageName(WORD primary, WORD sub, CString& name);
QUORVEL_API BOOL AfxGetLanguageName(LANGID language, CString& name);
QUORVEL_API BOOL AfxGetLanguageName(WORD primary, WORD sub, CString& name);
QUORVEL_API BOOL AfxGetLanguageEnglishName(LANGID language, CString& name);
QUORVEL_API BOOL AfxGetLanguageEnglishName(WORD primary, WORD sub, CString& name);
QUORVEL_API BOOL AfxGetNativeLanguageName(LANGID language, CString& name);
QUORVEL_API BOOL AfxGetNativeLanguageName(WORD primary, WORD sub, CString& name);

// FALSE for a null or empty template or folder and for a language that is not supported. A path is
// the folder without its trailing backslashes, one backslash and the file name, on Linux too.
QUORVEL_API BOOL AfxGetResourceDLLFileName(const WCHAR* nameTemplate, LANGID language,
                                           CString& fileName);
QUORVEL_API BOOL AfxGetResourceDLLFileName(const WCHAR* nameTemplate, WORD primary, WORD sub,
                                           CString& fileName);
QUORVEL_API BOOL AfxGetResourceDLLPathName(const WCHAR* folder, const WCHAR* nameTemplate,
                                           LANGID language, CString& pathName);
QUORVEL_API BOOL AfxGetResourceDLLPathName(const WCHAR* folder, const WCHAR* nameTemplate,
                                           WORD primary, WORD sub, CString& pathName);
QUORVEL_API BOOL AfxIsResourceDLLPresent(const WCHAR* folder, const WCHAR* nameTemplate,
                                         LANGID language);
QUORVEL_API BOOL AfxIsResourceDLLPresent(const WCHAR* folder, const WCHAR* nameTemplate,
                                         WORD primary, WORD sub);

// Appends 1033 (English, United States: the library's own texts) and then, by primary and
// sub-language, every other id whose library is in the folder; several ids share an abbreviation,
// and so a file. FALSE, and the vector unchanged, for a null or empty folder and for a null
// template; an empty one names no library.
QUORVEL_API BOOL AfxEnumerateResourceDLLs(const WCHAR* folder, const WCHAR* nameTemplate,
                                          std::vector<unsigned short>& languages);

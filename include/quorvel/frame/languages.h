// Languages by their ids, and resource libraries, which each contain the texts of one language.
//
// Every function has a second form that takes primary language and sub-language; the id is sub <<
// 10 | primary. On failure the text is empty. Any thread.
//
// A template names the libraries of one build configuration, such as "Quorvel_%s.dll". Its first
// "%s" is replaced by the language's abbreviation and "%%" by "%"; nothing else is special. A
// template without "%s" names the same file for every language.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <vector>

// Names of a language, for example "DEU"; "German (Germany)", language and country in the user's
// language; "German", in English; "Deutsch", in the language itself. FALSE for a language that the
// system does not support.
QUORVEL_API BOOL AfxGetAbbreviatedLanguageName(LANGID language, CString& name);
QUORVEL_API BOOL AfxGetAbbreviatedLanguageName(WORD primary, WORD sub, CString& name);
QUORVEL_API BOOL AfxGetLanguageName(LANGID language, CString& name);
QUORVEL_API BOOL AfxGetLanguageName(WORD primary, WORD sub, CString& name);
QUORVEL_API BOOL AfxGetLanguageEnglishName(LANGID language, CString& name);
QUORVEL_API BOOL AfxGetLanguageEnglishName(WORD primary, WORD sub, CString& name);
QUORVEL_API BOOL AfxGetNativeLanguageName(LANGID language, CString& name);
QUORVEL_API BOOL AfxGetNativeLanguageName(WORD primary, WORD sub, CString& name);

// FALSE for a null or empty template or folder, and for an unsupported language. A path is the
// folder without trailing backslashes, one backslash (on Linux too), and the file name.
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

// Appends 1033 (English, United States: the library's own texts), then every other id whose library
// is in the folder, ordered by primary language and sub-language. Ids with the same abbreviation
// share a file. Returns FALSE and leaves the vector unchanged for a null or empty folder and for a
// null template. An empty template adds only 1033.
QUORVEL_API BOOL AfxEnumerateResourceDLLs(const WCHAR* folder, const WCHAR* nameTemplate,
                                          std::vector<unsigned short>& languages);

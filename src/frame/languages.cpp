#include <quorvel/frame/languages.h>

#include <quorvel/framework/object.h>

#include "platform/win32.h"

namespace {

constexpr int kAbbreviationSize = 10; // in characters, with the terminator
constexpr int kNameSize = 100;
constexpr LANGID kEnglishUnitedStates = 1033;
constexpr WORD kLastPrimaryLanguage = 101;
constexpr WORD kLastSubLanguage = 20;

LANGID MakeLanguage(WORD primary, WORD sub) {
    return MAKELANGID(primary, sub);
}

BOOL GetLocaleItem(LANGID language, LCTYPE item, int size, CString& text) {
    text.Empty();
    const LCID locale = language; // with the default sort order
    if (!IsValidLocale(locale, LCID_SUPPORTED))
        return FALSE;
    const int length = GetLocaleInfoW(locale, item, text.GetBuffer(size), size);
    text.ReleaseBuffer(length > 0 ? length - 1 : 0);
    return length > 0;
}

bool IsEmptyOrNull(const WCHAR* text) {
    return text == nullptr || *text == 0;
}

// The host supplies the template, so it is never passed to printf.
CString ExpandTemplate(const WCHAR* nameTemplate, const CString& abbreviation) {
    CString name;
    bool expanded = false;
    for (const WCHAR* next = nameTemplate; *next != 0; ++next) {
        if (next[0] == '%' && next[1] == 's' && !expanded) {
            name += abbreviation;
            expanded = true;
            ++next;
        } else {
            name += *next;
            if (next[0] == '%' && next[1] == '%')
                ++next;
        }
    }
    return name;
}

} // namespace

BOOL AfxGetAbbreviatedLanguageName(LANGID language, CString& name) {
    return GetLocaleItem(language, LOCALE_SABBREVLANGNAME, kAbbreviationSize, name);
}
BOOL AfxGetAbbreviatedLanguageName(WORD primary, WORD sub, CString& name) {
    return AfxGetAbbreviatedLanguageName(MakeLanguage(primary, sub), name);
}

BOOL AfxGetLanguageName(LANGID language, CString& name) {
    return GetLocaleItem(language, LOCALE_SLANGUAGE, kNameSize, name);
}
BOOL AfxGetLanguageName(WORD primary, WORD sub, CString& name) {
    return AfxGetLanguageName(MakeLanguage(primary, sub), name);
}

BOOL AfxGetLanguageEnglishName(LANGID language, CString& name) {
    return GetLocaleItem(language, LOCALE_SENGLANGUAGE, kNameSize, name);
}
BOOL AfxGetLanguageEnglishName(WORD primary, WORD sub, CString& name) {
    return AfxGetLanguageEnglishName(MakeLanguage(primary, sub), name);
}

BOOL AfxGetNativeLanguageName(LANGID language, CString& name) {
    return GetLocaleItem(language, LOCALE_SNATIVELANGNAME, kNameSize, name);
}
BOOL AfxGetNativeLanguageName(WORD primary, WORD sub, CString& name) {
    return AfxGetNativeLanguageName(MakeLanguage(primary, sub), name);
}

BOOL AfxGetResourceDLLFileName(const WCHAR* nameTemplate, LANGID language, CString& fileName) {
    CString abbreviation;
    if (IsEmptyOrNull(nameTemplate) || !AfxGetAbbreviatedLanguageName(language, abbreviation)) {
        fileName.Empty();
        return FALSE;
    }
    fileName = ExpandTemplate(nameTemplate, abbreviation);
    return TRUE;
}
BOOL AfxGetResourceDLLFileName(const WCHAR* nameTemplate, WORD primary, WORD sub,
                               CString& fileName) {
    return AfxGetResourceDLLFileName(nameTemplate, MakeLanguage(primary, sub), fileName);
}

BOOL AfxGetResourceDLLPathName(const WCHAR* folder, const WCHAR* nameTemplate, LANGID language,
                               CString& pathName) {
    CString fileName;
    if (IsEmptyOrNull(folder) || !AfxGetResourceDLLFileName(nameTemplate, language, fileName)) {
        pathName.Empty();
        return FALSE;
    }
    pathName = CString(folder).TrimRight('\\') + _T("\\") + fileName;
    return TRUE;
}
BOOL AfxGetResourceDLLPathName(const WCHAR* folder, const WCHAR* nameTemplate, WORD primary,
                               WORD sub, CString& pathName) {
    return AfxGetResourceDLLPathName(folder, nameTemplate, MakeLanguage(primary, sub), pathName);
}

BOOL AfxIsResourceDLLPresent(const WCHAR* folder, const WCHAR* nameTemplate, LANGID language) {
    CString pathName;
    if (!AfxGetResourceDLLPathName(folder, nameTemplate, language, pathName))
        return FALSE;
    const DWORD attributes = GetFileAttributesW(pathName);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}
BOOL AfxIsResourceDLLPresent(const WCHAR* folder, const WCHAR* nameTemplate, WORD primary,
                             WORD sub) {
    return AfxIsResourceDLLPresent(folder, nameTemplate, MakeLanguage(primary, sub));
}

BOOL AfxEnumerateResourceDLLs(const WCHAR* folder, const WCHAR* nameTemplate,
                              std::vector<unsigned short>& languages) {
    if (IsEmptyOrNull(folder) || !AfxIsValidString(nameTemplate))
        return FALSE;
    languages.push_back(kEnglishUnitedStates);
    for (WORD primary = 1; primary <= kLastPrimaryLanguage; ++primary)
        for (WORD sub = 0; sub <= kLastSubLanguage; ++sub) {
            const LANGID language = MakeLanguage(primary, sub);
            if (language != kEnglishUnitedStates &&
                AfxIsResourceDLLPresent(folder, nameTemplate, language))
                languages.push_back(language);
        }
    return TRUE;
}

// The language of a program that has libraries of resources next to it, one for each language.
// Windows only, user-interface thread. languages.h describes the templates of their names.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <utility>
#include <vector>

// Takes the program's menus, dialogs and texts from its library for the language, and this
// library's from the other one. Both libraries are next to the program. Language 0 is that of the
// system. Returns FALSE when one of the two is missing or cannot be loaded; then the program and
// this library use their own resources. Existing windows keep their texts. The libraries stay
// loaded.
QUORVEL_API BOOL AfxInstallLanguage(const WCHAR* programTemplate, const WCHAR* libraryTemplate,
                                    LANGID language);

// The languages that the program can be set to, with their names in themselves ("Deutsch"):
// English first, then one for each library of the program.
QUORVEL_API void AfxGetProgramLanguages(const WCHAR* programTemplate,
                                        std::vector<std::pair<LANGID, CString>>& languages);

// The language of a program that has libraries of resources beside it, one for each language.
// Windows only, user-interface thread. The templates of their names are those of languages.h.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/platform/platform.h>

#include <utility>
#include <vector>

// Takes the program's menus, dialogs and texts from its library for the language, and this
// library's from the other one, both beside the program; language 0 is that of the system. FALSE
// where one of the two is missing or can't be loaded: the program's and the library's own resources
// are then in force. Windows that exist keep their texts. The libraries stay loaded.
QUORVEL_API BOOL AfxInstallLanguage(const WCHAR* programTemplate, const WCHAR* libraryTemplate,
                                    LANGID language);

// The languages that the program can be set to, with their names in themselves ("Deutsch"):
// English first, then one for each library of the program.
QUORVEL_API void AfxGetProgramLanguages(const WCHAR* programTemplate,
                                        std::vector<std::pair<LANGID, CString>>& languages);

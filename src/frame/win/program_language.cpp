#include <quorvel/frame/win/program_language.h>

#include <quorvel/frame/languages.h>
#include <quorvel/frame/module.h>
#include <quorvel/framework/extension_module.h>

#include <algorithm>

namespace {

CString ProgramFolder() {
    WCHAR path[MAX_PATH];
    const CString program(path, static_cast<int>(::GetModuleFileNameW(nullptr, path, MAX_PATH)));
    return program.Left(program.ReverseFind('\\'));
}

HMODULE LoadResources(const WCHAR* nameTemplate, LANGID language) {
    CString path;
    if (!AfxGetResourceDLLPathName(ProgramFolder(), nameTemplate, language, path))
        return nullptr;
    return ::LoadLibraryExW(path, nullptr, LOAD_LIBRARY_AS_DATAFILE);
}

} // namespace

BOOL AfxInstallLanguage(const WCHAR* programTemplate, const WCHAR* libraryTemplate,
                        LANGID language) {
    if (language == 0)
        language = ::GetUserDefaultUILanguage();
    const HMODULE program = LoadResources(programTemplate, language);
    const HMODULE library = program != nullptr ? LoadResources(libraryTemplate, language) : nullptr;
    if (program != nullptr && library == nullptr)
        ::FreeLibrary(program);
    AfxSetResourceHandle(library != nullptr ? program : nullptr);
    QuorvelSetResourceHandle(library != nullptr ? library : QuorvelGetInstanceHandle());
    return library != nullptr;
}

void AfxGetProgramLanguages(const WCHAR* programTemplate,
                            std::vector<std::pair<LANGID, CString>>& languages) {
    languages.clear();
    std::vector<unsigned short> ids;
    AfxEnumerateResourceDLLs(ProgramFolder(), programTemplate, ids);
    for (const unsigned short id : ids) {
        CString name;
        // One library serves all countries of its language: that is shown once.
        const auto isShown = [&name](const auto& each) { return each.second == name; };
        if (AfxGetNativeLanguageName(PRIMARYLANGID(id), SUBLANG_DEFAULT, name) &&
            std::none_of(languages.begin(), languages.end(), isShown))
            languages.emplace_back(id, name);
    }
}

// Modules and their resources: the sample files of tests/data/pe and the language library, the same
// on both systems.
#include "platform/win32.h"

#include "support/samples.h"
#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

constexpr DWORD kAsData = LOAD_LIBRARY_AS_DATAFILE;

CString Own(const WCHAR* name) { // loadable as a module
    return CString(QUORVEL_OWN_SAMPLES) + _T("/") + name;
}

struct Library {
    explicit Library(const WCHAR* path, DWORD flags = 0)
        : module(LoadLibraryExW(path, nullptr, flags)) {}
    ~Library() { EXPECT_TRUE(module == nullptr || FreeLibrary(module)); }
    const HMODULE module;
};

TEST(ModuleConformance, LoadingGivesTheErrorOfEachKindOfFile) {
    const TemporaryFolder folder;
    folder.Write(_T("empty.dll"), "");
    folder.Write(_T("short.dll"), "MZ");
    // Error 0 means that it loads.
    const std::tuple<const char*, CString, DWORD, DWORD> rows[] = {
        {"resources alone", Own(_T("full.dll")), 0, 0},
        {"missing", Own(_T("missing.dll")), 0, 126},
        {"text", Sample(_T("full.rc")), 0, 193},
        {"two bytes, as data", folder.Path(_T("short.dll")), kAsData, 193},
        {"empty", folder.Path(_T("empty.dll")), 0, kOnLinux ? 1006u : 193u}, // 1006 on Windows
        {"empty, as data", folder.Path(_T("empty.dll")), kAsData, 1006},
        {"no name", _T(""), 0, 126},
    };
    for (const auto& [label, path, flags, error] : rows)
        EXPECT_EQ(error, ErrorOf([&] { return Library(path, flags).module != nullptr; })) << label;
}

TEST(ModuleConformance, AModuleIsSharedUntilItsLastUserFreesIt) {
    const HMODULE first = LoadLibraryW(Own(_T("full.dll")));
    ASSERT_NE(nullptr, first);
    const CString folder(QUORVEL_OWN_SAMPLES);
    const CString leaf = folder.Mid(folder.ReverseFind('/'));
    EXPECT_EQ(first, LoadLibraryW(folder + _T("/..") + leaf + _T("/./full")));
    EXPECT_EQ(first, LoadLibraryExW(Own(_T("full.dll")), nullptr, kAsData));
    EXPECT_EQ(first, GetModuleHandleW(_T("FULL")));
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(FreeLibrary(first));
    EXPECT_EQ(126u, ErrorOf([] { return GetModuleHandleW(_T("full.dll")) != nullptr; }));

    const Library data(Own(_T("strings_only.dll")), kAsData);
    EXPECT_EQ(nullptr, GetModuleHandleW(_T("strings_only.dll"))) << "data is no module";

    EXPECT_EQ(126u, ErrorOf([=] { return FreeLibrary(first); })) << "freed";
}

TEST(ModuleConformance, FileNamesAreCutToTheBuffer) {
    const Library library(Own(_T("full.dll")));
    const Library data(Own(_T("strings_only.dll")), kAsData);
    WCHAR path[MAX_PATH] = {}, cut[MAX_PATH] = {'#'};
    const DWORD length = GetModuleFileNameW(library.module, path, MAX_PATH);
    EXPECT_EQ(126u, ErrorOf([&] { return GetModuleFileNameW(data.module, cut, 100) != 0; }));
    EXPECT_EQ('#', cut[0]);
    EXPECT_EQ(length, GetModuleFileNameW(library.module, cut, length));
    EXPECT_EQ(122u, GetLastError());
    // Wine writes one more character in the place of Windows' terminator.
    EXPECT_EQ(CString(path, length - 1), CString(cut, length - 1));
}

TEST(ModuleConformance, StringsAreFoundByBlockAndDefaultLanguage) {
    const Library full(Own(_T("full.dll")));
    const Library none(Sample(_T("no_resources.dll")), kAsData);
    const std::tuple<const char*, HMODULE, UINT, CString, DWORD> rows[] = {
        {"neutral before English", full.module, 300, _T("neutral"), kUnset},
        {"every plane", full.module, 101, _T("20 € für 日本語 😀"), kUnset},
        {"the highest", full.module, 65535, _T("the highest id"), kUnset},
        {"a hole in a block", full.module, 102, _T(""), kUnset},
        {"no such block", full.module, 5000, _T(""), 1814},
        {"no resources", none.module, 1, _T(""), 1812},
    };
    for (const auto& [label, module, id, text, error] : rows) {
        WCHAR buffer[100];
        SetLastError(kUnset);
        EXPECT_EQ(text, CString(buffer, LoadStringW(module, id, buffer, 100))) << label;
        EXPECT_EQ(error, GetLastError()) << label;
    }
}

TEST(ModuleConformance, AStringIsCutToTheBufferOrShownInPlace) {
    const Library library(Own(_T("full.dll")));
    WCHAR buffer[] = _T("##########");
    EXPECT_EQ(6, LoadStringW(library.module, 100, buffer, 7));
    EXPECT_EQ(CString(_T("Englis\0#"), 8), CString(buffer, 8));
    const WCHAR* place = nullptr;
    ASSERT_EQ(7, LoadStringW(library.module, 100, reinterpret_cast<LPWSTR>(&place), 0));
    EXPECT_EQ(CString(_T("English")), CString(place, 7));
}

CString g_names; // each followed by a semicolon
BOOL CALLBACK AddName(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR limit) {
    g_names.AppendFormat(IS_INTRESOURCE(name) ? _T("%Iu;") : _T("%s;"), name);
    return g_names.GetLength() < limit;
}

TEST(ModuleConformance, ResourcesOfATypeAreNamed) {
    const DWORD ended = kOnLinux ? 15106 : kUnset; // Wine does not set it
    const std::tuple<const WCHAR*, LPCWSTR, LONG_PTR, const WCHAR*, DWORD> rows[] = {
        {_T("keys.dll"), RT_ACCELERATOR, 99, _T("MAIN;7;8;"), 0},
        {_T("keys.dll"), RT_ACCELERATOR, 6, _T("MAIN;7;"), ended},
        {_T("keys.dll"), RT_VERSION, 99, _T(""), 1813},
        {_T("no_resources.dll"), RT_MENU, 99, _T(""), 1812},
    };
    for (const auto& [file, type, limit, expected, error] : rows) {
        const Library library(Sample(file), kAsData);
        g_names.Empty();
        EXPECT_EQ(ErrorOf([&, wanted = type, most = limit] {
                      return EnumResourceNamesW(library.module, wanted, AddName, most);
                  }),
                  error)
            << CString(file);
        EXPECT_EQ(g_names, expected);
    }
}

} // namespace

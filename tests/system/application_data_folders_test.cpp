#include <quorvel/system/application_data_folders.h>

#include "platform/shell.h"
#include "support/environment.h"
#include "support/test.h"

namespace {

typedef CApplicationDataFolders Folders;

CString Root(int folder) {
    WCHAR path[MAX_PATH];
    return SUCCEEDED(SHGetFolderPathW(nullptr, folder, nullptr, 0, path)) ? CString(path)
                                                                          : CString();
}

typedef BOOL (Folders::*Member)(CString&, int) const;

CString Get(const Folders& folders, Member member, int addBackslash = 0) {
    CString path = _T("marker");
    EXPECT_TRUE((folders.*member)(path, addBackslash));
    return path;
}

// Replaces each "/" by the system's separator.
CString Native(CString path) {
    path.Replace('/', kOnLinux ? '/' : '\\');
    return path;
}

TEST(ApplicationDataFolders, NamesFollowTheRootOneBelowTheOther) {
    const std::tuple<int, Member, Member, Member> rows[] = {
        {CSIDL_COMMON_APPDATA, &Folders::GetComputerCompanyNameFolder,
         &Folders::GetComputerProductNameFolder, &Folders::GetComputerProductVersionFolder},
        {CSIDL_APPDATA, &Folders::GetUserCompanyNameFolder, &Folders::GetUserProductNameFolder,
         &Folders::GetUserProductVersionFolder},
        {CSIDL_LOCAL_APPDATA, &Folders::GetUserLocalCompanyNameFolder,
         &Folders::GetUserLocalProductNameFolder, &Folders::GetUserLocalProductVersionFolder},
    };
    const Folders folders(_T("Company"), _T("Product"), _T("1.2"));
    for (const auto& [root, company, product, version] : rows) {
        EXPECT_EQ(Root(root) + Native(_T("/Company")), Get(folders, company));
        EXPECT_EQ(Root(root) + Native(_T("/Company/Product")), Get(folders, product));
        EXPECT_EQ(Root(root) + Native(_T("/Company/Product/1.2/")), Get(folders, version, 2));
        EXPECT_EQ(Root(root), Get(Folders(), version));
    }
    const CString root = Root(CSIDL_APPDATA);
    const Folders odd(_T("a\\..\\b"), _T("\\c"), _T(".\\d")), slash(_T("a"), _T("\\"), _T(""));
    EXPECT_EQ(root + Native(_T("/b/c/d")), Get(odd, &Folders::GetUserProductVersionFolder));
    EXPECT_EQ(root + Native(_T("/a")), Get(slash, &Folders::GetUserProductVersionFolder));
}

TEST(ApplicationDataFolders, APathThatDoesNotFitLeavesTheOutputAlone) {
    const int room = 259 - Root(CSIDL_APPDATA).GetLength();
    const std::tuple<int, int, bool> rows[] = {
        {room - 1, 0, true}, {room, 0, false}, {room - 1, 1, false}};
    for (const auto& [length, addBackslash, fits] : rows) {
        const Folders folders(CString(WCHAR{'x'}, length), _T(""), _T(""));
        EXPECT_EQ(fits ? 259 : 6,
                  Get(folders, &Folders::GetUserCompanyNameFolder, addBackslash).GetLength());
    }
    EXPECT_EQ(_T("marker"), Get(Folders(_T("c"), CString(WCHAR{'x'}, 300), _T("v")),
                                &Folders::GetUserProductVersionFolder))
        << "and not the names behind the one that was too long";
}

TEST(ApplicationDataFolders, RootsOnLinuxComeFromTheEnvironment) {
    if (!kOnLinux)
        GTEST_SKIP() << "the shell knows them";
    const EnvironmentVariable home("HOME", "/home/of");
    const std::tuple<const char*, const char*, int, const WCHAR*> rows[] = {
        {"XDG_CONFIG_HOME", "/tmp//a/../config/", CSIDL_APPDATA, _T("/tmp/config")},
        {"XDG_CONFIG_HOME", "config", CSIDL_APPDATA, _T("/home/of/.config")},
        {"XDG_DATA_HOME", nullptr, CSIDL_LOCAL_APPDATA, _T("/home/of/.local/share")},
        {"XDG_DATA_DIRS", "share:../x", CSIDL_COMMON_APPDATA, _T("/usr/local/share")},
        {"XDG_DATA_DIRS", "::x:/opt/share:/usr/share", CSIDL_COMMON_APPDATA, _T("/opt/share")},
    };
    for (const auto& [name, value, root, expected] : rows) {
        const EnvironmentVariable variable(name, value);
        EXPECT_EQ(expected, Root(root)) << name << '=' << (value != nullptr ? value : "");
    }
    const EnvironmentVariable none("HOME", "home"), noFolder("XDG_DATA_HOME", nullptr);
    EXPECT_EQ(0, Root(CSIDL_LOCAL_APPDATA).Find('/')) << "in the account's home";
}

} // namespace

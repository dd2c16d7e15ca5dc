#include <quorvel/system/application_data_folders.h>

#include "platform/shell.h"
#include "support/environment.h"
#include "support/platform.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace {

typedef CApplicationDataFolders Folders;

CString Root(int folder) {
    WCHAR path[MAX_PATH];
    return SUCCEEDED(SHGetFolderPathW(nullptr, folder, nullptr, 0, path)) ? CString(path)
                                                                          : CString();
}

// Of a member that takes the depth, or one whose name tells it.
template <class Member, class... Depth>
CString Get(const Folders& folders, Member member, int addBackslash, Depth... depth) {
    CString path = _T("marker");
    EXPECT_TRUE((folders.*member)(depth..., path, addBackslash));
    return path;
}

CString Joined(CString path, std::initializer_list<const WCHAR*> parts) {
    for (const WCHAR* part : parts) {
        path += kOnLinux ? '/' : '\\';
        path += part;
    }
    return path;
}

TEST(ApplicationDataFolders, NamesFollowTheRootOneBelowTheOther) {
    const Folders folders(_T("Company"), _T("Product"), _T("1.2"));
    typedef BOOL (Folders::*WithDepth)(Folders::applicationDataFolderTypes, CString&, int) const;
    typedef BOOL (Folders::*Named)(CString&, int) const;
    static const struct {
        int root;
        WithDepth withDepth;
        Named company, product, version;
    } kRows[] = {
        {CSIDL_COMMON_APPDATA, &Folders::GetComputerApplicationDataFolder,
         &Folders::GetComputerCompanyNameFolder, &Folders::GetComputerProductNameFolder,
         &Folders::GetComputerProductVersionFolder},
        {CSIDL_APPDATA, &Folders::GetUserApplicationDataFolder, &Folders::GetUserCompanyNameFolder,
         &Folders::GetUserProductNameFolder, &Folders::GetUserProductVersionFolder},
        {CSIDL_LOCAL_APPDATA, &Folders::GetUserLocalApplicationDataFolder,
         &Folders::GetUserLocalCompanyNameFolder, &Folders::GetUserLocalProductNameFolder,
         &Folders::GetUserLocalProductVersionFolder},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.root);
        const CString root = Root(row.root);
        ASSERT_FALSE(root.IsEmpty());
        const CString company = Joined(root, {_T("Company")});
        const CString product = Joined(company, {_T("Product")});
        const CString version = Joined(product, {_T("1.2")});
        EXPECT_EQ(company, Get(folders, row.company, 0));
        EXPECT_EQ(product, Get(folders, row.product, 0));
        EXPECT_EQ(version, Get(folders, row.version, 0));
        EXPECT_EQ(Joined(version, {_T("")}), Get(folders, row.version, 2));
        EXPECT_EQ(product, Get(folders, row.withDepth, 0, Folders::productNameFolder));
    }
    EXPECT_EQ(Root(CSIDL_APPDATA), Get(Folders(), &Folders::GetUserProductVersionFolder, 0));
    EXPECT_EQ(Joined(Root(CSIDL_APPDATA), {_T("C"), _T("")}),
              Get(Folders(_T("C"), _T(""), _T("")), &Folders::GetUserProductVersionFolder, 1));
}

TEST(ApplicationDataFolders, APathThatDoesNotFitLeavesTheOutputAlone) {
    const int room = 259 - Root(CSIDL_APPDATA).GetLength();
    const std::tuple<int, int, bool> rows[] = {
        {room - 1, 0, true}, {room, 0, false}, {room - 2, 1, true}, {room - 1, 1, false}};
    for (const auto& [length, addBackslash, fits] : rows) {
        SCOPED_TRACE(length);
        const CString path = Get(Folders(CString(WCHAR{'x'}, length), _T(""), _T("")),
                                 &Folders::GetUserCompanyNameFolder, addBackslash);
        EXPECT_EQ(fits ? 259 : 6, path.GetLength());
    }
    EXPECT_EQ(CString(_T("marker")), Get(Folders(_T("c"), CString(WCHAR{'x'}, 300), _T("v")),
                                         &Folders::GetUserProductVersionFolder, 0))
        << "and not the names behind the one that was too long";
}

TEST(ApplicationDataFolders, NamesAreComparedByCaseAndNotSetFromNull) {
    Folders folders(_T("Company"), _T("Product"), _T("1.2"));
    EXPECT_FALSE(folders.SetCompanyName(nullptr));
    EXPECT_FALSE(folders.SetProductName(nullptr));
    EXPECT_FALSE(folders.SetProductVersion(nullptr));
    EXPECT_TRUE(folders == Folders(_T("Company"), _T("Product"), _T("1.2")));
    const Folders others[] = {{_T("company"), _T("Product"), _T("1.2")},
                              {_T("Company"), _T("product"), _T("1.2")},
                              {_T("Company"), _T("Product"), _T("1.2b")}};
    for (const Folders& other : others)
        EXPECT_TRUE(folders != other);
    EXPECT_TRUE(folders.SetCompanyName(_T("")) && folders.SetProductName(_T("p")) &&
                folders.SetProductVersion(_T("v")));
    EXPECT_EQ(_T(""), folders.GetCompanyName());
    EXPECT_EQ(_T("p"), folders.GetProductName());
    EXPECT_EQ(_T("v"), folders.GetProductVersion());
}

TEST(ApplicationDataFolders, RootsOnLinuxComeFromTheEnvironment) {
    if (!kOnLinux)
        GTEST_SKIP() << "the shell knows them";
    static const struct {
        const char *variable, *value;
        int root;
        const WCHAR* expected;
    } kRows[] = {
        {"XDG_CONFIG_HOME", "/tmp/config/", CSIDL_APPDATA, _T("/tmp/config")},
        {"XDG_CONFIG_HOME", "config", CSIDL_APPDATA, _T("/home/of/.config")},
        {"XDG_CONFIG_HOME", "", CSIDL_APPDATA, _T("/home/of/.config")},
        {"XDG_CONFIG_HOME", "/", CSIDL_APPDATA, _T("/")},
        {"XDG_DATA_HOME", "/tmp//a/../data", CSIDL_LOCAL_APPDATA, _T("/tmp/data")},
        {"XDG_DATA_HOME", nullptr, CSIDL_LOCAL_APPDATA, _T("/home/of/.local/share")},
        {"XDG_DATA_DIRS", nullptr, CSIDL_COMMON_APPDATA, _T("/usr/local/share")},
        {"XDG_DATA_DIRS", "share:../x", CSIDL_COMMON_APPDATA, _T("/usr/local/share")},
        {"XDG_DATA_DIRS", "::x:/opt/share:/usr/share", CSIDL_COMMON_APPDATA, _T("/opt/share")},
        {"XDG_DATA_DIRS", "/own/share:/usr/local/share/:/usr/share", CSIDL_COMMON_APPDATA,
         _T("/usr/local/share")},
    };
    const EnvironmentVariable home("HOME", "/home/of");
    for (const auto& row : kRows) {
        SCOPED_TRACE(testing::Message() << row.variable << '=' << (row.value ? row.value : ""));
        const EnvironmentVariable variable(row.variable, row.value);
        EXPECT_EQ(row.expected, Root(row.root));
    }
    const EnvironmentVariable variable("XDG_DATA_HOME", nullptr);
    for (const char* noHome : {static_cast<const char*>(nullptr), "", "home"}) {
        const EnvironmentVariable none("HOME", noHome);
        EXPECT_EQ(0, Root(CSIDL_LOCAL_APPDATA).Find('/')) << "the account's home";
    }
    const EnvironmentVariable tooLong("XDG_DATA_HOME", ("/" + std::string(300, 'x')).c_str());
    EXPECT_EQ(CString(_T("marker")), Get(Folders(), &Folders::GetUserLocalCompanyNameFolder, 0));
}

} // namespace

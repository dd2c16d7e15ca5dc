#include <quorvel/system/registry_path.h>

#include "support/test.h"

TEST(RegistryPath, ARootIsOneOfEight) {
    const std::tuple<unsigned, BOOL> rows[] = {
        {0x80000000, TRUE}, {0x80000005, TRUE}, {0x80000006, FALSE},
        {0x80000050, TRUE}, {0x80000060, TRUE}, {0, FALSE},
    };
    for (const auto& [number, isValid] : rows) {
        const HKEY root = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(number)));
        const CRegistryPath path(root, _T("k"));
        EXPECT_EQ(path.GetSectionKey(), isValid ? root : nullptr) << number;
    }
}

TEST(RegistryPath, AppendingPutsOneBackslashBetween) {
    const std::tuple<const WCHAR*, const WCHAR*, BOOL, const WCHAR*> rows[] = {
        {_T("A"), _T("B"), TRUE, _T("A\\B")}, {_T("A\\"), _T("B"), TRUE, _T("A\\B")},
        {_T(""), _T("B"), TRUE, _T("B")},     {_T("A"), _T("\\B"), TRUE, _T("A\\\\B")},
        {_T("A"), nullptr, FALSE, _T("A")},
    };
    for (const auto& [subKey, appended, result, expected] : rows) {
        const CRegistryPath parent(HKEY_USERS, subKey);
        CRegistryPath path(parent);
        EXPECT_EQ(path.AppendKey(appended), result) << CStringA(expected);
        EXPECT_EQ(path.GetSubKey(), expected);
        EXPECT_TRUE(CRegistryPath(parent, appended) == path);
    }
}

TEST(RegistryPath, ARefusalChangesNothingButTheRootOfSetPath) {
    const CRegistryPath original(HKEY_USERS, _T("k"));
    CRegistryPath path(original);
    EXPECT_FALSE(path.SetSubKey(nullptr));
    EXPECT_FALSE(path.SetPath(nullptr, _T("other")));
    EXPECT_TRUE(path == original);
    EXPECT_FALSE(path.SetPath(HKEY_CURRENT_USER, nullptr));
    EXPECT_TRUE(path == CRegistryPath(HKEY_CURRENT_USER, _T("k")));
    HKEY key = HKEY_USERS;
    EXPECT_EQ(CRegistryPath().CreateSubKey(key), 6);
    EXPECT_EQ(key, nullptr);
}

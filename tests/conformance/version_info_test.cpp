// Version resources of files: the same on both systems.
#include "platform/win32.h"

#include "support/samples.h"
#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

std::vector<BYTE> Block(const WCHAR* path) {
    std::vector<BYTE> block(GetFileVersionInfoSizeW(path, nullptr));
    EXPECT_FALSE(block.empty());
    EXPECT_TRUE(GetFileVersionInfoW(path, 0, static_cast<DWORD>(block.size()), block.data()));
    return block;
}

TEST(VersionInfoConformance, FilesWithoutAVersionGiveTheErrorOfEachKind) {
    const TemporaryFolder folder;
    // With error 0 there is a version.
    const std::tuple<const char*, CString, DWORD> rows[] = {
        {"32-bit", Sample(_T("full.dll")), 0},
        {"no resources", Sample(_T("no_resources.dll")), 1812},
        {"text", Sample(_T("full.rc")), 1812},
        {"missing", Sample(_T("missing.dll")), 2},
        {"a folder", folder.Path(), 5},
    };
    BYTE block[4096];
    for (const auto& [label, path, error] : rows) {
        SCOPED_TRACE(label);
        DWORD zero = 77;
        EXPECT_EQ(error, ErrorOf([&] { return GetFileVersionInfoSizeW(path, &zero); }));
        EXPECT_EQ(0u, zero);
        EXPECT_EQ(error, ErrorOf([&] { return GetFileVersionInfoW(path, 0, 4096, block); }));
    }
    const CString full = Sample(_T("full.dll"));
    EXPECT_EQ(87u, ErrorOf([] { return GetFileVersionInfoSizeW(nullptr, nullptr); }));
    EXPECT_EQ(161u, ErrorOf([] { return GetFileVersionInfoSizeW(_T(""), nullptr); }));
    EXPECT_EQ(13u, ErrorOf([&] { return GetFileVersionInfoW(full, 0, 4096, nullptr); }));
}

TEST(VersionInfoConformance, ValuesAreFoundByTheirPath) {
    // Length -1: not found. A null text: the translations or a block without a value.
    const std::tuple<const WCHAR*, int, const WCHAR*> rows[] = {
        {_T("\\VarFileInfo\\Translation"), 8, nullptr},
        {_T("\\varfileinfo\\TRANSLATION"), 8, nullptr},
        {_T("\\\\VarFileInfo\\\\Translation\\"), 8, nullptr},
        {_T("\\StringFileInfo\\040904b0\\CompanyName"), 18, _T("A company of 20 €")},
        {_T("\\StringFileInfo\\040904b0\\Comments"), 1, _T("")},
        {_T("\\StringFileInfo\\040704e4\\CompanyName"), 11, _T("Eine Firma")},
        {_T("\\StringFileInfo\\040904b0\\CompanyNameX"), -1, nullptr},
        {_T("\\VarFileInfo/Translation"), -1, nullptr},
    };
    for (const WCHAR* file : {_T("full.dll"), _T("x86_64/full.dll")}) {
        const std::vector<BYTE> block = Block(Sample(file));
        for (const auto& [path, expectedLength, text] : rows) {
            SCOPED_TRACE(CStringA(path).GetString());
            BYTE marker;
            void* value = &marker;
            UINT length = 77;
            const bool isThere = expectedLength >= 0;
            EXPECT_EQ(isThere ? 0 : 1813,
                      ErrorOf([&] { return VerQueryValueW(block.data(), path, &value, &length); }));
            EXPECT_EQ(static_cast<UINT>(isThere ? expectedLength : 0), length);
            if (!isThere) {
                EXPECT_EQ(&marker, value);
            } else if (text != nullptr) {
                EXPECT_EQ(CString(text), CString(static_cast<const WCHAR*>(value)));
            } else {
                EXPECT_EQ(std::string("\x09\x04\xb0\x04\x07\x04\xe4\x04", length),
                          std::string(static_cast<const char*>(value), length));
            }
        }
    }
}

} // namespace

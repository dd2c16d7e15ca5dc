// Version resources of files, and the system's version: the same on both systems.
#include "platform/win32.h"

#include "support/last_error.h"
#include "support/samples.h"
#include "support/temporary_folder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <tuple>
#include <vector>

namespace {

std::vector<BYTE> Block(const WCHAR* path) {
    std::vector<BYTE> block(GetFileVersionInfoSizeW(path, nullptr));
    EXPECT_FALSE(block.empty());
    EXPECT_TRUE(GetFileVersionInfoW(path, 0, static_cast<DWORD>(block.size()), block.data()));
    return block;
}

TEST(VersionInfoConformance, FilesWithoutAVersionGiveTheErrorOfEachKind) {
    const TemporaryFolder folder;
    folder.Write(_T("empty"), "");
    // With error 0 there is a version.
    const std::tuple<const char*, CString, DWORD> rows[] = {
        {"32-bit", Sample(_T("full.dll")), 0},
        {"64-bit", Sample(_T("x86_64/full.dll")), 0},
        {"other resources", Sample(_T("strings_only.dll")), 1812},
        {"no resources", Sample(_T("no_resources.dll")), 1812},
        {"text", Sample(_T("full.rc")), 1812},
        {"empty", folder.Path(_T("empty")), 1812},
        {"missing", Sample(_T("missing.dll")), 2},
        {"missing folder", Sample(_T("missing/missing.dll")), 3},
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
    struct Row {
        const WCHAR* path;
        int length;        // -1: not found
        const WCHAR* text; // null: the translations or a block without a value
    };
    const Row rows[] = {
        {_T("\\VarFileInfo\\Translation"), 8, nullptr},
        {_T("VarFileInfo\\Translation"), 8, nullptr},
        {_T("\\varfileinfo\\TRANSLATION"), 8, nullptr},
        {_T("\\\\VarFileInfo\\\\Translation\\"), 8, nullptr},
        {_T("\\StringFileInfo"), 0, nullptr},
        {_T("\\StringFileInfo\\040904b0\\CompanyName"), 18, _T("A company of 20 €")},
        {_T("\\StringFileInfo\\040904b0\\FileVersion"), 9, _T("1.2 beta")},
        {_T("\\StringFileInfo\\040904b0\\Comments"), 1, _T("")},
        {_T("\\StringFileInfo\\040704e4\\CompanyName"), 11, _T("Eine Firma")},
        {_T("\\StringFileInfo\\040704e4\\FileVersion"), -1, nullptr},
        {_T("\\StringFileInfo\\040904b1\\CompanyName"), -1, nullptr},
        {_T("\\StringFileInfo\\040904b0\\CompanyNameX"), -1, nullptr},
        {_T("\\StringFileInfo\\040904b0\\CompanyName\\x"), -1, nullptr},
        {_T("\\VarFileInfo/Translation"), -1, nullptr},
        {_T("/"), -1, nullptr},
        {_T("\\Nothing"), -1, nullptr},
    };
    for (const WCHAR* file : {_T("full.dll"), _T("x86_64/full.dll")}) {
        const std::vector<BYTE> block = Block(Sample(file));
        for (const Row& row : rows) {
            SCOPED_TRACE(CStringA(row.path).GetString());
            BYTE marker;
            void* value = &marker;
            UINT length = 77;
            const bool isThere = row.length >= 0;
            EXPECT_EQ(isThere ? 0 : 1813, ErrorOf([&] {
                          return VerQueryValueW(block.data(), row.path, &value, &length);
                      }));
            EXPECT_EQ(static_cast<UINT>(isThere ? row.length : 0), length);
            if (!isThere) {
                EXPECT_EQ(&marker, value);
            } else if (row.text != nullptr) {
                EXPECT_EQ(CString(row.text), CString(static_cast<const WCHAR*>(value)));
            } else {
                EXPECT_EQ(std::string("\x09\x04\xb0\x04\x07\x04\xe4\x04", length),
                          std::string(static_cast<const char*>(value), length));
            }
        }
    }
}

TEST(VersionInfoConformance, TheRootIsTheFixedBlock) {
    const std::vector<BYTE> block = Block(Sample(_T("full.dll")));
    for (const WCHAR* root : {_T("\\"), _T(""), _T("\\\\")}) {
        void* value = nullptr;
        UINT length = 0;
        ASSERT_TRUE(VerQueryValueW(block.data(), root, &value, &length));
        ASSERT_EQ(52u, length);
        DWORD fixed[13];
        std::memcpy(fixed, value, sizeof fixed);
        const std::vector<DWORD> start(fixed, fixed + 6);
        EXPECT_EQ((std::vector<DWORD>{0xfeef04bd, 0x10000, 0x10002, 0x30004, 0x50006, 0x7ffff}),
                  start);
        EXPECT_EQ(0x21u, fixed[7]); // flags
        EXPECT_EQ(2u, fixed[9]);    // type
    }
    void* value = nullptr;
    UINT length = 0;
    EXPECT_FALSE(VerQueryValueW(nullptr, _T("\\"), &value, &length));
}

TEST(VersionInfoConformance, ABlockCutToAnySizeIsNotLeft) {
    const CString path = Sample(_T("full.dll"));
    const DWORD whole = GetFileVersionInfoSizeW(path, nullptr);
    for (DWORD size = 0; size < whole; size += 7) {
        std::vector<BYTE> block(size + 1, 0xcc);
        EXPECT_TRUE(GetFileVersionInfoW(path, 0, size, block.data()));
        EXPECT_EQ(0xcc, block[size]) << size;
    }
}

TEST(VersionInfoConformance, TheLibraryTellsItsOwnVersion) {
    WCHAR program[MAX_PATH]; // this program has the library inside
    ASSERT_LT(0u, GetModuleFileNameW(nullptr, program, MAX_PATH));
    const std::vector<BYTE> block = Block(program);
    void* value = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), _T("\\StringFileInfo\\040904b0\\CompanyName"), &value,
                               &length));
    EXPECT_EQ(CString(_T("The Quorvel team")), CString(static_cast<const WCHAR*>(value)));
}

TEST(SystemVersionConformance, RecordsOfBothSizesAreFilledAndNoOther) {
    for (const DWORD size : {0, 148, 275, 276, 277, 283, 284, 285, 1000}) {
        SCOPED_TRACE(size);
        OSVERSIONINFOEXW version;
        std::memset(static_cast<void*>(&version), 0xcc, sizeof version);
        version.dwOSVersionInfoSize = size;
        const bool isFilled = GetVersionExW(reinterpret_cast<OSVERSIONINFOW*>(&version)) != FALSE;
        EXPECT_EQ(size == 276 || size == 284, isFilled);
        EXPECT_EQ(isFilled, version.dwPlatformId != 0xcccccccc);
        EXPECT_EQ(isFilled && size == 284, version.wServicePackMinor != 0xcccc);
        if (isFilled) {
            EXPECT_LT(0u, version.dwMajorVersion);
            EXPECT_GT(1000u, version.dwMajorVersion);
            EXPECT_EQ(size, version.dwOSVersionInfoSize);
        }
    }
    EXPECT_EQ(0, GetSystemMetrics(SM_SERVERR2));
}

} // namespace

#include <quorvel/frame/module.h>
#include <quorvel/types/module_version.h>
#include <quorvel/types/version_number.h>

#include "support/samples.h"
#include "support/temporary_folder.h"
#include "support/test.h"

using namespace quorvel::win32;

static CModuleVersion Loaded(const WCHAR* sample) {
    CModuleVersion module;
    EXPECT_TRUE(module.Load(Sample(sample)));
    return module;
}

TEST(ModuleVersion, NothingIsLoadedAtFirst) {
    CModuleVersion module;
    EXPECT_FALSE(module.IsLoaded() || module.GetLastError() != 0);
    WORD parts[4] = {7, 7, 7, 7};
    EXPECT_FALSE(module.GetFileVersion(parts[0], parts[1], parts[2], parts[3]));
    EXPECT_FALSE(parts[0] || parts[1] || parts[2] || parts[3]);
    CString value(_T("before"));
    EXPECT_FALSE(module.GetComments(value));
    EXPECT_EQ(value, _T(""));
    EXPECT_EQ(module.GetLastError(), DWORD{ERROR_INVALID_HANDLE});
}

TEST(ModuleVersion, NumbersComeFromTheFixedBlock) {
    for (const WCHAR* sample : {_T("full.dll"), _T("x86_64/full.dll")}) {
        CModuleVersion module = Loaded(sample);
        CVersionNumber number;
        EXPECT_TRUE(module.GetFileVersion(number));
        EXPECT_TRUE(number == CVersionNumber(1, 2, 3, 4));
        EXPECT_TRUE(module.GetProductVersion(number));
        EXPECT_TRUE(number == CVersionNumber(5, 6, 7, 65535));
    }
    CModuleVersion module = Loaded(_T("all_texts.dll"));
    DWORD zero = 77; // the value is the result, not the argument
    ExpectCases<DWORD>({CASE(module.GetFileFlags(zero), 0x2a), CASE(zero, 0),
                        CASE(module.GetFileOS(zero), 0x40004), CASE(module.GetFileType(zero), 3),
                        CASE(module.GetFileSubtype(zero), 7)});
}

TEST(ModuleVersion, TextsComeFromTheFirstTranslation) {
    CModuleVersion module = Loaded(_T("full.dll"));
    CString value(_T("companyNAME")); // the name may be the value
    EXPECT_TRUE(module.GetSubBlockValue(value, value));
    EXPECT_EQ(value, _T("A company of 20 \x20ac"));
    EXPECT_FALSE(module.GetSpecialBuild(value));
    EXPECT_EQ(value, _T(""));
    EXPECT_EQ(module.GetLastError(), DWORD{ERROR_RESOURCE_TYPE_NOT_FOUND});
    EXPECT_TRUE(module.Load(Sample(_T("all_texts.dll")))); // each of its texts is its own key
    EXPECT_TRUE(module.GetOriginalFileName(value));
    EXPECT_EQ(value, _T("OriginalFilename"));
}

TEST(ModuleVersion, AFailedLoadKeepsOrReleasesWhatIsHeld) {
    const TemporaryFolder folder;
    std::string damaged = folder.Read(Sample(_T("full.dll"))); // absolute, so in its own folder
    const std::size_t signature = damaged.find("\xbd\x04\xef\xfe");
    ASSERT_NE(signature, damaged.npos);
    damaged[signature] = 0;
    folder.Write(_T("damaged.dll"), damaged);
    const std::tuple<CString, DWORD, bool> rows[] = {
        {folder.Path(_T("missing.dll")), ERROR_FILE_NOT_FOUND, true},
        {folder.Path(), ERROR_ACCESS_DENIED, true},
        {Sample(_T("no_resources.dll")), ERROR_RESOURCE_DATA_NOT_FOUND, true},
        {Sample(_T("no_translation.dll")), ERROR_RESOURCE_TYPE_NOT_FOUND, false},
        {folder.Path(_T("damaged.dll")), 0, false},
    };
    CString value;
    for (const auto& [path, error, kept] : rows) {
        SCOPED_TRACE(testing::PrintToString(path));
        CModuleVersion module = Loaded(_T("full.dll"));
        EXPECT_FALSE(module.Load(path));
        EXPECT_EQ(module.GetLastError(), error);
        EXPECT_EQ(module.IsLoaded() != FALSE, kept);
        EXPECT_EQ(module.GetFileName(), kept ? Sample(_T("full.dll")) : CString());
        EXPECT_FALSE(module.GetCompanyName(value)); // the code page of the texts is lost
    }
    CModuleVersion module = Loaded(_T("full.dll"));
    EXPECT_FALSE(module.Load(static_cast<const WCHAR*>(nullptr)));
    EXPECT_EQ(module.GetLastError(), DWORD{ERROR_BAD_ARGUMENTS});
    EXPECT_TRUE(module.GetCompanyName(value)); // nothing else has changed
}

TEST(ModuleVersion, ACopyOutlivesItsOriginal) {
    CModuleVersion copy, original = Loaded(_T("full.dll"));
    copy = CModuleVersion(original);
    copy = *&copy;
    EXPECT_FALSE(original.Load(Sample(_T("no_translation.dll"))));
    CString value;
    EXPECT_TRUE(copy.GetFileVersion(value));
    EXPECT_EQ(value, _T("1.2 beta"));
    copy = CModuleVersion();
    EXPECT_FALSE(copy.IsLoaded() || copy.GetFileVersion(value));
}

TEST(ModuleVersion, ALoadedModuleIsReadToo) {
    CModuleVersion module;
    ASSERT_TRUE(module.Load(QuorvelGetInstanceHandle()));
    EXPECT_FALSE(module.Load(reinterpret_cast<HINSTANCE>(static_cast<UINT_PTR>(0x1234))));
    EXPECT_TRUE(module.GetLastError() != 0 && module.IsLoaded());
}

// Every release is put to the rules as the record that it gives of itself.
#include <quorvel/frame/operating_system.h>

#include "frame/system_facts.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace {

using namespace quorvel;

constexpr BYTE kWorkstation = VER_NT_WORKSTATION;
constexpr BYTE kServer = VER_NT_SERVER;
constexpr BYTE kController = VER_NT_DOMAIN_CONTROLLER;
constexpr WORD k32Bit = PROCESSOR_ARCHITECTURE_INTEL;
constexpr WORD kX64 = PROCESSOR_ARCHITECTURE_AMD64;
constexpr WORD kItanium = PROCESSOR_ARCHITECTURE_IA64;
constexpr WORD kPersonal = VER_SUITE_PERSONAL;
constexpr WORD kDatacenter = VER_SUITE_DATACENTER;
constexpr WORD kEnterprise = VER_SUITE_ENTERPRISE;
constexpr WORD kBlade = VER_SUITE_BLADE;

SystemVersion Version(DWORD platform, DWORD major, DWORD minor, BYTE product = 0, WORD suites = 0,
                      const WCHAR* pack = _T("")) {
    SystemVersion version;
    version.extended = true;
    version.record.dwPlatformId = platform;
    version.record.dwMajorVersion = major;
    version.record.dwMinorVersion = minor;
    version.record.dwBuildNumber = 0x12340a28; // only the low 16 bits, 2600, are the build
    version.record.wProductType = product;
    version.record.wSuiteMask = suites;
    const std::basic_string_view<WCHAR> packText(pack);
    std::copy(packText.begin(), packText.end(), version.record.szCSDVersion);
    return version;
}

TEST(OperatingSystem, TheVersionRecordDecidesTheCode) {
    const struct {
        DWORD platform, major, minor;
        BYTE product;
        int system;
    } rows[] = {
        {1, 4, 0, 0, 1},
        {1, 4, 10, 0, 2},
        {1, 4, 90, 0, 3},
        {1, 4, 1, 0, 0},
        {2, 3, 51, 0, 4},
        {2, 3, 0, 0, 4},
        {2, 4, 0, kServer, 5},
        {2, 4, 1, 0, 5},
        {2, 5, 0, kWorkstation, 6},
        {2, 5, 1, kWorkstation, 7},
        {2, 5, 2, kServer, 8},
        {2, 5, 3, kServer, 0},
        {2, 6, 0, kWorkstation, 9},
        {2, 6, 1, kWorkstation, 9},
        {2, 6, 0, kServer, 10},
        {2, 6, 3, kController, 10},
        {2, 7, 0, kWorkstation, 0},
        {2, 10, 0, kWorkstation, 0},
        {0, 4, 0, 0, 0},
        {4, 6, 1, kWorkstation, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ClassifySystem(Version(row.platform, row.major, row.minor, row.product)),
                  row.system)
            << row.platform << ' ' << row.major << '.' << row.minor;
}

TEST(OperatingSystem, TheBasicRecordIsAskedWhenTheExtendedIsRefused) {
    SystemVersion version;
    EXPECT_TRUE(ReadSystemVersion(
        [](OSVERSIONINFOW* record) -> BOOL {
            record->dwMajorVersion = 5;
            return record->dwOSVersionInfoSize == sizeof(OSVERSIONINFOEXW);
        },
        version));
    EXPECT_TRUE(version.extended);
    EXPECT_EQ(version.record.dwMajorVersion, 5u);
    EXPECT_TRUE(ReadSystemVersion(
        [](OSVERSIONINFOW* record) -> BOOL {
            EXPECT_EQ(record->dwMajorVersion, 0u); // what a refused query wrote is gone
            record->dwMajorVersion = 3;
            return record->dwOSVersionInfoSize == sizeof(OSVERSIONINFOW);
        },
        version));
    EXPECT_FALSE(version.extended);
    EXPECT_EQ(version.record.dwMajorVersion, 3u);
    EXPECT_FALSE(ReadSystemVersion([](OSVERSIONINFOW*) -> BOOL { return FALSE; }, version));
}

TEST(OperatingSystem, ThemesCameWithWindowsXP) {
    const struct {
        DWORD platform, major, minor;
        bool themed;
    } rows[] = {
        {2, 4, 9, false}, {2, 5, 0, false}, {2, 5, 1, true},  {2, 5, 2, true},
        {2, 6, 0, true},  {1, 6, 0, false}, {4, 6, 1, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(IsThemedSystem(Version(row.platform, row.major, row.minor)), row.themed)
            << row.platform << ' ' << row.major << '.' << row.minor;
}

struct EditionCase {
    DWORD major, minor;
    BYTE product;
    WORD suites, processor;
    bool release2;
    const WCHAR* text; // before service pack and build
};
constexpr EditionCase kEditionCases[] = {
    {6, 0, kWorkstation, 0, k32Bit, false, _T("Microsoft Windows Vista Professional ")},
    {6, 0, kWorkstation, kPersonal, k32Bit, false, _T("Microsoft Windows Vista Home Edition ")},
    {6, 0, kWorkstation, 0, kX64, false, _T("Microsoft Windows Vista ")},
    {6, 1, kWorkstation, 0, k32Bit, false, _T("Professional ")},
    {5, 1, kWorkstation, 0, k32Bit, false, _T("Microsoft Windows XP Professional ")},
    {5, 1, kWorkstation, kPersonal, k32Bit, false, _T("Microsoft Windows XP Home Edition ")},
    {5, 2, kWorkstation, 0, kX64, false, _T("Microsoft Windows XP Professional x64 Edition ")},
    {5, 2, kWorkstation, 0, kX64, true, _T("Microsoft Windows Server 2003 \"R2\" ")},
    {5, 2, kWorkstation, 0, k32Bit, false, _T("Microsoft Windows Server 2003, Professional ")},
    {5, 0, kWorkstation, 0, k32Bit, false, _T("Microsoft Windows 2000 Professional ")},
    {4, 0, kWorkstation, kPersonal, k32Bit, false, _T("Microsoft Windows NT Workstation 4.0 ")},

    {6, 0, kServer, kDatacenter, k32Bit, false, _T("Windows Server \"Longhorn\" ")},
    {5, 2, kServer, kEnterprise, k32Bit, true,
     _T("Microsoft Windows Server 2003 \"R2\" Enterprise Edition ")},
    {5, 2, kServer, kDatacenter | kEnterprise, kItanium, false,
     _T("Microsoft Windows Server 2003, Datacenter Edition for Itanium-based Systems")},
    {5, 2, kServer, kEnterprise, kItanium, false,
     _T("Microsoft Windows Server 2003, Enterprise Edition for Itanium-based Systems")},
    {5, 2, kServer, 0, kItanium, false, _T("Microsoft Windows Server 2003, ")},
    {5, 2, kController, kDatacenter | kEnterprise, kX64, false,
     _T("Microsoft Windows Server 2003, Datacenter x64 Edition ")},
    {5, 2, kServer, kEnterprise, kX64, false,
     _T("Microsoft Windows Server 2003, Enterprise x64 Edition ")},
    {5, 2, kServer, kBlade, kX64, false,
     _T("Microsoft Windows Server 2003, Standard x64 Edition ")},
    {5, 2, kServer, kDatacenter | kEnterprise, k32Bit, false,
     _T("Microsoft Windows Server 2003, Datacenter Edition ")},
    {5, 2, kServer, kEnterprise | kBlade, k32Bit, false,
     _T("Microsoft Windows Server 2003, Enterprise Edition ")},
    {5, 2, kServer, kBlade, k32Bit, false, _T("Microsoft Windows Server 2003, Web Edition ")},
    {5, 2, kServer, kBlade | kPersonal, k32Bit, false,
     _T("Microsoft Windows Server 2003, Standard Edition ")},
    {5, 2, kController, 0, k32Bit, false, _T("Microsoft Windows Server 2003, Standard Edition ")},
    {5, 0, kServer, kDatacenter | kEnterprise, k32Bit, false,
     _T("Microsoft Windows 2000 Datacenter Server ")},
    {5, 0, kServer, kEnterprise, k32Bit, false, _T("Microsoft Windows 2000 Advanced Server ")},
    {5, 0, kController, 0, k32Bit, false, _T("Microsoft Windows 2000 Server ")},
    {4, 0, kServer, kEnterprise, k32Bit, false,
     _T("Microsoft Windows NT Server 4.0, Enterprise Edition ")},
    {4, 0, kController, kDatacenter, k32Bit, false, _T("Microsoft Windows NT Server 4.0 ")},
};

TEST(OperatingSystem, TheTextIsProductAndEdition) {
    for (const EditionCase& row : kEditionCases) {
        SystemFacts facts;
        facts.version = Version(2, row.major, row.minor, row.product, row.suites, _T("SP"));
        facts.nativeProcessor = row.processor;
        facts.release2 = row.release2;
        CString text;
        EXPECT_TRUE(DescribeSystem(facts, text));
        EXPECT_EQ(text, CString(row.text) + _T("SP (Build 2600)"));
    }
}

TEST(OperatingSystem, ThenServicePackAndBuild) {
    const struct {
        DWORD major;
        const WCHAR* pack;
        bool hotfix;
        const WCHAR* text;
    } rows[] = {
        {5, _T(""), true, _T("Microsoft Windows 2000 Server  (Build 2600)")},
        {5, _T("Service Pack 6"), true,
         _T("Microsoft Windows 2000 Server Service Pack 6 (Build 2600)")},
        {4, _T("Service Pack 5"), true,
         _T("Microsoft Windows NT Server 4.0 Service Pack 5 (Build 2600)")},
        {4, _T("Service Pack 6"), true,
         _T("Microsoft Windows NT Server 4.0 Service Pack 6a (Build 2600)")},
        {4, _T("Service Pack 6"), false,
         _T("Microsoft Windows NT Server 4.0 Service Pack 6 (Build 2600)\n")},
    };
    for (const auto& row : rows) {
        SystemFacts facts;
        facts.version = Version(2, row.major, 0, kServer, 0, row.pack);
        facts.hasServicePack6a = row.hotfix ? [] { return true; } : [] { return false; };
        CString text;
        EXPECT_TRUE(DescribeSystem(facts, text));
        EXPECT_EQ(text, CString(row.text));
    }
}

TEST(OperatingSystem, TheOtherPlatformsHaveTheirNameAlone) {
    const struct {
        DWORD platform, minor;
        const WCHAR* pack;
        const WCHAR* text;
    } rows[] = {
        {1, 0, _T(" C"), _T("Microsoft Windows 95 OSR2")},
        {1, 0, _T(" B"), _T("Microsoft Windows 95 OSR2")},
        {1, 0, _T(" A"), _T("Microsoft Windows 95 ")},
        {1, 10, _T(" A "), _T("Microsoft Windows 98 SE")},
        {1, 10, _T(""), _T("Microsoft Windows 98 ")},
        {1, 90, _T(" A"), _T("Microsoft Windows Millennium Edition")},
        {1, 91, _T(""), _T("")},
        {0, 10, _T(""), _T("Microsoft Win32s")},
        {4, 1, _T(""), _T("Unknown operating system")},
    };
    for (const auto& row : rows) {
        SystemFacts facts;
        facts.version = Version(row.platform, 4, row.minor, 0, 0, row.pack);
        CString text;
        EXPECT_TRUE(DescribeSystem(facts, text));
        EXPECT_EQ(text, CString(row.text));
    }
}

// A registry value of `text`, filled with zeros to `bytes`.
struct ProductType {
    const WCHAR* text;
    DWORD bytes;
    DWORD error;
};
const ProductType* s_productType;

DWORD QueryProductType(BYTE* data, DWORD* size) {
    if (s_productType->error != ERROR_SUCCESS)
        return s_productType->error;
    const DWORD room = *size;
    *size = s_productType->bytes;
    if (s_productType->bytes > room)
        return ERROR_MORE_DATA;
    const std::basic_string_view<WCHAR> text(s_productType->text);
    std::fill_n(data, s_productType->bytes, BYTE{0});
    text.copy(reinterpret_cast<WCHAR*>(data), s_productType->bytes / sizeof(WCHAR));
    return ERROR_SUCCESS;
}

TEST(OperatingSystem, TheOldestReleasesNameTheirEditionInTheRegistry) {
    SystemFacts facts;
    facts.version = Version(2, 3, 51, kServer, kEnterprise, _T("Service Pack 5"));
    facts.version.extended = false;
    facts.queryProductType = QueryProductType;
    const struct {
        ProductType productType;
        const WCHAR* text; // null: no description
    } rows[] = {
        {{_T("WINNT"), 12, 0}, _T("Workstation ")},
        {{_T("LanmanNT"), 18, 0}, _T("Server ")},
        {{_T("servernt"), 18, 0}, _T("Advanced Server ")},
        {{_T("SERVERNT"), 16, 0}, _T("Advanced Server ")}, // stored without a terminator
        {{_T("Other"), 12, 0}, _T("")},
        {{_T(""), 0, 0}, _T("")},
        {{_T("0123456789012345678901234567890123456789"), 80, 0}, _T("")},
        {{_T("WINNT"), 82, 0}, nullptr},
        {{_T("WINNT"), 12, ERROR_FILE_NOT_FOUND}, nullptr},
    };
    for (const auto& row : rows) {
        s_productType = &row.productType;
        CString text;
        EXPECT_EQ(DescribeSystem(facts, text), row.text != nullptr);
        if (row.text == nullptr)
            continue;
        EXPECT_EQ(text, CString(_T("Microsoft Windows NT ")) + row.text +
                            _T("3.51 Service Pack 5 (Build 2600)"));
    }
}

TEST(OperatingSystem, TheRunningSystemAgreesWithItself) {
    const int system = AfxGetOperatingSystem();
    EXPECT_TRUE(AfxIsValidOperatingSystem(system));
    EXPECT_EQ(AfxIsSupportedOperatingSystem(system), system != kSystemUnknown);
    EXPECT_EQ(AfxIsUnknownOperatingSystem(), system == kSystemUnknown);
    EXPECT_EQ(AfxIsWindowsVista(), system == kSystemWindowsVista);
    EXPECT_EQ(AfxDoesOperatingSystemSupportUnicode(), AfxIsWin32NTPlatform());
    EXPECT_FALSE(AfxIsWin32sPlatform() || AfxIsWin32WindowsPlatform());
    for (const int invalid : {-1, 11, 0x7fffffff}) {
        EXPECT_FALSE(AfxIsValidOperatingSystem(invalid)) << invalid;
        EXPECT_FALSE(AfxIsSupportedOperatingSystem(invalid)) << invalid;
    }
    EXPECT_TRUE(AfxIsValidOperatingSystem(0) && AfxIsSupportedOperatingSystem(10));
    CString text(_T("before"));
    EXPECT_TRUE(AfxGetOperatingSystemText(text));
    EXPECT_NE(text, _T("before"));
}

} // namespace

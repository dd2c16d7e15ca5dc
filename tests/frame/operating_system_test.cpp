// Tests the rules with the version record that each release reports.
#include <quorvel/frame/operating_system.h>

#include "frame/system_facts.h"
#include "support/test.h"

#include <algorithm>
#include <string_view>

namespace {

using namespace quorvel;

constexpr BYTE kDesktop = VER_NT_WORKSTATION;
constexpr BYTE kServer = VER_NT_SERVER;
constexpr BYTE kDomain = VER_NT_DOMAIN_CONTROLLER;
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

SystemVersion s_version; // the version that the system reports

struct Predicate {
    const char* name;
    BOOL (*ask)();
    int systems; // one bit for each system where it is TRUE
};
#define PREDICATE(name, systems)                                                                   \
    { #name, name, systems }
const Predicate kPredicates[] = {
    PREDICATE(AfxIsUnknownOperatingSystem, 1 << 0),
    PREDICATE(AfxIsWindows95, 1 << 1),
    PREDICATE(AfxIsWindows98, 1 << 2),
    PREDICATE(AfxIsWindowsMilleniumEdition, 1 << 3),
    PREDICATE(AfxIsWindowsNT351, 1 << 5), // like the next row
    PREDICATE(AfxIsWindowsNT4, 1 << 5),
    PREDICATE(AfxIsWindowsNT, 1 << 4 | 1 << 5),
    PREDICATE(AfxIsWindows2000, 1 << 6),
    PREDICATE(AfxIsWindowsXP, 1 << 7),
    PREDICATE(AfxIsWindowsServer2003, 1 << 8),
    PREDICATE(AfxIsWindowsVista, 1 << 9),
    PREDICATE(AfxIsWindowsServerLonghorn, 1 << 10),
};

void ExpectSystem(int system, DWORD platform, bool themed) {
    EXPECT_EQ(AfxGetOperatingSystem(), system);
    for (const auto& [name, ask, systems] : kPredicates)
        EXPECT_EQ(ask(), systems >> system & 1) << name;
    EXPECT_EQ(AfxIsWin32sPlatform(), platform == 0);
    EXPECT_EQ(AfxIsWin32WindowsPlatform(), platform == 1);
    EXPECT_EQ(AfxIsWin32NTPlatform(), platform == 2);
    EXPECT_EQ(AfxDoesOperatingSystemSupportUnicode(), platform == 2);
    EXPECT_EQ(AfxIsThemedOperatingSystem(), themed);
}

TEST(OperatingSystem, TheVersionRecordDecides) {
    const std::tuple<DWORD, DWORD, DWORD, BYTE, int, bool> rows[] = {
        {1, 4, 0, 0, 1, false},        {1, 4, 10, 0, 2, false},      {1, 4, 90, 0, 3, false},
        {1, 6, 1, 0, 0, false},        {2, 3, 51, 0, 4, false},      {2, 4, 1, 0, 5, false},
        {2, 5, 0, kDesktop, 6, false}, {2, 5, 1, kDesktop, 7, true}, {2, 5, 2, kServer, 8, true},
        {2, 5, 3, kServer, 0, true},   {2, 6, 1, kDesktop, 9, true}, {2, 6, 3, kDomain, 10, true},
        {2, 7, 0, kDesktop, 0, true},  {0, 4, 0, 0, 0, false},       {4, 6, 1, kDesktop, 0, false},
    };
    const VersionQuery former = CurrentVersionQuery();
    CurrentVersionQuery() = [](OSVERSIONINFOW* record) -> BOOL {
        *reinterpret_cast<OSVERSIONINFOEXW*>(record) = s_version.record;
        return TRUE;
    };
    for (const auto& [platform, major, minor, product, system, themed] : rows) {
        SCOPED_TRACE(testing::Message() << platform << ' ' << major << '.' << minor);
        s_version = Version(platform, major, minor, product);
        ExpectSystem(system, platform, themed);
    }
    CurrentVersionQuery() = former;
}

TEST(OperatingSystem, TheBasicRecordIsAskedWhenTheExtendedIsRefused) {
    CString text;
    EXPECT_TRUE(AfxGetOperatingSystemText(text)); // the running system
    EXPECT_NE(text, _T(""));
    const VersionQuery former = CurrentVersionQuery();
    CurrentVersionQuery() = [](OSVERSIONINFOW* record) -> BOOL {
        EXPECT_EQ(record->dwMajorVersion, 0u); // data of a refused query is cleared
        record->dwMajorVersion = 3;
        record->dwPlatformId = VER_PLATFORM_WIN32_NT;
        return record->dwOSVersionInfoSize == sizeof(OSVERSIONINFOW);
    };
    ExpectSystem(4, 2, false);
    SystemVersion version;
    EXPECT_TRUE(ReadSystemVersion(version));
    EXPECT_FALSE(version.extended);

    CurrentVersionQuery() = [](OSVERSIONINFOW*) -> BOOL { return FALSE; };
    ExpectSystem(0, 4, false);
    EXPECT_FALSE(AfxGetOperatingSystemText(text));
    EXPECT_EQ(text, _T(""));
    CurrentVersionQuery() = former;
}

// The text of a row is the text of the product followed by that of the edition.
const WCHAR* const kServer2003 = _T("Microsoft Windows Server 2003, ");
const WCHAR* const kRelease2 = _T("Microsoft Windows Server 2003 \"R2\" ");
const WCHAR* const kXP = _T("Microsoft Windows XP ");
const WCHAR* const kXPx64 = _T("Microsoft Windows XP Professional x64 Edition ");
const WCHAR* const k2000 = _T("Microsoft Windows 2000 ");
const WCHAR* const kNT = _T("Microsoft Windows NT ");
const WCHAR* const kVista = _T("Microsoft Windows Vista ");
const WCHAR* const kLonghorn = _T("Windows Server \"Longhorn\" ");
const struct {
    DWORD major, minor;
    BYTE product;
    WORD suites, processor;
    const WCHAR* name;
    const WCHAR* edition;
} kEditionCases[] = {
    {6, 0, kDesktop, 0, k32Bit, kVista, _T("Professional ")},
    {5, 1, kDesktop, 0, k32Bit, kXP, _T("Professional ")},
    {5, 1, kDesktop, kPersonal, k32Bit, kXP, _T("Home Edition ")},
    {5, 2, kDesktop, 0, kX64, kXPx64, _T("")},
    {5, 2, kDesktop, 0, kX64, kRelease2, _T("")},
    {6, 0, kServer, kDatacenter, k32Bit, kLonghorn, _T("")},
    {5, 2, kServer, kEnterprise, k32Bit, kRelease2, _T("Enterprise Edition ")},
    {5, 2, kServer, kDatacenter | kEnterprise, kItanium, kServer2003,
     _T("Datacenter Edition for Itanium-based Systems")},
    {5, 2, kDomain, kDatacenter | kEnterprise, kX64, kServer2003, _T("Datacenter x64 Edition ")},
    {5, 2, kServer, kBlade, kX64, kServer2003, _T("Standard x64 Edition ")},
    {5, 2, kServer, kBlade, k32Bit, kServer2003, _T("Web Edition ")},
    {5, 2, kServer, kBlade | kPersonal, k32Bit, kServer2003, _T("Standard Edition ")},
    {5, 0, kServer, kDatacenter | kEnterprise, k32Bit, k2000, _T("Datacenter Server ")},
    {4, 0, kServer, kEnterprise, k32Bit, kNT, _T("Server 4.0, Enterprise Edition ")},
    {4, 0, kDomain, kDatacenter, k32Bit, kNT, _T("Server 4.0 ")},
};

TEST(OperatingSystem, TheTextIsProductAndEdition) {
    for (const auto& row : kEditionCases) {
        SystemFacts facts;
        facts.version = Version(2, row.major, row.minor, row.product, row.suites, _T("SP"));
        facts.nativeProcessor = row.processor;
        facts.release2 = row.name == kRelease2;
        CString text;
        EXPECT_TRUE(DescribeSystem(facts, text));
        EXPECT_EQ(text, CString(row.name) + row.edition + _T("SP (Build 2600)"));
    }
}

TEST(OperatingSystem, OlderPlatformsAndServicePacksHaveTheirTexts) {
    const struct {
        DWORD platform, major, minor;
        const WCHAR* pack;
        const WCHAR* text;
        bool hotfix = true;
    } rows[] = {
        {2, 4, 0, _T("Service Pack 5"), _T("Microsoft Windows NT Service Pack 5 (Build 2600)")},
        {2, 4, 0, _T("Service Pack 6"), _T("Microsoft Windows NT Service Pack 6a (Build 2600)")},
        {2, 4, 0, _T("Service Pack 6"), _T("Microsoft Windows NT Service Pack 6 (Build 2600)\n"),
         false},
        {1, 4, 0, _T(" C"), _T("Microsoft Windows 95 OSR2")},
        {1, 4, 0, _T(" A"), _T("Microsoft Windows 95 ")},
        {1, 4, 10, _T(" A "), _T("Microsoft Windows 98 SE")},
        {1, 4, 90, _T(" A"), _T("Microsoft Windows Millennium Edition")},
        {1, 4, 91, _T(""), _T("")},
        {4, 4, 1, _T(""), _T("Unknown operating system")},
    };
    for (const auto& row : rows) {
        SystemFacts facts;
        facts.version = Version(row.platform, row.major, row.minor, 0, 0, row.pack);
        facts.hasServicePack6a = row.hotfix ? [] { return true; } : [] { return false; };
        CString text;
        EXPECT_TRUE(DescribeSystem(facts, text));
        EXPECT_EQ(text, CString(row.text));
    }
}

// A registry value: `text`, padded with zeros to `bytes`.
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
    // A null edition means no description.
    const std::tuple<ProductType, const WCHAR*> rows[] = {
        {{_T("WINNT"), 12, 0}, _T("Workstation ")},
        {{_T("LanmanNT"), 18, 0}, _T("Server ")},
        {{_T("servernt"), 18, 0}, _T("Advanced Server ")},
        {{_T("SERVERNT"), 16, 0}, _T("Advanced Server ")}, // stored without a terminator
        {{_T("0123456789012345678901234567890123456789"), 80, 0}, _T("")},
        {{_T("WINNT"), 82, 0}, nullptr},
    };
    for (const auto& [productType, edition] : rows) {
        s_productType = &productType;
        CString text;
        EXPECT_EQ(DescribeSystem(facts, text), edition != nullptr);
        if (edition == nullptr)
            continue;
        EXPECT_EQ(text, CString(kNT) + edition + _T("3.51 Service Pack 5 (Build 2600)"));
    }
}

} // namespace

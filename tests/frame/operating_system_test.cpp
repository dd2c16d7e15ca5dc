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
                      const WCHAR* pack = _T("SP")) {
    SystemVersion version;
    version.extended = true;
    version.record.dwPlatformId = platform;
    version.record.dwMajorVersion = major;
    version.record.dwMinorVersion = minor;
    version.record.dwBuildNumber = 0x12340a28; // only the low 16 bits, 2600, are the build
    version.record.wProductType = product;
    version.record.wSuiteMask = suites;
    std::basic_string_view<WCHAR>(pack).copy(version.record.szCSDVersion, 127);
    return version;
}

SystemVersion s_version; // the version that the system reports

// The predicate of each system, by its number.
// clang-format off
BOOL (*const kPredicates[])() = {
    AfxIsUnknownOperatingSystem, AfxIsWindows95, AfxIsWindows98, AfxIsWindowsMilleniumEdition,
    nullptr, AfxIsWindowsNT4, AfxIsWindows2000, AfxIsWindowsXP, AfxIsWindowsServer2003,
    AfxIsWindowsVista, AfxIsWindowsServerLonghorn};
// clang-format on

void ExpectSystem(int system, DWORD platform, bool themed) {
    EXPECT_EQ(AfxGetOperatingSystem(), system);
    for (int i = 0; i < 11; ++i)
        EXPECT_TRUE(i == 4 || kPredicates[i]() == BOOL{i == system}) << i;
    EXPECT_EQ(AfxIsWindowsNT(), system == 4 || system == 5);
    EXPECT_EQ(AfxIsWindowsNT351(), system == 5); // like that of NT 4.0
    EXPECT_EQ(AfxIsWin32sPlatform(), platform == 0);
    EXPECT_EQ(AfxIsWin32WindowsPlatform(), platform == 1);
    EXPECT_EQ(AfxIsWin32NTPlatform(), platform == 2);
    EXPECT_EQ(AfxIsThemedOperatingSystem(), themed);
}

TEST(OperatingSystem, TheVersionRecordDecides) {
    const std::tuple<DWORD, DWORD, DWORD, BYTE, int, bool> rows[] = {
        {1, 4, 0, 0, 1, false},        {1, 4, 10, 0, 2, false},      {1, 4, 90, 0, 3, false},
        {1, 6, 1, 0, 0, false},        {2, 3, 51, 0, 4, false},      {2, 4, 1, 0, 5, false},
        {2, 5, 0, kDesktop, 6, false}, {2, 5, 1, kDesktop, 7, true}, {2, 5, 2, kServer, 8, true},
        {2, 5, 3, kServer, 0, true},   {2, 6, 1, kDesktop, 9, true}, {2, 6, 3, kDomain, 10, true},
        {2, 7, 0, kDesktop, 0, true},  {0, 4, 0, 0, 0, false},
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
    CString text = _T("before");
    const VersionQuery former = CurrentVersionQuery();
    CurrentVersionQuery() = [](OSVERSIONINFOW* record) -> BOOL {
        EXPECT_EQ(record->dwMajorVersion, 0u); // data of a refused query is cleared
        record->dwMajorVersion = 3;
        record->dwPlatformId = VER_PLATFORM_WIN32_NT;
        return record->dwOSVersionInfoSize == sizeof(OSVERSIONINFOW);
    };
    ExpectSystem(4, 2, false);
    CurrentVersionQuery() = [](OSVERSIONINFOW*) -> BOOL { return FALSE; };
    ExpectSystem(0, 4, false);
    EXPECT_FALSE(AfxGetOperatingSystemText(text));
    EXPECT_EQ(text, _T(""));
    CurrentVersionQuery() = former;
}

TEST(OperatingSystem, TheTextIsProductEditionAndServicePack) {
    constexpr WORD kManySuites = kDatacenter | kEnterprise;
    const auto textOf = [](SystemFacts facts, const SystemVersion& version) {
        facts.version = version;
        CString text;
        EXPECT_TRUE(DescribeSystem(facts, text));
        return text;
    };
    const struct {
        SystemVersion version;
        const WCHAR* product;
        WORD processor = k32Bit;
        bool isRelease2 = false;
    } rows[] = {
        {Version(2, 6, 0, kDesktop), _T("Windows Vista Professional ")},
        {Version(2, 5, 1, kDesktop), _T("Windows XP Professional ")},
        {Version(2, 5, 1, kDesktop, kPersonal), _T("Windows XP Home Edition ")},
        {Version(2, 5, 2, kDesktop), _T("Windows XP Professional x64 Edition "), kX64},
        {Version(2, 5, 2, kServer, kEnterprise),
         _T("Windows Server 2003 \"R2\" Enterprise Edition "), k32Bit, true},
        {Version(2, 5, 2, kServer, kManySuites),
         _T("Windows Server 2003, Datacenter Edition for Itanium-based Systems"), kItanium},
        {Version(2, 5, 2, kServer, kBlade), _T("Windows Server 2003, Standard x64 Edition "), kX64},
        {Version(2, 5, 2, kServer, kBlade | kPersonal),
         _T("Windows Server 2003, Standard Edition ")},
        {Version(2, 5, 0, kDomain, kManySuites), _T("Windows 2000 Datacenter Server ")},
        {Version(2, 4, 0, kServer, kEnterprise), _T("Windows NT Server 4.0, Enterprise Edition ")},
    };
    for (const auto& row : rows) {
        SystemFacts facts;
        facts.nativeProcessor = row.processor;
        facts.release2 = row.isRelease2;
        EXPECT_EQ(textOf(facts, row.version),
                  CString(_T("Microsoft ")) + row.product + _T("SP (Build 2600)"));
    }
    SystemFacts plain, patched;
    plain.hasServicePack6a = [] { return false; };
    patched.hasServicePack6a = [] { return true; };
    const SystemVersion pack6 = Version(2, 4, 0, 0, 0, _T("Service Pack 6"));
    ExpectCases<CString>({
        CASE(textOf(patched, pack6), _T("Microsoft Windows NT Service Pack 6a (Build 2600)")),
        CASE(textOf(plain, pack6), _T("Microsoft Windows NT Service Pack 6 (Build 2600)\n")),
        CASE(textOf(plain, Version(1, 4, 0, 0, 0, _T(" C"))), _T("Microsoft Windows 95 OSR2")),
        CASE(textOf(plain, Version(1, 4, 10, 0, 0, _T(" A "))), _T("Microsoft Windows 98 SE")),
        CASE(textOf(plain, Version(1, 4, 91)), _T("")),
        CASE(textOf(plain, Version(4, 4, 1)), _T("Unknown operating system")),
    });
}

TEST(OperatingSystem, TheOldestReleasesNameTheirEditionInTheRegistry) {
    SystemFacts facts;
    facts.version = Version(2, 3, 51, kServer, kEnterprise, _T("Service Pack 5"));
    facts.version.extended = false;
    facts.queryProductType = [](BYTE* data, DWORD* size) -> DWORD {
        const std::basic_string_view<WCHAR> stored = _T("SERVERNT"); // without a terminator
        EXPECT_GE(std::exchange(*size, DWORD{16}), 16u);
        stored.copy(reinterpret_cast<WCHAR*>(data), stored.size());
        return ERROR_SUCCESS;
    };
    CString text;
    EXPECT_TRUE(DescribeSystem(facts, text));
    EXPECT_EQ(text, _T("Microsoft Windows NT Advanced Server 3.51 Service Pack 5 (Build 2600)"));
    facts.queryProductType = [](BYTE*, DWORD*) -> DWORD { return ERROR_MORE_DATA; };
    EXPECT_FALSE(DescribeSystem(facts, text));
}

} // namespace

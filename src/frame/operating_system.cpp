#include <quorvel/frame/operating_system.h>

#include "frame/system_facts.h"

namespace quorvel {

namespace {

constexpr DWORD kAny = 0xffffffff;

struct SystemRule {
    DWORD platform;
    DWORD major;
    DWORD minor;
    DWORD productType;
    int system;
};
constexpr SystemRule kSystemRules[] = {
    {VER_PLATFORM_WIN32_WINDOWS, kAny, 0, kAny, kSystemWindows95},
    {VER_PLATFORM_WIN32_WINDOWS, kAny, 10, kAny, kSystemWindows98},
    {VER_PLATFORM_WIN32_WINDOWS, kAny, 90, kAny, kSystemWindowsMe},
    {VER_PLATFORM_WIN32_NT, 3, kAny, kAny, kSystemWindowsNT351},
    {VER_PLATFORM_WIN32_NT, 4, kAny, kAny, kSystemWindowsNT4},
    {VER_PLATFORM_WIN32_NT, 5, 0, kAny, kSystemWindows2000},
    {VER_PLATFORM_WIN32_NT, 5, 1, kAny, kSystemWindowsXP},
    {VER_PLATFORM_WIN32_NT, 5, 2, kAny, kSystemWindowsServer2003},
    {VER_PLATFORM_WIN32_NT, 6, kAny, VER_NT_WORKSTATION, kSystemWindowsVista},
    {VER_PLATFORM_WIN32_NT, 6, kAny, kAny, kSystemWindowsServerLonghorn},
};

bool Matches(DWORD rule, DWORD value) {
    return rule == kAny || rule == value;
}

bool IsWorkstation(const SystemFacts& facts) {
    return facts.version.record.wProductType == VER_NT_WORKSTATION;
}
bool IsX64(const SystemFacts& facts) {
    return facts.nativeProcessor == PROCESSOR_ARCHITECTURE_AMD64;
}
bool IsX64Workstation(const SystemFacts& facts) {
    return IsWorkstation(facts) && IsX64(facts);
}
bool IsRelease2(const SystemFacts& facts) {
    return facts.release2;
}
bool Always(const SystemFacts&) {
    return true;
}

// In both tables the first matching row decides. Each text ends with its own separating blank.
struct ProductRule {
    DWORD major;
    DWORD minor;
    bool (*applies)(const SystemFacts&);
    const WCHAR* name;
};
constexpr ProductRule kProductRules[] = {
    {6, 0, IsWorkstation, _T("Microsoft Windows Vista ")},
    {6, 0, Always, _T("Windows Server \"Longhorn\" ")},
    {5, 2, IsRelease2, _T("Microsoft Windows Server 2003 \"R2\" ")},
    {5, 2, IsX64Workstation, _T("Microsoft Windows XP Professional x64 Edition ")},
    {5, 2, Always, _T("Microsoft Windows Server 2003, ")},
    {5, 1, Always, _T("Microsoft Windows XP ")},
    {5, 0, Always, _T("Microsoft Windows 2000 ")},
};

struct ServerRule {
    DWORD major;
    DWORD minor;
    DWORD processor;
    WORD suiteBits; // these bits of the suite mask
    WORD suites;    // must have this value
    const WCHAR* edition;
};
constexpr WORD kDatacenter = VER_SUITE_DATACENTER;
constexpr WORD kEnterprise = VER_SUITE_ENTERPRISE;
constexpr WORD kBlade = VER_SUITE_BLADE;
constexpr DWORD kItanium = PROCESSOR_ARCHITECTURE_IA64;
constexpr DWORD kX64 = PROCESSOR_ARCHITECTURE_AMD64;
constexpr ServerRule kServerRules[] = {
    // Deliberate: the Itanium texts have no final blank; the web edition is the blade suite alone.
    {5, 2, kItanium, kDatacenter, kDatacenter, _T("Datacenter Edition for Itanium-based Systems")},
    {5, 2, kItanium, kEnterprise, kEnterprise, _T("Enterprise Edition for Itanium-based Systems")},
    {5, 2, kItanium, 0, 0, _T("")},
    {5, 2, kX64, kDatacenter, kDatacenter, _T("Datacenter x64 Edition ")},
    {5, 2, kX64, kEnterprise, kEnterprise, _T("Enterprise x64 Edition ")},
    {5, 2, kX64, 0, 0, _T("Standard x64 Edition ")},
    {5, 2, kAny, kDatacenter, kDatacenter, _T("Datacenter Edition ")},
    {5, 2, kAny, kEnterprise, kEnterprise, _T("Enterprise Edition ")},
    {5, 2, kAny, 0xffff, kBlade, _T("Web Edition ")},
    {5, 2, kAny, 0, 0, _T("Standard Edition ")},
    {5, 0, kAny, kDatacenter, kDatacenter, _T("Datacenter Server ")},
    {5, 0, kAny, kEnterprise, kEnterprise, _T("Advanced Server ")},
    {5, 0, kAny, 0, 0, _T("Server ")},
    {4, kAny, kAny, kEnterprise, kEnterprise, _T("Server 4.0, Enterprise Edition ")},
    {4, kAny, kAny, 0, 0, _T("Server 4.0 ")},
};

const WCHAR* ProductName(const SystemFacts& facts) {
    const OSVERSIONINFOEXW& record = facts.version.record;
    if (record.dwMajorVersion <= 4)
        return _T("Microsoft Windows NT ");
    for (const ProductRule& rule : kProductRules)
        if (rule.major == record.dwMajorVersion && rule.minor == record.dwMinorVersion &&
            rule.applies(facts))
            return rule.name;
    return _T("");
}

const WCHAR* WorkstationEdition(const SystemFacts& facts) {
    if (IsX64(facts))
        return _T("");
    if (facts.version.record.dwMajorVersion == 4)
        return _T("Workstation 4.0 ");
    return facts.version.record.wSuiteMask & VER_SUITE_PERSONAL ? _T("Home Edition ")
                                                                : _T("Professional ");
}

const WCHAR* ServerEdition(const SystemFacts& facts) {
    const OSVERSIONINFOEXW& record = facts.version.record;
    for (const ServerRule& rule : kServerRules)
        if (rule.major == record.dwMajorVersion && Matches(rule.minor, record.dwMinorVersion) &&
            Matches(rule.processor, facts.nativeProcessor) &&
            (record.wSuiteMask & rule.suiteBits) == rule.suites)
            return rule.edition;
    return _T("");
}

const WCHAR* Edition(const SystemFacts& facts) {
    switch (facts.version.record.wProductType) {
    case VER_NT_WORKSTATION:
        return WorkstationEdition(facts);
    case VER_NT_SERVER:
    case VER_NT_DOMAIN_CONTROLLER:
        return ServerEdition(facts);
    default:
        return _T("");
    }
}

// Releases without the extended record store their product type in the registry.
bool AppendRegisteredEdition(const SystemFacts& facts, CString& text) {
    static constexpr struct {
        const WCHAR* productType;
        const WCHAR* edition;
    } kEditions[] = {
        {_T("WINNT"), _T("Workstation ")},
        {_T("LANMANNT"), _T("Server ")},
        {_T("SERVERNT"), _T("Advanced Server ")},
    };
    constexpr DWORD kMaximumSize = 80;                        // a longer value matches no row
    WCHAR productType[kMaximumSize / sizeof(WCHAR) + 1] = {}; // the value may lack a terminator
    DWORD size = kMaximumSize;
    if (facts.queryProductType(reinterpret_cast<BYTE*>(productType), &size) != ERROR_SUCCESS ||
        size > kMaximumSize)
        return false;
    const CString value(productType);
    for (const auto& row : kEditions)
        if (value.CompareNoCase(row.productType) == 0)
            text += row.edition;
    text.AppendFormat(_T("%d.%d "), static_cast<int>(facts.version.record.dwMajorVersion),
                      static_cast<int>(facts.version.record.dwMinorVersion));
    return true;
}

void AppendServicePackAndBuild(const SystemFacts& facts, CString& text) {
    const OSVERSIONINFOEXW& record = facts.version.record;
    const int build = LOWORD(record.dwBuildNumber);
    const bool pack6 =
        record.dwMajorVersion == 4 && CString(record.szCSDVersion) == _T("Service Pack 6");
    if (!pack6)
        text.AppendFormat(_T("%s (Build %d)"), record.szCSDVersion, build);
    else if (facts.hasServicePack6a())
        text.AppendFormat(_T("Service Pack 6a (Build %d)"), build);
    else // Deliberate: only this text ends with a line feed.
        text.AppendFormat(_T("%s (Build %d)\n"), record.szCSDVersion, build);
}

bool DescribeNT(const SystemFacts& facts, CString& text) {
    text = ProductName(facts);
    if (facts.version.extended)
        text += Edition(facts);
    else if (!AppendRegisteredEdition(facts, text))
        return false;
    AppendServicePackAndBuild(facts, text);
    return true;
}

// The 9x releases give their service pack as a letter after a blank.
WCHAR ServicePackLetter(const OSVERSIONINFOEXW& record) {
    return CString(record.szCSDVersion).TrimLeft(' ')[0];
}

CString Describe9x(const OSVERSIONINFOEXW& record) {
    const WCHAR letter = ServicePackLetter(record);
    switch (record.dwMinorVersion) {
    case 0:
        return CString(_T("Microsoft Windows 95 ")) +
               (letter == 'B' || letter == 'C' ? _T("OSR2") : _T(""));
    case 10:
        return CString(_T("Microsoft Windows 98 ")) + (letter == 'A' ? _T("SE") : _T(""));
    case 90:
        return _T("Microsoft Windows Millennium Edition");
    default:
        return CString();
    }
}

} // namespace

VersionQuery& CurrentVersionQuery() {
    static VersionQuery query = [](OSVERSIONINFOW* record) -> BOOL {
        return GetVersionExW(record);
    };
    return query;
}

bool ReadSystemVersion(SystemVersion& version) {
    for (const bool extended : {true, false}) {
        version.record = {};
        version.record.dwOSVersionInfoSize =
            extended ? sizeof(OSVERSIONINFOEXW) : sizeof(OSVERSIONINFOW);
        version.extended = extended;
        // The basic record is the beginning of the extended one.
        if (CurrentVersionQuery()(reinterpret_cast<OSVERSIONINFOW*>(&version.record)))
            return true;
    }
    return false;
}

int ClassifySystem(const SystemVersion& version) {
    const OSVERSIONINFOEXW& record = version.record;
    for (const SystemRule& rule : kSystemRules)
        if (rule.platform == record.dwPlatformId && Matches(rule.major, record.dwMajorVersion) &&
            Matches(rule.minor, record.dwMinorVersion) &&
            Matches(rule.productType, record.wProductType))
            return rule.system;
    return kSystemUnknown;
}

bool DescribeSystem(const SystemFacts& facts, CString& text) {
    const OSVERSIONINFOEXW& record = facts.version.record;
    switch (record.dwPlatformId) {
    case VER_PLATFORM_WIN32_NT:
        return DescribeNT(facts, text);
    case VER_PLATFORM_WIN32_WINDOWS:
        text = Describe9x(record);
        return true;
    case VER_PLATFORM_WIN32s:
        text = _T("Microsoft Win32s");
        return true;
    default:
        text = _T("Unknown operating system");
        return true;
    }
}

bool IsThemedSystem(const SystemVersion& version) {
    const OSVERSIONINFOEXW& record = version.record;
    return record.dwPlatformId == VER_PLATFORM_WIN32_NT &&
           (record.dwMajorVersion > 5 ||
            (record.dwMajorVersion == 5 && record.dwMinorVersion != 0));
}

} // namespace quorvel

namespace {

BOOL IsPlatform(DWORD platform) {
    quorvel::SystemVersion version;
    return quorvel::ReadSystemVersion(version) && version.record.dwPlatformId == platform;
}

} // namespace

int AfxGetOperatingSystem() {
    quorvel::SystemVersion version;
    return quorvel::ReadSystemVersion(version) ? quorvel::ClassifySystem(version)
                                               : int{quorvel::kSystemUnknown};
}

BOOL AfxIsValidOperatingSystem(int system) {
    return system >= quorvel::kSystemUnknown && system <= quorvel::kSystemWindowsServerLonghorn;
}

BOOL AfxIsSupportedOperatingSystem(int system) {
    return system > quorvel::kSystemUnknown && AfxIsValidOperatingSystem(system);
}

BOOL AfxGetOperatingSystemText(CString& text) {
    text.Empty();
    quorvel::SystemFacts facts;
    if (!quorvel::ReadSystemVersion(facts.version))
        return FALSE;
    facts.release2 = GetSystemMetrics(SM_SERVERR2) != 0;
    quorvel::ReadMachineFacts(facts);
    CString description;
    if (!quorvel::DescribeSystem(facts, description))
        return FALSE;
    text = description;
    return TRUE;
}

BOOL AfxIsUnknownOperatingSystem() {
    return AfxGetOperatingSystem() <= quorvel::kSystemUnknown;
}
BOOL AfxIsWindows95() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindows95;
}
BOOL AfxIsWindows98() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindows98;
}
BOOL AfxIsWindowsMilleniumEdition() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindowsMe;
}
// Deliberate: hosts rely on both NT predicates testing for NT 4.
BOOL AfxIsWindowsNT351() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindowsNT4;
}
BOOL AfxIsWindowsNT4() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindowsNT4;
}
BOOL AfxIsWindowsNT() {
    const int system = AfxGetOperatingSystem();
    return system == quorvel::kSystemWindowsNT351 || system == quorvel::kSystemWindowsNT4;
}
BOOL AfxIsWindows2000() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindows2000;
}
BOOL AfxIsWindowsXP() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindowsXP;
}
BOOL AfxIsWindowsServer2003() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindowsServer2003;
}
BOOL AfxIsWindowsVista() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindowsVista;
}
BOOL AfxIsWindowsServerLonghorn() {
    return AfxGetOperatingSystem() == quorvel::kSystemWindowsServerLonghorn;
}

BOOL AfxIsWin32sPlatform() {
    return IsPlatform(VER_PLATFORM_WIN32s);
}
BOOL AfxIsWin32WindowsPlatform() {
    return IsPlatform(VER_PLATFORM_WIN32_WINDOWS);
}
BOOL AfxIsWin32NTPlatform() {
    return IsPlatform(VER_PLATFORM_WIN32_NT);
}
BOOL AfxDoesOperatingSystemSupportUnicode() {
    return AfxIsWin32NTPlatform();
}
BOOL AfxIsThemedOperatingSystem() {
    quorvel::SystemVersion version;
    return quorvel::ReadSystemVersion(version) && quorvel::IsThemedSystem(version);
}

#include <quorvel/system/profile.h>

#include "support/date_time.h"
#include "support/registry.h"
#include "support/test.h"

#include <cstring>

using namespace quorvel::win32;

namespace {

constexpr ULONGLONG kLarge = 0x123456789abcdef0u;

std::string RawBytes(HKEY key, const WCHAR* name, DWORD& kind) {
    std::string bytes(64, '?');
    DWORD size = 64;
    EXPECT_EQ(
        RegQueryValueExW(key, name, nullptr, &kind, reinterpret_cast<BYTE*>(bytes.data()), &size),
        0);
    return bytes.substr(0, size);
}

std::string ReadBinary(const auto&... place) {
    BYTE* data = nullptr;
    UINT length = 0;
    if (!AfxGetProfileBinary(place..., &data, &length))
        return "none";
    const std::unique_ptr<BYTE[]> owner(data);
    return std::string(reinterpret_cast<const char*>(data), length);
}

// Writes and reads back each type at one place: (key, name), (path, subKey, name) and so on.
constexpr auto kCheckRoundTrip = [](const auto&... place) {
    BYTE bytes[] = {'a', 0, 0xff};
    const COleDateTime date(2007, 3, 7, 13, 45, 6);
    EXPECT_TRUE(AfxWriteProfileDWord(place..., 0xfedcba98));
    EXPECT_EQ(AfxGetProfileDWord(place..., 1), 0xfedcba98);
    EXPECT_TRUE(AfxWriteProfileQWord(place..., kLarge));
    EXPECT_EQ(AfxGetProfileQWord(place..., 1), kLarge);
    EXPECT_TRUE(AfxWriteProfileString(place..., _T("te\u00dft")));
    EXPECT_EQ(AfxGetProfileString(place..., _T("default")), _T("te\u00dft"));
    EXPECT_EQ(ReadBinary(place...), "none");
    EXPECT_TRUE(AfxWriteProfileBinary(place..., bytes, 3));
    EXPECT_EQ(ReadBinary(place...), std::string("a\0\xff", 3));
    EXPECT_TRUE(AfxWriteProfileOleDateTime(place..., date));
    EXPECT_EQ(AfxGetProfileOleDateTime(place..., COleDateTime()), date);
};

// No value exists: the defaults are returned.
void CheckDefaults(const CString& text, const auto&... place) {
    const COleDateTime date(1.5);
    EXPECT_EQ(AfxGetProfileDWord(place..., 7), 7u);
    EXPECT_EQ(AfxGetProfileQWord(place..., kLarge), kLarge);
    EXPECT_EQ(AfxGetProfileString(place..., _T("default")), text);
    EXPECT_EQ(ReadBinary(place...), "none");
    EXPECT_EQ(AfxGetProfileOleDateTime(place..., date), date);
}

// Each writer refuses this place.
constexpr auto kCheckRefused = [](const auto&... place) {
    BYTE data = 1;
    EXPECT_FALSE(AfxWriteProfileDWord(place..., 1));
    EXPECT_FALSE(AfxWriteProfileQWord(place..., 1));
    EXPECT_FALSE(AfxWriteProfileString(place..., _T("x")));
    EXPECT_FALSE(AfxWriteProfileBinary(place..., &data, 1));
    EXPECT_FALSE(AfxWriteProfileOleDateTime(place..., COleDateTime()));
};

void InEveryForm(HKEY key, const CRegistryPath& path, const WCHAR* subKey, const WCHAR* name,
                 auto check) {
    check(key, name);
    check(path, name);
    check(key, subKey, name);
    check(path, subKey, name);
}

const HKEY kNoKey = nullptr;
const WCHAR* const kNull = nullptr;
const WCHAR* const kName = _T("v");

} // namespace

TEST(Profile, ValuesAreReadAsTheyWereWrittenInEveryForm) {
    const TestKey test;
    const CRegistryPath path(HKEY_CURRENT_USER, test.Path() + _T("\\path"));
    InEveryForm(test.Get(), path, _T("sub\\key"), kName, kCheckRoundTrip);
    kCheckRoundTrip(path, _T("sub\\key"), _T("")); // the default value of a key
}

TEST(Profile, NullsAndInvalidPathsAreRefused) {
    const TestKey test;
    const CRegistryPath path(HKEY_CURRENT_USER, test.Path() + _T("\\path"));
    InEveryForm(kNoKey, CRegistryPath(HKEY_DYN_DATA, test.Path()), _T("sub"), kName, kCheckRefused);
    InEveryForm(test.Get(), path, _T("sub"), kNull, kCheckRefused);
    kCheckRefused(test.Get(), kNull, kName);
    BYTE data = 1;
    EXPECT_FALSE(AfxWriteProfileString(test.Get(), _T("sub"), kName, kNull));
    EXPECT_FALSE(AfxWriteProfileBinary(test.Get(), _T("sub"), kName, &data, 0));
    // Texts fall back to nothing or to the default.
    const CRegistryPath missing(path, _T("missing"));
    for (const CRegistryPath& place : {path, missing, CRegistryPath(HKEY_DYN_DATA, test.Path())}) {
        CheckDefaults(_T("default"), place, kName);
        CheckDefaults(_T(""), place, kNull);
    }
    CheckDefaults(_T("default"), test.Get(), kName);
    CheckDefaults(_T(""), kNoKey, kName);
    WCHAR name[64];
    DWORD size = 64;
    EXPECT_EQ(RegEnumKeyExW(test.Get(), 0, name, &size, nullptr, nullptr, nullptr, nullptr), 259)
        << "neither a refusal nor a getter creates a key";
}

TEST(Profile, StoredBytesAreFixed) {
    const TestKey test;
    BYTE bytes[] = {1, 2};
    AfxWriteProfileDWord(test.Get(), _T("d"), 0x01020304);
    AfxWriteProfileQWord(test.Get(), _T("q"), 0x0102030405060708u);
    AfxWriteProfileString(test.Get(), _T("s"), _T("\u20ac1"));
    AfxWriteProfileBinary(test.Get(), _T("b"), bytes, 2);
    AfxWriteProfileOleDateTime(test.Get(), _T("t"), COleDateTime(-1.25));
    const std::tuple<const WCHAR*, DWORD, std::string> rows[] = {
        {_T("d"), 4, "\x04\x03\x02\x01"},
        {_T("q"), 11, "\x08\x07\x06\x05\x04\x03\x02\x01"},
        {_T("s"), 1, std::string("\xac\x20\x31\0\0\0", 6)},
        {_T("b"), 3, "\x01\x02"},
        {_T("t"), 3, std::string("\0\0\0\0\0\0\xf4\xbf\0\0\0\0", 12)},
    };
    for (const auto& [name, expectedKind, stored] : rows) {
        DWORD kind = 99;
        EXPECT_EQ(RawBytes(test.Get(), name, kind), stored) << CStringA(name);
        EXPECT_EQ(kind, expectedKind) << CStringA(name);
    }
}

TEST(Profile, TextOfAnyLengthIsRead) {
    const TestKey test;
    const std::tuple<const char*, DWORD, std::string, CString> rows[] = {
        {"no terminator", REG_SZ, std::string("a\0b\0", 4), _T("ab")},
        {"one byte", REG_SZ, "a", _T("")},
        {"a zero inside", REG_SZ, std::string("a\0\0\0b\0\0\0", 8), _T("a")},
        {"text to expand", REG_EXPAND_SZ, std::string("a\0\0\0", 4), _T("default")},
    };
    for (const auto& [label, kind, bytes, expected] : rows) {
        ASSERT_EQ(TestKey::Set(test.Get(), _T("v"), kind, bytes), 0);
        EXPECT_EQ(AfxGetProfileString(test.Get(), _T("v"), _T("default")), expected) << label;
    }
}

TEST(Profile, NumbersOfAnotherKindOrSizeAreNotTaken) {
    const TestKey test;
    for (const DWORD kind : {REG_DWORD, REG_QWORD})
        for (const std::size_t size : {3, 4, 8}) {
            ASSERT_EQ(TestKey::Set(test.Get(), kName, kind, std::string(size, 'a')), 0);
            const bool isDWord = kind == REG_DWORD && size == 4;
            const bool isQWord = kind == REG_QWORD && size == 8;
            EXPECT_EQ(AfxGetProfileDWord(test.Get(), kName, 7), isDWord ? 0x61616161u : 7u);
            EXPECT_EQ(AfxGetProfileQWord(test.Get(), kName, 7), isQWord ? 0x6161616161616161u : 7u);
        }
}

TEST(Profile, ADateComesBackAsItsBytesWereStored) {
    const TestKey test;
    const COleDateTime marker(1.5);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::tuple<double, LONG> rows[] = {
        {39148.5, 1}, {39148.5, 3}, {39148.5, INT_MIN}, {2958466.5, 0}, {nan, 0},
    };
    for (const auto& [days, status] : rows) {
        std::string bytes(12, 0);
        std::memcpy(bytes.data(), &days, 8);
        std::memcpy(bytes.data() + 8, &status, 4);
        ASSERT_EQ(TestKey::Set(test.Get(), _T("v"), REG_BINARY, bytes), 0);
        const COleDateTime date = AfxGetProfileOleDateTime(test.Get(), _T("v"), marker);
        EXPECT_EQ(date.GetStatus(), static_cast<COleDateTime::DateTimeStatus>(status)) << days;
        EXPECT_EQ(std::memcmp(&date.m_dt, &days, 8), 0) << days;
        EXPECT_EQ(date.GetYear(), -1) << days << ' ' << status; // such a number is not used
    }
    for (const std::size_t size : {8, 11, 13}) {
        ASSERT_EQ(TestKey::Set(test.Get(), _T("v"), REG_BINARY, std::string(size, 0)), 0);
        EXPECT_EQ(AfxGetProfileOleDateTime(test.Get(), _T("v"), marker), marker) << size;
    }
}

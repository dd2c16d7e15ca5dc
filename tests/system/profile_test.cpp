#include <quorvel/system/profile.h>

#include "support/date_time.h"
#include "support/registry.h"
#include "support/test.h"

#include <cstring>

using namespace quorvel::win32;

namespace {

constexpr ULONGLONG kLarge = 0x123456789abcdef0u;

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
    typedef std::pair<DWORD, std::string> Value; // its kind and bytes
    const auto stored = [&test](BOOL isWritten) {
        EXPECT_TRUE(isWritten);
        Value value(99, std::string(64, '?'));
        DWORD size = 64;
        EXPECT_EQ(0, RegQueryValueExW(test.Get(), kName, nullptr, &value.first,
                                      reinterpret_cast<BYTE*>(value.second.data()), &size));
        value.second.resize(size);
        return value;
    };
    BYTE bytes[] = {1, 2};
    ExpectCases<Value>({
        CASE(stored(AfxWriteProfileDWord(test.Get(), kName, 0x01020304)),
             Value(4, "\x04\x03\x02\x01")),
        CASE(stored(AfxWriteProfileQWord(test.Get(), kName, 0x0102030405060708u)),
             Value(11, "\x08\x07\x06\x05\x04\x03\x02\x01")),
        CASE(stored(AfxWriteProfileString(test.Get(), kName, _T("\u20ac1"))),
             Value(1, std::string("\xac\x20\x31\0\0\0", 6))),
        CASE(stored(AfxWriteProfileBinary(test.Get(), kName, bytes, 2)), Value(3, "\x01\x02")),
        CASE(stored(AfxWriteProfileOleDateTime(test.Get(), kName, COleDateTime(-1.25))),
             Value(3, std::string("\0\0\0\0\0\0\xf4\xbf\0\0\0\0", 12))),
    });
}

TEST(Profile, ValuesOfAnotherKindOrSizeAreNotTaken) {
    using namespace std::string_literals;
    const TestKey test;
    // The kind, the bytes, and what is read as a DWORD, a QWORD and a text.
    const std::tuple<DWORD, std::string, DWORD, ULONGLONG, const WCHAR*> rows[] = {
        {REG_SZ, "a\0b\0"s, 7, 7, _T("ab")}, // no terminator
        {REG_SZ, "a"s, 7, 7, _T("")},
        {REG_SZ, "a\0\0\0b\0\0\0"s, 7, 7, _T("a")},
        {REG_EXPAND_SZ, "a\0\0\0"s, 7, 7, _T("default")},
        {REG_DWORD, "aaa", 7, 7, _T("default")},
        {REG_DWORD, "aaaa", 0x61616161, 7, _T("default")},
        {REG_DWORD, "aaaaaaaa", 7, 7, _T("default")},
        {REG_QWORD, "aaaa", 7, 7, _T("default")},
        {REG_QWORD, "aaaaaaaa", 7, 0x6161616161616161, _T("default")},
    };
    for (const auto& [kind, bytes, dword, qword, text] : rows) {
        SCOPED_TRACE(testing::Message() << kind << ' ' << bytes);
        ASSERT_EQ(TestKey::Set(test.Get(), kName, kind, bytes), 0);
        EXPECT_EQ(AfxGetProfileDWord(test.Get(), kName, 7), dword);
        EXPECT_EQ(AfxGetProfileQWord(test.Get(), kName, 7), qword);
        EXPECT_EQ(AfxGetProfileString(test.Get(), kName, _T("default")), text);
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

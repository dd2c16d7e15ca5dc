// The registry's operations on both systems. Table columns mark the differences of Wine.
#include <quorvel/framework/string.h>

#include "support/registry.h"
#include "support/test.h"

using namespace quorvel::win32;

namespace {

const HKEY kInvented = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(0x1234));

LSTATUS Create(HKEY parent, const WCHAR* path) {
    HKEY key = nullptr;
    const LSTATUS error =
        RegCreateKeyExW(parent, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    EXPECT_TRUE(error != 0 || RegCloseKey(key) == 0);
    return error;
}

LSTATUS Open(HKEY parent, const WCHAR* path) {
    HKEY key = kInvented;
    const LSTATUS error = RegOpenKeyExW(parent, path, 0, KEY_READ | KEY_WRITE, &key);
    EXPECT_TRUE(error != 0 ? key == nullptr : RegCloseKey(key) == 0);
    return error;
}

constexpr auto Set = TestKey::Set;

// The next name that the operation returns.
LSTATUS Enumerate(auto operation, HKEY key, DWORD index, Wide& name) {
    name.resize(256);
    DWORD size = 256;
    const LSTATUS error =
        operation(key, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr);
    name.resize(error == 0 ? size : 0);
    return error;
}

} // namespace

TEST(Registry, PathsAreSeparatedByBackslashes) {
    const TestKey key;
    const Wide longest(255, 'x');
    Wide deep = _T("deep");
    for (int depth = 0; depth < 400; ++depth)
        deep += _T("\\d");
    const std::tuple<Wide, LSTATUS, Wide, LSTATUS> rows[] = {
        {_T("a"), 0, _T("a\\\\"), 0},
        {_T("c\\\\f"), 0, _T("c\\f"), 0},
        {_T("c"), 0, _T("missing\\d"), 2},
        {_T("x/y z"), 0, _T("x/y z"), 0}, // the slash is an ordinary character
        {_T(""), 0, _T(""), 0},
        {_T("\\a"), 161, _T("\\a"), 161},
        {longest, 0, longest, 0},
        {deep, 0, deep, 0},
    };
    for (const auto& [create, created, open, opened] : rows) {
        EXPECT_EQ(Create(key.Get(), create.c_str()), created) << CString(create.c_str());
        EXPECT_EQ(Open(key.Get(), open.c_str()), opened) << CString(open.c_str());
    }
    // Wine has no limits here.
    EXPECT_EQ(Create(key.Get(), (longest + _T("x")).c_str()), kOnLinux ? 87 : 0);
    EXPECT_EQ(Create(key.Get(), (deep + deep).c_str()), kOnLinux ? 87 : 0);
}

TEST(Registry, NamesAreFoundWithoutCaseAndKeepTheirs) {
    const std::tuple<const WCHAR*, const WCHAR*, bool> rows[] = {
        {_T("Key"), _T("kEY"), true},
        {_T("\u03a3"), _T("\u03c2"), false},         // the final sigma is a different letter
        {_T("stra\u00dfe"), _T("STRASSE"), false},   // one letter never equals two
        {_T("\U00010400"), _T("\U00010428"), false}, // surrogates are not folded
        {_T("\xd800"), _T("\xd800"), true},          // ill-formed text can be a name
    };
    for (const auto& [written, asked, isFound] : rows) {
        const TestKey key;
        const CString label(written);
        EXPECT_EQ(Create(key.Get(), written), 0) << label;
        EXPECT_EQ(Open(key.Get(), asked), isFound ? 0 : 2) << label;
        EXPECT_EQ(Set(key.Get(), written, REG_BINARY, "x"), 0) << label;
        EXPECT_EQ(RegDeleteValueW(key.Get(), asked), isFound ? 0 : 2) << label;
        EXPECT_EQ(RegDeleteValueW(key.Get(), written), isFound ? 2 : 0) << label;
    }
}

TEST(Registry, BadHandlesAndArgumentsAreRefused) {
    const TestKey test;
    const HKEY key = test.Get();
    ASSERT_EQ(Set(key, _T("v"), REG_DWORD, "abcd"), 0);
    BYTE data[8];
    const Wide longest(16'383, 'n');
    const Wide tooLong(16'384, 'n');
    ExpectCases<LSTATUS>({
        {"open, null handle", Open(nullptr, _T("x")), 6},
        {"performance data", Create(HKEY_PERFORMANCE_DATA, _T("x")), 6},
        {"close, invented handle", RegCloseKey(kInvented), 6},
        {"open, no result", RegOpenKeyExW(key, _T("x"), 0, KEY_READ, nullptr), 87},
        {"query, no size", RegQueryValueExW(key, _T("v"), nullptr, nullptr, data, nullptr), 87},
        {"set, no data", RegSetValueExW(key, _T("n"), 0, REG_BINARY, nullptr, 4), 998},
        {"set, longest name", Set(key, longest.c_str(), REG_BINARY, "x"), 0},
        {"set, name too long", Set(key, tooLong.c_str(), REG_BINARY, "x"), 87},
    });
}

TEST(Registry, DataComesBackWithItsKindAndSize) {
    const TestKey test;
    const std::string big(1 << 20, 'z');
    using namespace std::string_literals;
    // The last field is the result with the following bytes of the buffer.
    const std::tuple<const char*, DWORD, std::string, std::string> rows[] = {
        {"number of a wrong size", REG_DWORD, "abc", "abc??"},
        {"text that lacks its terminator", REG_SZ, "a\0b\0"s, "a\0b\0\0\0?"s},
        {"text of odd length", REG_SZ, "a\0b"s, "a\0b\0\0??"s},
        {"own kind", 0x80000001, "own", "own??"},
        {"1 MB", REG_BINARY, big, big},
    };
    for (const auto& [label, storedKind, stored, read] : rows) {
        ASSERT_EQ(Set(test.Get(), _T("v"), storedKind, stored), 0) << label;
        const DWORD length = static_cast<DWORD>(stored.size());
        std::string buffer(read.size(), '?');
        DWORD kind = 99, size = 99;
        const auto query = [&](BYTE* data) {
            return RegQueryValueExW(test.Get(), _T("V"), nullptr, &kind, data, &size);
        };
        BYTE* const data = reinterpret_cast<BYTE*>(buffer.data());
        EXPECT_TRUE(query(nullptr) == 0 && kind == storedKind && size == length) << label;
        size = length - 1;
        EXPECT_TRUE(query(data) == 234 && size == length) << label;
        EXPECT_EQ(buffer, std::string(read.size(), '?')) << label;
        size = static_cast<DWORD>(buffer.size());
        EXPECT_TRUE(query(data) == 0 && size == length) << label;
        EXPECT_TRUE(buffer == read) << label;
    }
}

TEST(Registry, NamesAreEnumeratedInOrder) {
    const TestKey test;
    const std::vector<Wide> expected = {_T("_"), _T("A"), _T("b"), _T("B2"), _T("c"), _T("\u00c4")};
    Wide name;
    // Each name, and the first name of an enumeration afterwards.
    const std::tuple<const WCHAR*, const WCHAR*> rows[] = {
        {_T("b"), _T("b")}, {_T("\u00c4"), _T("b")}, {_T("A"), _T("A")},
        {_T("_"), _T("_")}, {_T("c"), _T("_")},      {_T("B2"), _T("_")},
    };
    for (const auto& [added, first] : rows) {
        ASSERT_EQ(Create(test.Get(), added), 0);
        ASSERT_EQ(Set(test.Get(), added, REG_BINARY, "xyz"), 0);
        EXPECT_TRUE(Enumerate(RegEnumKeyExW, test.Get(), 0, name) == 0 && name == first);
        EXPECT_TRUE(Enumerate(RegEnumValueW, test.Get(), 0, name) == 0 && name == first);
    }
    for (const DWORD index : {0u, 1u, 2u, 3u, 4u, 5u, 3u, 3u, 4u, 0u, 2u}) { // in sequence or not
        EXPECT_EQ(Enumerate(RegEnumValueW, test.Get(), index, name), 0);
        EXPECT_TRUE(name == expected[index]);
        EXPECT_EQ(Enumerate(RegEnumKeyExW, test.Get(), index, name), 0);
        EXPECT_TRUE(name == expected[index]);
    }
    EXPECT_EQ(Enumerate(RegEnumValueW, test.Get(), 6, name), 259);

    // A name that does not fit leaves the data too.
    WCHAR cut[2] = {'?'};
    BYTE data[3] = {'?'};
    DWORD nameSize = 2, size = 3;
    EXPECT_EQ(RegEnumValueW(test.Get(), 3, cut, &nameSize, nullptr, nullptr, data, &size), 234);
    EXPECT_TRUE(cut[0] == '?' && data[0] == '?');
}

TEST(Registry, HandlesOfADeletedKeyAreDead) {
    const TestKey test;
    HKEY deleted = nullptr;
    ASSERT_EQ(Create(test.Get(), _T("k\\below")), 0);
    ASSERT_EQ(RegOpenKeyExW(test.Get(), _T("k"), 0, KEY_ALL_ACCESS, &deleted), 0);
    ASSERT_EQ(Set(deleted, _T("v"), REG_BINARY, "x"), 0);
    EXPECT_EQ(RegDeleteKeyW(test.Get(), _T("k")), 5); // it has a sub key
    EXPECT_EQ(RegDeleteKeyW(deleted, _T("below")), 0);
    EXPECT_EQ(RegDeleteKeyW(test.Get(), _T("K")), 0);
    ASSERT_EQ(Create(test.Get(), _T("k")), 0); // a new key with that name
    Wide name;
    ExpectCases<LSTATUS>({
        {"set", Set(deleted, _T("v"), REG_BINARY, "x"), 1018},
        {"enumerate keys", Enumerate(RegEnumKeyExW, deleted, 0, name), 1018},
        {"close", RegCloseKey(deleted), 0},
        {"close again", RegCloseKey(deleted), 6},
    });
}

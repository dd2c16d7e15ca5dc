// The registry's operations on both systems. Table columns mark the differences of Wine.
#include <quorvel/framework/string.h>

#include "support/registry.h"
#include "support/test.h"

using namespace quorvel::win32;

namespace {

const HKEY kInvented = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(0x1234));

// Closes the handle unless the caller wants it.
LSTATUS Give(LSTATUS error, HKEY key, HKEY* result) {
    if (result != nullptr)
        *result = key;
    else if (key != nullptr)
        RegCloseKey(key);
    return error;
}

LSTATUS Create(HKEY parent, const WCHAR* path, HKEY* result = nullptr) {
    HKEY key = nullptr;
    const LSTATUS error =
        RegCreateKeyExW(parent, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return Give(error, key, result);
}

LSTATUS Open(HKEY parent, const WCHAR* path, HKEY* result = nullptr,
             REGSAM access = KEY_READ | KEY_WRITE) {
    HKEY key = kInvented;
    const LSTATUS error = RegOpenKeyExW(parent, path, 0, access, &key);
    EXPECT_TRUE(error == 0 || key == nullptr);
    return Give(error, key, result);
}

constexpr auto Set = TestKey::Set;

LSTATUS Query(HKEY key, const WCHAR* name) {
    return RegQueryValueExW(key, name, nullptr, nullptr, nullptr, nullptr);
}

// The next name that the operation returns.
LSTATUS Enumerate(auto operation, HKEY key, DWORD index, Wide& name) {
    name.resize(256);
    DWORD size = 256;
    const LSTATUS error =
        operation(key, index, name.data(), &size, nullptr, nullptr, nullptr, nullptr);
    name.resize(error == 0 ? size : 0);
    return error;
}
LSTATUS EnumKey(HKEY key, DWORD index, Wide& name) {
    return Enumerate(RegEnumKeyExW, key, index, name);
}
LSTATUS EnumValue(HKEY key, DWORD index, Wide& name) {
    return Enumerate(RegEnumValueW, key, index, name);
}

template <class Next>
std::vector<Wide> AllNames(HKEY key, Next next) {
    std::vector<Wide> names;
    Wide name;
    for (DWORD index = 0; next(key, index, name) == 0; ++index)
        names.push_back(name);
    return names;
}

} // namespace

TEST(Registry, PathsAreSeparatedByBackslashes) {
    const TestKey key;
    const Wide longest(255, 'x');
    Wide deep = _T("deep");
    for (int depth = 0; depth < 400; ++depth)
        deep += _T("\\d");
    const std::tuple<Wide, LSTATUS, Wide, LSTATUS> rows[] = {
        {_T("a"), 0, _T("a\\\\"), 0},     {_T("c\\d\\e"), 0, _T("c\\d"), 0},
        {_T("c\\\\f"), 0, _T("c\\f"), 0}, {_T("c"), 0, _T("missing\\d"), 2},
        {_T("x/y z"), 0, _T("x/y z"), 0}, // the slash is an ordinary character
        {_T(""), 0, _T(""), 0},           {_T("\\a"), 161, _T("\\a"), 161},
        {longest, 0, longest, 0},         {deep, 0, deep, 0},
    };
    for (const auto& [create, created, open, opened] : rows) {
        const CString label(create.c_str());
        EXPECT_EQ(Create(key.Get(), create.c_str()), created) << CStringA(label);
        EXPECT_EQ(Open(key.Get(), open.c_str()), opened) << CStringA(label);
    }
    EXPECT_EQ(Create(key.Get(), nullptr), 0);
    EXPECT_EQ(Open(key.Get(), nullptr), 0);
    // Wine has no limits here.
    EXPECT_EQ(Create(key.Get(), (longest + _T("x")).c_str()), kOnLinux ? 87 : 0);
    EXPECT_EQ(Create(key.Get(), (deep + deep).c_str()), kOnLinux ? 87 : 0);
}

TEST(Registry, NamesAreFoundWithoutCaseAndKeepTheirs) {
    const std::tuple<const WCHAR*, const WCHAR*, bool> rows[] = {
        {_T("Key"), _T("kEY"), true},
        {_T("\u00c4\u03a3\u0416"), _T("\u00e4\u03c3\u0436"), true},
        {_T("\u03a3"), _T("\u03c2"), false},         // the final sigma is a different letter
        {_T("stra\u00dfe"), _T("STRASSE"), false},   // one letter never equals two
        {_T("\U00010400"), _T("\U00010428"), false}, // surrogates are not folded
        {_T("\xd800"), _T("\xd800"), true},          // ill-formed text can be a name
    };
    for (const auto& [written, asked, isFound] : rows) {
        const TestKey key;
        const std::string label = Printable(written, static_cast<int>(Wide(written).size()));
        EXPECT_EQ(Create(key.Get(), written), 0) << label;
        EXPECT_EQ(Open(key.Get(), asked), isFound ? 0 : 2) << label;
        EXPECT_EQ(Set(key.Get(), written, REG_BINARY, "x"), 0) << label;
        EXPECT_EQ(RegDeleteValueW(key.Get(), asked), isFound ? 0 : 2) << label;
        EXPECT_EQ(RegDeleteValueW(key.Get(), written), isFound ? 2 : 0) << label;
    }
    const TestKey key;
    EXPECT_EQ(Create(key.Get(), _T("Key")), 0);
    EXPECT_EQ(Create(key.Get(), _T("kEy")), 0);
    EXPECT_EQ(Set(key.Get(), _T("Value"), REG_BINARY, "x"), 0);
    EXPECT_EQ(Set(key.Get(), _T("vALUE"), REG_BINARY, "y"), 0);
    EXPECT_EQ(AllNames(key.Get(), EnumValue), std::vector<Wide>{_T("Value")});
    EXPECT_EQ(AllNames(key.Get(), EnumKey), std::vector<Wide>{_T("Key")});
}

TEST(Registry, BadHandlesAndArgumentsAreRefused) {
    const TestKey test;
    const HKEY key = test.Get();
    ASSERT_EQ(Set(key, _T("v"), REG_DWORD, "abcd"), 0);
    BYTE data[8];
    Wide found;
    const Wide longest(16'383, 'n');
    const Wide tooLong(16'384, 'n');
    ExpectCases<LSTATUS>({
        {"open, null handle", Open(nullptr, _T("x")), 6},
        {"query, invented handle", Query(kInvented, _T("v")), 6},
        {"close, invented handle", RegCloseKey(kInvented), 6},
        {"close, a root", RegCloseKey(HKEY_CURRENT_USER), 0},
        {"open, no result", RegOpenKeyExW(key, _T("x"), 0, KEY_READ, nullptr), 87},
        {"query, no size", RegQueryValueExW(key, _T("v"), nullptr, nullptr, data, nullptr), 87},
        {"query, missing", Query(key, _T("w")), 2},
        {"set, no data", RegSetValueExW(key, _T("n"), 0, REG_BINARY, nullptr, 4), 998},
        {"set, longest name", Set(key, longest.c_str(), REG_BINARY, "x"), 0},
        {"set, name too long", Set(key, tooLong.c_str(), REG_BINARY, "x"), 87},
        {"delete key, missing", RegDeleteKeyW(key, _T("w")), 2},
        {"enumerate keys, end", EnumKey(key, 0, found), 259},
    });
}

TEST(Registry, RootsAreOpenToAllButThoseOfPerformanceData) {
    const std::tuple<HKEY, LSTATUS> rows[] = {
        {HKEY_CLASSES_ROOT, 0},     {HKEY_CURRENT_USER, 0},
        {HKEY_LOCAL_MACHINE, 0},    {HKEY_USERS, 0},
        {HKEY_CURRENT_CONFIG, 0},   {HKEY_PERFORMANCE_DATA, 6},
        {HKEY_PERFORMANCE_TEXT, 6}, {HKEY_PERFORMANCE_NLSTEXT, 6},
    };
    for (const auto& [root, expected] : rows) {
        const TestKey name; // used only for its name
        const CString path = _T("Quorvel test ") + name.Path().Right(8);
        const UINT_PTR label = reinterpret_cast<UINT_PTR>(root);
        EXPECT_EQ(Create(root, path), expected) << label;
        EXPECT_EQ(Open(root, path), expected) << label;
        EXPECT_EQ(RegDeleteKeyW(root, path), expected) << label;
    }
    HKEY opened = nullptr;
    EXPECT_EQ(Open(HKEY_CURRENT_USER, nullptr, &opened), 0);
    EXPECT_EQ(opened, HKEY_CURRENT_USER);
}

TEST(Registry, DataComesBackWithItsKindAndSize) {
    const TestKey test;
    const std::string big(1 << 20, 'z');
    // The last field is the result with the following bytes of the buffer, up to 10 bytes.
    const std::tuple<const char*, DWORD, std::string, std::string> rows[] = {
        {"number of a wrong size", REG_DWORD, "abc", "abc???????"},
        {"text", REG_SZ, std::string("a\0\0\0", 4), std::string("a\0\0\0??????", 10)},
        {"text that lacks its terminator", REG_SZ, std::string("a\0b\0", 4),
         std::string("a\0b\0\0\0????", 10)},
        {"text of odd length", REG_SZ, std::string("a\0b", 3), std::string("a\0b\0\0?????", 10)},
        {"own kind", 0x80000001, "own", "own???????"},
        {"1 MB", REG_BINARY, big, big},
    };
    for (const auto& [label, storedKind, stored, read] : rows) {
        ASSERT_EQ(Set(test.Get(), _T("v"), storedKind, stored), 0) << label;
        const DWORD length = static_cast<DWORD>(stored.size());
        DWORD kind = 99;
        DWORD size = 99;
        EXPECT_EQ(RegQueryValueExW(test.Get(), _T("V"), nullptr, &kind, nullptr, &size), 0);
        EXPECT_EQ(kind, storedKind) << label;
        EXPECT_EQ(size, length) << label;
        std::string buffer(read.size(), '?');
        BYTE* const data = reinterpret_cast<BYTE*>(buffer.data());
        size = length - 1;
        EXPECT_EQ(RegQueryValueExW(test.Get(), _T("V"), nullptr, &kind, data, &size), 234);
        EXPECT_EQ(size, length) << label;
        EXPECT_EQ(buffer, std::string(read.size(), '?')) << label;
        size = static_cast<DWORD>(buffer.size());
        EXPECT_EQ(RegQueryValueExW(test.Get(), _T("V"), nullptr, &kind, data, &size), 0);
        EXPECT_EQ(size, length) << label;
        EXPECT_TRUE(buffer == read) << label;
    }
}

TEST(Registry, NamesAreEnumeratedInOrder) {
    const TestKey test;
    const std::vector<Wide> expected = {_T("_"), _T("A"), _T("b"), _T("B2"), _T("c"), _T("\u00c4")};
    struct Row {
        const WCHAR* name;
        const WCHAR* first; // the first name of an enumeration afterwards
    };
    Wide name;
    for (const Row& row : {Row{_T("b"), _T("b")},
                           {_T("\u00c4"), _T("b")},
                           {_T("A"), _T("A")},
                           {_T("_"), _T("_")},
                           {_T("c"), _T("_")},
                           {_T("B2"), _T("_")}}) {
        ASSERT_EQ(Create(test.Get(), row.name), 0);
        ASSERT_EQ(Set(test.Get(), row.name, REG_BINARY, "xyz"), 0);
        EXPECT_TRUE(EnumKey(test.Get(), 0, name) == 0 && name == row.first);
        EXPECT_TRUE(EnumValue(test.Get(), 0, name) == 0 && name == row.first);
    }
    EXPECT_EQ(AllNames(test.Get(), EnumKey), expected);
    EXPECT_EQ(AllNames(test.Get(), EnumValue), expected);
    for (const DWORD index : {5u, 3u, 3u, 4u, 0u, 2u}) { // not only in sequence
        EXPECT_EQ(EnumValue(test.Get(), index, name), 0);
        EXPECT_EQ(name, expected[index]);
        EXPECT_EQ(EnumKey(test.Get(), index, name), 0);
        EXPECT_EQ(name, expected[index]);
    }
    EXPECT_EQ(EnumValue(test.Get(), 6, name), 259);
}

TEST(Registry, ANameThatDoesNotFitLeavesTheDataToo) {
    const TestKey key;
    ASSERT_EQ(Set(key.Get(), _T("name"), REG_BINARY, "abcd"), 0);
    WCHAR name[4] = {'?'};
    DWORD nameSize = 4;
    BYTE data[5] = "????";
    DWORD size = 4;
    DWORD kind = 0;
    EXPECT_EQ(RegEnumValueW(key.Get(), 0, name, &nameSize, nullptr, &kind, data, &size), 234);
    EXPECT_EQ(name[0], '?');
    EXPECT_STREQ(reinterpret_cast<const char*>(data), "????");
}

TEST(Registry, HandlesOfADeletedKeyAreDead) {
    const TestKey test;
    HKEY deleted = nullptr;
    ASSERT_EQ(Create(test.Get(), _T("k\\below")), 0);
    ASSERT_EQ(Open(test.Get(), _T("k"), &deleted), 0);
    ASSERT_EQ(Set(deleted, _T("v"), REG_BINARY, "x"), 0);
    EXPECT_EQ(RegDeleteKeyW(test.Get(), _T("k")), 5); // it has a sub key
    EXPECT_EQ(RegDeleteKeyW(deleted, _T("below")), 0);
    EXPECT_EQ(RegDeleteKeyW(test.Get(), _T("K")), 0);
    ASSERT_EQ(Create(test.Get(), _T("k")), 0); // a new key with that name
    Wide name;
    ExpectCases<LSTATUS>({
        {"set", Set(deleted, _T("v"), REG_BINARY, "x"), 1018},
        {"open again", Open(deleted, _T("")), 1018},
        {"enumerate keys", EnumKey(deleted, 0, name), 1018},
        {"close", RegCloseKey(deleted), 0},
        {"close again", RegCloseKey(deleted), 6},
        {"set when closed", Set(deleted, _T("v"), REG_BINARY, "x"), 6},
    });
    EXPECT_TRUE(AllNames(test.Get(), EnumValue).empty());

    HKEY self = nullptr;
    ASSERT_EQ(Create(test.Get(), _T("self"), &self), 0);
    EXPECT_EQ(RegDeleteKeyW(self, _T("")), 0);
    EXPECT_EQ(Open(test.Get(), _T("self")), 2);
    RegCloseKey(self);
}

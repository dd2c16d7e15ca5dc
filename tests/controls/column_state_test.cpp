#include <quorvel/framework/app.h>
#include <quorvel/system/profile.h>

#include "support/registry.h"
#include "support/simulated_columns.h"
#include "support/test.h"

#include <cstring>

using namespace quorvel::win32;
using quorvel::Columns;

namespace {

// All numbers of a key and of its sub keys, ordered by name.
CString Dump(HKEY key) {
    CString text;
    WCHAR name[64];
    DWORD size = 64;
    std::vector<CString> names;
    for (DWORD i = 0; RegEnumValueW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == 0;
         ++i, size = 64)
        names.push_back(name);
    std::sort(names.begin(), names.end());
    for (const CString& value : names)
        text.AppendFormat(_T("%s=%d "), value.GetString(),
                          static_cast<int>(AfxGetProfileDWord(key, value, 0xbad)));
    for (DWORD i = 0; RegEnumKeyExW(key, i, name, &size, nullptr, nullptr, nullptr, nullptr) == 0;
         ++i, size = 64) {
        HKEY below = nullptr;
        RegOpenKeyExW(key, name, 0, KEY_READ, &below);
        text.AppendFormat(_T("%s[ %s] "), name, Dump(below).GetString());
        RegCloseKey(below);
    }
    return text;
}

// A state as "Count=3 Width0=50 Order0=-1 ..."; values that are not named are missing.
void WriteState(HKEY key, const char* text) {
    HKEY columns = nullptr;
    RegCreateKeyExW(key, _T("Columns"), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &columns, nullptr);
    char name[16];
    long long value = 0;
    for (int length = 0; std::sscanf(text, " %15[^=]=%lld%n", name, &value, &length) == 2;
         text += length) {
        const std::string word(name, std::strcspn(name, "0123456789"));
        CString valueName(name);
        for (const auto& [known, full] :
             std::initializer_list<std::pair<const char*, const WCHAR*>>{
                 {"Width", _T("Width")},
                 {"Order", _T("Sort Order")},
                 {"Sort", _T("Sort Column")},
                 {"Up", _T("Sort Ascending")},
                 {"Persist", _T("Persist Sort Order")}})
            valueName = word == known ? CString(full) : valueName;
        CString subKey;
        if (word != name)
            subKey.Format(_T("Column %d"), std::atoi(name + word.size()));
        AfxWriteProfileDWord(columns, subKey, valueName, static_cast<DWORD>(value));
    }
    RegCloseKey(columns);
}

struct ColumnState : testing::Test {
    ColumnState() { app.SetRegistryKey(test.Path().Mid(9)); } // relative to Software
    const TestKey test;
    const CRegistryPath path{HKEY_CURRENT_USER, test.Path() + _T("\\path")};
    CWinApp app{_T("Program")};
};

} // namespace

TEST_F(ColumnState, LooksTheSameInAKeyAPathAndASection) {
    SimulatedList list(4);
    list.columns.SetOrder({3, 0});
    list.columns.Show(2, false);
    list.columns.SetSort(1, false);
    const CString state =
        _T("Columns[ Count=4 Persist Sort Order=1 Sort Ascending=0 Sort Column=1 ")
        _T("Column 0[ Sort Order=1 Width=10 ] Column 1[ Sort Order=2 Width=20 ] ")
        _T("Column 2[ Sort Order=-1 Width=30 ] Column 3[ Sort Order=0 Width=40 ] ] ");
    HKEY key = nullptr;
    RegCreateKeyExW(test.Get(), _T("key"), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    EXPECT_TRUE(list.columns.SaveState(key, TRUE));
    EXPECT_NE(RegCloseKey(key), 0); // already closed
    EXPECT_TRUE(list.columns.SaveState(path) && list.columns.SaveState(_T("a")) &&
                list.columns.SaveState(_T("b\\")));
    EXPECT_EQ(Dump(test.Get()), _T("key[ ") + state + _T("] path[ ") + state +
                                    _T("] Program[ a[ ") + state + _T("] b[ ") + state +
                                    _T("] ] "));

    RegOpenKeyExW(test.Get(), _T("key"), 0, KEY_READ, &key);
    for (int i = 0; i < 4; ++i) {
        SimulatedList other(4);
        Columns& c = other.columns;
        EXPECT_TRUE(i == 0   ? c.LoadState(key, TRUE)
                    : i == 1 ? c.LoadState(path)
                             : c.LoadState(i == 2 ? _T("a") : _T("b\\")));
        EXPECT_EQ(other.Text(), _T("D40 A10 B20 (C30 )"));
        EXPECT_TRUE(c.GetSortColumn() == 1 && !c.IsSortAscending());
        EXPECT_EQ(other.view.m_defaultLoads, 0);
    }
    EXPECT_NE(RegCloseKey(key), 0) << "loading has closed it";
}

TEST_F(ColumnState, OfAPlainListIsItsWidths) {
    SimulatedList list;
    for (const int width : {50, 60})
        list.view.SetWidth(list.view.Insert(9, {}), width);
    EXPECT_TRUE(list.columns.SaveState(path));
    EXPECT_EQ(Dump(test.Get()),
              _T("path[ Columns[ Count=2 Persist Sort Order=0 Sort Ascending=1 Sort Column=-1 ")
              _T("Column 0[ Width=50 ] Column 1[ Width=60 ] ] ] "));
    SimulatedList other;
    for (int i = 0; i < 3; ++i)
        other.view.Insert(9, {});
    EXPECT_TRUE(other.columns.LoadState(path));
    EXPECT_EQ(other.Text(), _T("?50 ?60 ?10 ()"));
}

TEST_F(ColumnState, ThatNoListWroteLeavesAUsableList) {
    // The list and its sort after the state; "default" if it got the default widths.
    const auto loaded = [&](const char* state) {
        const TestKey place;
        SimulatedList list(3);
        list.columns.Insert(0, 3, false, _T("D"), 0, 40, -1);
        WriteState(place.Get(), state);
        EXPECT_TRUE(list.columns.LoadState(place.Get(), FALSE));
        EXPECT_TRUE(list.view.m_deletedSortColumns.empty()) << "loading does not sort";
        CString text = list.Text();
        if (list.columns.GetSortColumn() >= 0)
            text.AppendFormat(_T(" by %d"), list.columns.GetSortColumn());
        text += list.columns.IsSortAscending() ? _T("") : _T(" down");
        return text + (list.view.m_defaultLoads > 0 ? _T(" default") : _T(""));
    };
    ExpectCases<CString>({
        CASE(loaded(""), _T("A60 B60 C60 (D40 ) default")),
        CASE(loaded("Count=1 Width0=5 Sort=2 Up=0"), _T("A5 B20 C30 (D40 ) by 2 down")),
        CASE(loaded("Count=1 Width0=5 Sort=4 Up=7"), _T("A5 B20 C30 (D40 )")),
        CASE(loaded("Count=0 Sort=2147483647 Up=0"), _T("A60 B60 C60 (D40 ) down default")),
        // Sorted by a hidden column.
        CASE(loaded("Count=3 Persist=1 Width0=5 Order0=0 Sort=2 Up=1"),
             _T("A5 (B60 C60 D40 ) by 2")),
        CASE(loaded("Count=-1 Width0=50 Order0=0 Persist=1"), _T("A60 B60 C60 (D40 ) default")),
        CASE(loaded("Count=2147483647 Persist=1 Width0=50 Order0=1 Width1=51 Order1=0"),
             _T("B51 A50 (C60 D40 )")),
        // Of a longer and of a shorter list.
        CASE(loaded("Count=9 Persist=1 Width0=50 Order0=8 Width1=51 Order1=2 Width2=52 "
                    "Order2=0 Width3=53 Order3=1 Width8=99 Order8=3"),
             _T("C52 D53 B51 A50 ()")),
        CASE(loaded("Count=2 Persist=1 Width0=50 Order0=1 Width1=51 Order1=0"),
             _T("B51 A50 C30 (D40 )")),
        CASE(loaded("Count=2 Persist=1 Order0=1 Width1=51 Order1=0"),
             _T("B60 A60 C60 (D40 ) default")),
        // Widths of more than 16 bits, and widths that no list has.
        CASE(loaded("Count=3 Width0=65586 Width1=-5 Width2=32768"), _T("A50 B60 C60 (D40 )")),
        CASE(loaded("Count=4 Persist=1 Width0=-5 Width1=32768 Width2=-2147483648 "
                    "Width3=-1 Order0=0 Order1=1 Order2=2 Order3=3"),
             _T("A10 B20 C30 D40 ()")),
        CASE(loaded("Count=3 Persist=1 Width0=50 Order0=0 Order1=1 Order2=2"),
             _T("A50 B60 C60 (D40 )")),
        // A position twice, positions past the end, and no position at all.
        CASE(loaded("Count=4 Persist=1 Width0=50 Order0=2 Width1=51 Order1=0 Width2=52 "
                    "Order2=0 Width3=53 Order3=0"),
             _T("B51 A50 C52 D53 ()")),
        CASE(loaded("Count=4 Persist=1 Width0=50 Order0=4 Width1=51 Order1=-2 "
                    "Width2=52 Order2=3 Width3=53 Order3=2147483647"),
             _T("C52 A50 B51 D53 ()")),
        CASE(loaded("Count=4 Persist=1 Width0=50"), _T("A50 (B60 C60 D40 )")),
        // The first is hidden, with no width of its own.
        CASE(loaded("Count=4 Persist=1 Width0=-1 Order0=-1 Width1=51 Order1=1 Width2=52 Order2=0"),
             _T("C52 B51 (A60 D40 )")),
    });
}

TEST_F(ColumnState, OfAnotherKindCountsAsMissing) {
    WriteState(test.Get(), "Count=2 Persist=1 Width0=50 Order0=0 Width1=51 Order1=1");
    HKEY key = nullptr;
    RegOpenKeyExW(test.Get(), _T("Columns"), 0, KEY_WRITE, &key);
    TestKey::Set(key, _T("Sort Column"), REG_SZ, std::string("1\0\0\0", 4));
    TestKey::Set(key, _T("Column 1"), REG_BINARY, "1234"); // a value with the name of a sub key
    RegCloseKey(key);
    RegOpenKeyExW(test.Get(), _T("Columns\\Column 1"), 0, KEY_WRITE, &key);
    TestKey::Set(key, _T("Width"), REG_QWORD, "12345678");
    TestKey::Set(key, _T("Sort Order"), REG_DWORD, "12");
    RegCloseKey(key);
    SimulatedList list(2);
    EXPECT_TRUE(list.columns.LoadState(test.Get(), FALSE));
    EXPECT_EQ(list.Text(), _T("A50 (B60 )"));
    EXPECT_EQ(list.columns.GetSortColumn(), -1);
}

TEST(ColumnStateWithoutAPlace, IsRefused) {
    SimulatedList list(2);
    Columns& columns = list.columns;
    const TestKey test;
    const WCHAR* const noText = nullptr;
    EXPECT_FALSE(columns.SaveState(_T("s")) || columns.LoadState(_T("s"))) << "no application";
    EXPECT_EQ(list.view.m_defaultLoads, 0);
    CWinApp app(_T("Program"));
    ExpectCases<BOOL>({
        CASE(columns.SaveState(HKEY(), TRUE), FALSE), CASE(columns.SaveState(noText), FALSE),
        CASE(columns.SaveState(_T("")), FALSE), CASE(columns.SaveState(CRegistryPath()), FALSE),
        CASE(columns.SaveState(_T("s")), FALSE), // the application has no registry key
        CASE(columns.LoadState(HKEY(), TRUE), FALSE), CASE(columns.LoadState(noText), FALSE),
        CASE(columns.LoadState(_T("")), FALSE), CASE(columns.LoadState(CRegistryPath()), FALSE),
        CASE(columns.LoadState(CRegistryPath(HKEY_CURRENT_USER, _T("Software\\no such key"))),
             FALSE),
        CASE(columns.LoadState(test.Get(), FALSE), FALSE), // there is no "Columns" yet
        CASE(columns.LoadState(_T("s")), TRUE),            // an empty state
    });
    EXPECT_EQ(list.view.m_defaultLoads, 7);
    list.view.m_throws = true;
    EXPECT_THROW(columns.LoadState(HKEY(), TRUE), int) << "what a host throws is the host's";
}

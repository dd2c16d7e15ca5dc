#include "keyboard/shortcut_list.h"

#include "keyboard/shortcuts.h"
#include "platform/win32.h"

using quorvel::ShortcutList;

namespace {

// The rows as shown: "1:C79 4:-".
std::string RowsOf(const ShortcutList& list) {
    std::string text;
    for (const ShortcutList::Row* const row : list.GetRows()) {
        const CKeyboardShortcut& shortcut = row->GetKeyboardShortcut();
        text += text.empty() ? "" : " ";
        text += std::to_string(shortcut.GetCommandID()) + ":";
        text += TextOf(shortcut.GetShortcutKey());
    }
    return text;
}

void SortBy(ShortcutList& list, int column, bool isAscending = true) {
    list.Sort({column, isAscending, ShortcutList::OrderOf(column, isAscending)});
}

int Set(ShortcutList& list, int row, const CShortcutKey& key) {
    int former = -7;
    return list.SetKey(row, key, former) ? former : -9;
}

struct ShortcutRows : testing::Test {
    ShortcutRows() {
        list.InsertScheme(0, &defaults);
        list.Load(0);
    }
    const CKeyboardMappingScheme defaults = FourCommands();
    ShortcutList list;
};

} // namespace

TEST(ShortcutList, MovesKeysBetweenRows) {
    const CKeyboardMappingScheme defaults = FourCommands();
    const CShortcutKey ctrlS = Key('S', kCtrl);
    std::unique_ptr<ShortcutList> list;
    const auto begin = [&](int sortColumn = -1) -> ShortcutList& {
        list = std::make_unique<ShortcutList>();
        list->InsertScheme(0, &defaults);
        list->Load(0);
        SortBy(*list, sortColumn);
        return *list;
    };
    const auto filtered = [&](const WCHAR* text) -> ShortcutList& {
        return begin().Filter(text), *list;
    };
    const auto after = [&](int result) { return std::to_string(result) + ", " + RowsOf(*list); };
    const auto unfiltered = [&](int result) { return list->Filter(_T("")), after(result); };
    int former = -7;
    ExpectCases<std::string>({
        CASE(after(Set(begin(), 3, ctrlS)), "1, 1:C79 2:- 3:116 4:C83"),
        CASE(after(Set(begin(), 1, ctrlS)), "1, 1:C79 2:C83 3:116 4:-"), // its own row
        CASE(after(Set(begin(), 3, Key('N', kCtrl))), "-1, 1:C79 2:C83 3:116 4:C78"),
        CASE(after(Set(begin(), 4, ctrlS)), "-9, 1:C79 2:C83 3:116 4:-"), // there is no such row
        CASE(after(Set(begin(1), 3, ctrlS)), "1, 1:C79 4:C83 3:116 2:-"), // sorted anew
        CASE(unfiltered(Set(filtered(_T("open")), 0, ctrlS)), "-1, 1:C83 2:- 3:116 4:-"),
        CASE(after(Set(filtered(_T("f5")), 0, ctrlS)), "-1, 3:C83"),               // stays in sight
        CASE(after(begin(1).ClearKey(Key('O', kCtrl))), "0, 1:- 2:C83 3:116 4:-"), // not sorted
        CASE(unfiltered(filtered(_T("open")).ClearKey(ctrlS)), "-1, 1:C79 2:- 3:116 4:-"),
        CASE((Set(begin(), 3, ctrlS), list->ResetKey(1, former), after(former)),
             "3, 1:C79 2:C83 3:116 4:-"),
        CASE((Set(begin(1), 3, ctrlS), list->ClearKey(0), list->ResetAllKeys(), after(0)),
             "0, 1:C79 2:C83 3:116 4:-"),
    });
}

TEST_F(ShortcutRows, AreSortedWithoutAKeyLast) {
    const std::tuple<int, bool, const char*> rows[] = {
        {2, true, "1:C79 2:C83 3:116 4:-"},
        {0, true, "4:- 1:C79 3:116 2:C83"}, // by code unit: capital letters first
        {0, false, "2:C83 3:116 1:C79 4:-"},
        {1, true, "1:C79 2:C83 3:116 4:-"},
        {1, false, "3:116 2:C83 1:C79 4:-"},
    };
    CVirtualListCtrlItem other;
    CVirtualListCtrlItem* const otherItem = &other;
    for (const auto& [column, isAscending, expected] : rows) {
        SortBy(list, column, isAscending);
        EXPECT_EQ(RowsOf(list), expected) << column << isAscending;
        // The orders themselves must agree, and must ignore rows of a different class.
        const auto order = ShortcutList::OrderOf(column, isAscending);
        for (int i = 0; order != nullptr && i < 3; ++i) {
            CVirtualListCtrlItem* const row = list.GetRow(i);
            CVirtualListCtrlItem* const next = list.GetRow(i + 1);
            EXPECT_TRUE(order(row, next) && !order(next, row));
            EXPECT_FALSE(order(row, otherItem) || order(otherItem, row) || order(row, row));
        }
        list.Load(0);
        EXPECT_EQ(RowsOf(list), expected) << "loaded while sorted";
    }
}

TEST_F(ShortcutRows, AreFilteredByCommandAndKeyName) {
    const std::pair<const WCHAR*, const char*> rows[] = {
        {_T("F5"), "3:116"},
        {_T("SAVE"), "2:C83"},
        {_T("o"), "1:C79 4:-"},
        {_T("l+"), "1:C79 2:C83"},
    };
    for (const auto& [text, expected] : rows) {
        list.Filter(text);
        EXPECT_EQ(RowsOf(list), expected) << CString(text);
    }
    EXPECT_FALSE(list.Filter(nullptr) || list.Filter(_T("L+")));
    EXPECT_TRUE(list.Filter(CString('x', 10000)));
    EXPECT_EQ(list.GetRow(0), nullptr);
}

TEST_F(ShortcutRows, AreSortedAsBeforeWhenTheFilterIsCleared) {
    SortBy(list, 0);
    list.Filter(_T("ctrl"));
    EXPECT_EQ(RowsOf(list), "1:C79 2:C83");
    SortBy(list, 1, false);
    EXPECT_EQ(RowsOf(list), "2:C83 1:C79");
    list.Filter(_T("e"));
    EXPECT_EQ(RowsOf(list), "3:116 2:C83 1:C79 4:-") << "another filter keeps the later sort";
    list.Filter(_T(""));
    EXPECT_TRUE(list.GetSort().column == 0 && list.GetSort().isAscending);
    EXPECT_EQ(RowsOf(list), "4:- 1:C79 3:116 2:C83");
}

TEST(ShortcutList, KeepsTheActiveSchemeActive) {
    const CKeyboardMappingScheme empty;
    const CKeyboardMappingScheme filled = FourCommands();
    std::unique_ptr<ShortcutList> list;
    const auto begin = [&]() -> ShortcutList& {
        list = std::make_unique<ShortcutList>();
        for (const auto* scheme : {&empty, &filled, &empty})
            list->InsertScheme(list->GetSchemeCount(), scheme);
        list->Load(1);
        list->Filter(_T("F5"));
        return *list;
    };
    // The result, the number of schemes, the active one, and its rows.
    const auto after = [&](int result) {
        std::string text;
        for (const int number : {result, list->GetSchemeCount(), list->GetActiveScheme()})
            text += std::to_string(number) + " ";
        return text + RowsOf(*list);
    };
    ExpectCases<std::string>({
        CASE(after(begin().InsertScheme(0, &empty)), "0 4 2 3:116"),
        CASE(after(begin().InsertScheme(4, &empty)), "-1 3 1 3:116"),
        CASE(after(begin().SetScheme(1, &filled)), "1 3 -1 "),
        CASE(after(begin().SetScheme(1, nullptr)), "0 3 1 3:116"),
        CASE(after(begin().RemoveScheme(0)), "1 2 0 3:116"),
        CASE(after(begin().RemoveScheme(1)), "1 2 -1 "),
        CASE(after(begin().RemoveScheme(3)), "0 3 1 3:116"),
        CASE(after(begin().Load(0)), "1 3 0 "),
        CASE(after(begin().Load(-1)), "1 3 -1 "),
        CASE(after(begin().Load(3)), "0 3 1 3:116"),
    });
}

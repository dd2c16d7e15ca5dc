// A saved column state with arbitrary values: loading ends and leaves a consistent list, and saving
// it again gives a state that loads as the same.
#include "fuzz_input.h"
#include "support/registry.h"
#include "support/simulated_columns.h"

#include <numeric>

using namespace quorvel::win32;

constexpr const WCHAR* kNames[] = {_T("Count"),          _T("Sort Column"),
                                   _T("Sort Ascending"), _T("Persist Sort Order"),
                                   _T("Width"),          _T("Sort Order")};

static HKEY NewKey(HKEY parent, const WCHAR* name) {
    HKEY key = nullptr;
    RegCreateKeyExW(parent, name, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    return key;
}

static void WriteValue(HKEY columns, FuzzInput& input) {
    const unsigned what = input.Byte();
    const WCHAR* const name = kNames[what % 6];
    CString group;
    if (what % 6 >= 4)
        group.Format(_T("Column %u"), what / 6 % 8);
    const HKEY key = NewKey(columns, group);
    const unsigned form = input.Byte();
    // Most stored numbers are small.
    const auto number = form % 4 == 0 ? input.Value<DWORD>() : static_cast<DWORD>(input.Byte() - 1);
    std::string bytes(reinterpret_cast<const char*>(&number), sizeof number);
    if (form >= 240)
        bytes.resize(form % 12);
    TestKey::Set(key, name, form >= 224 && form < 240 ? form % 12 : REG_DWORD, bytes);
    RegCloseKey(key);
}

static void Define(SimulatedList& list) {
    list.columns.Insert(0, 5, false, _T("F"), 1, 60, -1);
    list.columns.Insert(0, 6, false, _T("G"), 0, -1, -1);
}

static void CheckOrder(SimulatedList& list) {
    int shown = 0;
    for (const auto& [trueColumn, column] : list.columns.Records()) {
        const int inserted = list.columns.GetInsertedColumn(trueColumn);
        Require((inserted >= 0) == column.isVisible);
        Require(!column.isVisible || list.columns.GetTrueColumn(inserted) == trueColumn);
        shown += column.isVisible;
    }
    const int sortColumn = list.columns.GetSortColumn();
    Require(sortColumn == -1 || list.columns.Find(sortColumn) != nullptr);
    std::vector<int> order = list.view.GetOrder(), sorted(order.size());
    std::iota(sorted.begin(), sorted.end(), 0);
    Require(shown == list.view.GetCount() && sorted.size() == static_cast<std::size_t>(shown));
    Require(std::is_permutation(order.begin(), order.end(), sorted.begin()));
}

FUZZ_TARGET(input) {
    const std::size_t size = input.Bytes().size();
    const TestKey test;
    const HKEY key = test.Get(), columns = NewKey(key, _T("Columns"));
    for (std::size_t count = std::min<std::size_t>(size / 3, 30); count > 0; --count)
        WriteValue(columns, input);
    RegCloseKey(columns);

    SimulatedList list(5), again(5), plain;
    Define(list);
    Define(again);
    for (int i = 0; i < 4; ++i)
        plain.view.Insert(i, {});
    Require(list.columns.LoadState(key, FALSE) && plain.columns.LoadState(key, FALSE));
    CheckOrder(list);
    Require(plain.view.GetCount() == 4);

    Require(list.columns.SaveState(key, FALSE) && again.columns.LoadState(key, FALSE));
    Require(again.Text() == list.Text() &&
            again.columns.GetSortColumn() == list.columns.GetSortColumn());
}

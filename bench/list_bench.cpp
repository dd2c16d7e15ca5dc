// The models of lists. Sorting 1,000,000 rows by a text and by a number column, with no row, one in
// three and every row selected, against a stable sort of the bare pointers with the same
// comparison; deleting and moving rows one by one against the same in a plain vector; and the saved
// state of 50 columns against the bare calls of the registry.
#include "controls/columns.h"
#include "controls/virtual_rows.h"
#include "platform/win32.h"
#include "registry_folder.h"
#include "support/simulated_columns.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <vector>

using namespace quorvel;

namespace {

constexpr int kRows = 1000000;
constexpr int kDeleted = 10000;
constexpr int kColumns = 50;

typedef std::vector<CVirtualListCtrlItem*> Pointers;

class Row : public CVirtualListCtrlItem {
public:
    explicit Row(std::mt19937& random) : m_number(static_cast<int>(random() % kRows)) {
        m_text.Format(_T("Row %07u"), static_cast<unsigned>(random() % kRows));
    }
    CString m_text;
    int m_number;
};

bool ByText(CVirtualListCtrlItem* const& left, CVirtualListCtrlItem* const& right) {
    return static_cast<const Row*>(left)->m_text < static_cast<const Row*>(right)->m_text;
}
bool ByNumber(CVirtualListCtrlItem* const& left, CVirtualListCtrlItem* const& right) {
    return static_cast<const Row*>(left)->m_number < static_cast<const Row*>(right)->m_number;
}

// In random order; the objects lie in the order in which they were made.
const Pointers& Items() {
    static std::vector<std::unique_ptr<Row>> s_rows;
    static Pointers s_items;
    if (s_items.empty()) {
        std::mt19937 random(1);
        for (int i = 0; i < kRows; ++i)
            s_items.push_back(s_rows.emplace_back(std::make_unique<Row>(random)).get());
        std::shuffle(s_items.begin(), s_items.end(), random);
    }
    return s_items;
}

VirtualRows RowsOf(const Pointers& items) {
    VirtualRows rows;
    for (CVirtualListCtrlItem* const item : items)
        rows.Add(item);
    return rows;
}

template <VirtualRowOrder order, int selectedOneIn>
void SortRows(benchmark::State& state) {
    VirtualRows rows = RowsOf(Items());
    for (int row = 0; selectedOneIn > 0 && row < kRows; row += selectedOneIn)
        rows.Select(row, row, true);
    const VirtualRows unsorted = rows;
    for (auto _ : state) {
        state.PauseTiming();
        rows = unsorted;
        state.ResumeTiming();
        rows.Sort(order);
        benchmark::DoNotOptimize(rows.GetItem(0));
    }
}

// The comparison is called through a pointer, as a list calls it.
template <VirtualRowOrder order>
void SortPointers(benchmark::State& state) {
    VirtualRowOrder unknown = order;
    benchmark::DoNotOptimize(unknown);
    Pointers pointers = Items();
    for (auto _ : state) {
        state.PauseTiming();
        pointers = Items();
        state.ResumeTiming();
        std::stable_sort(pointers.begin(), pointers.end(), unknown);
        benchmark::DoNotOptimize(pointers.data());
    }
}

// The library's come first in a family.
#define QUORVEL_SORT_BENCHMARKS(column, order)                                                     \
    BENCHMARK(SortRows<order, 0>)->Name("RowSort/library/" column)->Unit(benchmark::kMillisecond); \
    BENCHMARK(SortPointers<order>)                                                                 \
        ->Name("RowSort/stable_sort/" column)                                                      \
        ->Unit(benchmark::kMillisecond);                                                           \
    BENCHMARK(SortRows<order, 3>)                                                                  \
        ->Name("RowSort/library/" column ", a third selected")                                     \
        ->Unit(benchmark::kMillisecond);                                                           \
    BENCHMARK(SortPointers<order>)                                                                 \
        ->Name("RowSort/stable_sort/" column ", a third selected")                                 \
        ->Unit(benchmark::kMillisecond);                                                           \
    BENCHMARK(SortRows<order, 1>)                                                                  \
        ->Name("RowSort/library/" column ", all selected")                                         \
        ->Unit(benchmark::kMillisecond);                                                           \
    BENCHMARK(SortPointers<order>)                                                                 \
        ->Name("RowSort/stable_sort/" column ", all selected")                                     \
        ->Unit(benchmark::kMillisecond)
QUORVEL_SORT_BENCHMARKS("text", ByText);
QUORVEL_SORT_BENCHMARKS("number", ByNumber);

// Row numbers that are there while one after the other is deleted.
std::vector<int> ScatteredRows() {
    std::mt19937 random(2);
    std::vector<int> scattered;
    for (int i = 0; i < kDeleted; ++i)
        scattered.push_back(static_cast<int>(random() % static_cast<unsigned>(kRows - i)));
    return scattered;
}

void DeleteOneByOne(benchmark::State& state) {
    const VirtualRows all = RowsOf(Items());
    const std::vector<int> scattered = ScatteredRows();
    for (auto _ : state) {
        state.PauseTiming();
        VirtualRows rows = all;
        rows.Select(kRows / 2, kRows / 2, true);
        state.ResumeTiming();
        for (const int row : scattered)
            benchmark::DoNotOptimize(rows.Remove(row));
    }
}

void DeleteAtOnce(benchmark::State& state) {
    const VirtualRows all = RowsOf(Items());
    const std::vector<int> scattered = ScatteredRows();
    for (auto _ : state) {
        state.PauseTiming();
        VirtualRows rows = all;
        state.ResumeTiming();
        benchmark::DoNotOptimize(rows.Remove(scattered));
    }
}

void EraseOneByOne(benchmark::State& state) {
    const std::vector<int> scattered = ScatteredRows();
    for (auto _ : state) {
        state.PauseTiming();
        Pointers pointers = Items();
        state.ResumeTiming();
        for (const int row : scattered)
            pointers.erase(pointers.begin() + row);
    }
}

BENCHMARK(DeleteOneByOne)->Name("RowDelete/library/one by one")->Unit(benchmark::kMillisecond);
BENCHMARK(EraseOneByOne)->Name("RowDelete/vector/one by one")->Unit(benchmark::kMillisecond);
BENCHMARK(DeleteAtOnce)->Name("RowDelete/library/at once")->Unit(benchmark::kMillisecond);
BENCHMARK(EraseOneByOne)->Name("RowDelete/vector/at once")->Unit(benchmark::kMillisecond);

// The selected row of 1,000,000 down by one place and up again.
void MoveRow(benchmark::State& state) {
    VirtualRows rows = RowsOf(Items());
    rows.Select(kRows / 2, kRows / 2, true);
    for (auto _ : state) {
        rows.MoveSelectedDown();
        rows.MoveSelectedUp();
    }
}
BENCHMARK(MoveRow)->Name("RowMove");

HKEY Key() {
    static const HKEY s_key = [] {
        RegistryFolder::Shared();
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_CURRENT_USER, _T("Software\\list"), 0, nullptr, 0,
                        KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
        return key;
    }();
    return s_key;
}

void SaveState(benchmark::State& state) {
    const SimulatedList list(kColumns);
    for (auto _ : state)
        benchmark::DoNotOptimize(list.columns.SaveState(Key(), FALSE));
}

void LoadState(benchmark::State& state) {
    SimulatedList list(kColumns);
    list.columns.SaveState(Key(), FALSE);
    for (auto _ : state)
        benchmark::DoNotOptimize(list.columns.LoadState(Key(), FALSE));
}

constexpr const WCHAR* kHeadValues[] = {_T("Count"), _T("Sort Column"), _T("Sort Ascending"),
                                        _T("Persist Sort Order")};
constexpr const WCHAR* kColumnValues[] = {_T("Width"), _T("Sort Order")};

// The same keys and values by the bare calls.
template <class Visit>
void VisitState(Visit visit) {
    HKEY columns = nullptr;
    RegCreateKeyExW(Key(), _T("Columns"), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &columns,
                    nullptr);
    for (const WCHAR* const name : kHeadValues)
        visit(columns, name);
    for (int i = 0; i < kColumns; ++i) {
        CString name;
        name.Format(_T("Column %d"), i);
        HKEY column = nullptr;
        RegCreateKeyExW(columns, name, 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &column,
                        nullptr);
        for (const WCHAR* const value : kColumnValues)
            visit(column, value);
        RegCloseKey(column);
    }
    RegCloseKey(columns);
}

void WriteByHand(benchmark::State& state) {
    DWORD number = 50;
    for (auto _ : state)
        VisitState([&](HKEY key, const WCHAR* name) {
            RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), 4);
        });
}

void ReadByHand(benchmark::State& state) {
    for (auto _ : state)
        VisitState([&](HKEY key, const WCHAR* name) {
            DWORD number = 0;
            DWORD size = 4;
            DWORD kind = 0;
            RegQueryValueExW(key, name, nullptr, &kind, reinterpret_cast<BYTE*>(&number), &size);
            benchmark::DoNotOptimize(number);
        });
}

BENCHMARK(SaveState)->Name("ColumnState/library/save")->Unit(benchmark::kMillisecond);
BENCHMARK(WriteByHand)->Name("ColumnState/bare calls/save")->Unit(benchmark::kMillisecond);
BENCHMARK(LoadState)->Name("ColumnState/library/load")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadByHand)->Name("ColumnState/bare calls/load")->Unit(benchmark::kMillisecond);

} // namespace

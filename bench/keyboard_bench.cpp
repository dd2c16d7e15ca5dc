// Keyboard schemes and the list of shortcuts: a scheme of 10,000 commands against a plain vector,
// and filtering and sorting 100,000 rows against the same over texts that are ready.
#include "keyboard/shortcut_list.h"
#include "platform/case_fold.h"
#include "platform/win32.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string_view>
#include <vector>

using namespace quorvel;

namespace {

constexpr int kCommands = 10000;
constexpr int kRows = 100000;

typedef std::basic_string_view<WCHAR> View;

CShortcutKey KeyOf(int number) {
    return CShortcutKey(static_cast<unsigned short>(1 + number / 8),
                        static_cast<unsigned char>(number % 8));
}

// In the order of the commands; one in three has no key.
std::vector<CKeyboardShortcut> Shortcuts(int count) {
    std::vector<CKeyboardShortcut> shortcuts;
    std::mt19937 random(1);
    for (int i = 0; i < count; ++i) {
        CString text;
        text.Format(_T("Command %05u of the menu"), static_cast<unsigned>(random() % 100000));
        shortcuts.emplace_back(static_cast<unsigned>(i * 3), text,
                               i % 3 == 0 ? CShortcutKey() : KeyOf(i));
    }
    return shortcuts;
}

CKeyboardMappingScheme SchemeOf(const std::vector<CKeyboardShortcut>& shortcuts) {
    CKeyboardMappingScheme scheme;
    scheme.SetKeyboardShortcuts(shortcuts);
    return scheme;
}

std::vector<unsigned> SoughtCommands() {
    std::vector<unsigned> sought;
    std::mt19937 random(2);
    for (int i = 0; i < 1000; ++i)
        sought.push_back(random() % (kCommands * 3));
    return sought;
}

void FindInScheme(benchmark::State& state) {
    const CKeyboardMappingScheme scheme = SchemeOf(Shortcuts(kCommands));
    const auto sought = SoughtCommands();
    for (auto _ : state)
        for (const unsigned id : sought)
            benchmark::DoNotOptimize(scheme.FindCommandID(id));
}
void FindInVector(benchmark::State& state) {
    const auto shortcuts = Shortcuts(kCommands);
    const auto sought = SoughtCommands();
    for (auto _ : state)
        for (const unsigned id : sought) {
            const auto found = std::lower_bound(
                shortcuts.begin(), shortcuts.end(), id,
                [](const CKeyboardShortcut& a, unsigned b) { return a.GetCommandID() < b; });
            benchmark::DoNotOptimize(found != shortcuts.end() && found->GetCommandID() == id);
        }
}

void AcceleratorsOfScheme(benchmark::State& state) {
    const CKeyboardMappingScheme scheme = SchemeOf(Shortcuts(kCommands));
    std::vector<ACCEL> accelerators(static_cast<std::size_t>(scheme.GetAcceleratorEntries()));
    for (auto _ : state) {
        scheme.GetAccelerators(accelerators.data(), static_cast<int>(accelerators.size()));
        benchmark::ClobberMemory();
    }
}
// The number is asked first here too: an array of another size is refused.
void AcceleratorsOfVector(benchmark::State& state) {
    const auto shortcuts = Shortcuts(kCommands);
    std::vector<ACCEL> accelerators(kCommands);
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            std::count_if(shortcuts.begin(), shortcuts.end(),
                          [](const CKeyboardShortcut& each) { return each.IsShortcutKeySet(); }));
        ACCEL* next = accelerators.data();
        for (const CKeyboardShortcut& shortcut : shortcuts)
            if (shortcut.IsShortcutKeySet())
                *next++ = shortcut.GetAccel();
        benchmark::ClobberMemory();
    }
}

void BuildScheme(benchmark::State& state) {
    const auto shortcuts = Shortcuts(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        CKeyboardMappingScheme scheme;
        for (const CKeyboardShortcut& shortcut : shortcuts)
            scheme.AddKeyboardShortcut(shortcut);
        benchmark::DoNotOptimize(scheme.GetKeyboardShortcutCount());
    }
}
void BuildVector(benchmark::State& state) {
    const auto shortcuts = Shortcuts(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::vector<CKeyboardShortcut> built;
        for (const CKeyboardShortcut& shortcut : shortcuts)
            built.push_back(shortcut);
        benchmark::DoNotOptimize(built.data());
    }
}

// The names of real keys, as few as there are.
CKeyboardMappingScheme RealScheme() {
    auto shortcuts = Shortcuts(kRows);
    std::mt19937 random(3);
    for (CKeyboardShortcut& shortcut : shortcuts)
        if (shortcut.IsShortcutKeySet())
            shortcut.SetShortcutKey(CShortcutKey(static_cast<unsigned short>('A' + random() % 26),
                                                 static_cast<unsigned char>(random() % 8)));
    return SchemeOf(shortcuts);
}

struct ReadyRow {
    CString command;
    CString key;
};
std::vector<ReadyRow> ReadyRows(const ShortcutList& list) {
    std::vector<ReadyRow> rows;
    for (ShortcutList::Row* const row : list.GetRows())
        rows.push_back({row->GetSubItemText(0), row->GetSubItemText(1)});
    return rows;
}

void FilterList(benchmark::State& state) {
    const CKeyboardMappingScheme scheme = RealScheme();
    ShortcutList list;
    list.InsertScheme(0, &scheme);
    list.Load(0);
    ReadyRows(list); // the names are made when they are first shown
    for (auto _ : state) {
        list.Filter(_T("shift+q"));
        benchmark::DoNotOptimize(list.GetRows().data());
        state.PauseTiming();
        list.Filter(_T(""));
        state.ResumeTiming();
    }
}
void FilterTexts(benchmark::State& state) {
    const CKeyboardMappingScheme scheme = RealScheme();
    ShortcutList list;
    list.InsertScheme(0, &scheme);
    list.Load(0);
    const auto rows = ReadyRows(list);
    constexpr View kWanted = _T("shift+q");
    const auto contains = [&](View text) {
        return !std::ranges::search(text, kWanted, {}, FoldCase).empty();
    };
    for (auto _ : state) {
        std::vector<const ReadyRow*> found;
        for (const ReadyRow& row : rows)
            if (contains(row.command.GetView()) || contains(row.key.GetView()))
                found.push_back(&row);
        benchmark::DoNotOptimize(found.data());
    }
}

void SortList(benchmark::State& state) {
    const CKeyboardMappingScheme scheme = RealScheme();
    ShortcutList list;
    list.InsertScheme(0, &scheme);
    list.Load(0);
    ReadyRows(list);
    for (auto _ : state) {
        state.PauseTiming();
        list.SetSort({});
        list.Load(0);
        state.ResumeTiming();
        list.Sort({1, true, ShortcutList::OrderOf(1, true)});
        benchmark::DoNotOptimize(list.GetRow(0));
    }
}
void SortTexts(benchmark::State& state) {
    const CKeyboardMappingScheme scheme = RealScheme();
    ShortcutList list;
    list.InsertScheme(0, &scheme);
    list.Load(0);
    const auto rows = ReadyRows(list);
    for (auto _ : state) {
        state.PauseTiming();
        std::vector<const CString*> names;
        for (const ReadyRow& row : rows)
            names.push_back(&row.key);
        state.ResumeTiming();
        std::stable_sort(names.begin(), names.end(), [](const CString* a, const CString* b) {
            return a->IsEmpty() || b->IsEmpty() ? !a->IsEmpty() && b->IsEmpty() : *a < *b;
        });
        benchmark::DoNotOptimize(names.data());
    }
}

BENCHMARK(FindInScheme)->Name("ShortcutFind/quorvel/10000");
BENCHMARK(FindInVector)->Name("ShortcutFind/lower_bound/10000");
BENCHMARK(AcceleratorsOfScheme)->Name("Accelerators/quorvel/10000");
BENCHMARK(AcceleratorsOfVector)->Name("Accelerators/bare loop/10000");
BENCHMARK(BuildScheme)->Name("ShortcutBuild/quorvel")->Arg(10000)->Arg(100000);
BENCHMARK(BuildVector)->Name("ShortcutBuild/vector")->Arg(10000)->Arg(100000);
BENCHMARK(FilterList)->Name("ShortcutFilter/quorvel/100000");
BENCHMARK(FilterTexts)->Name("ShortcutFilter/bare scan/100000");
BENCHMARK(SortList)->Name("ShortcutSort/quorvel/100000");
BENCHMARK(SortTexts)->Name("ShortcutSort/ready names/100000");

} // namespace

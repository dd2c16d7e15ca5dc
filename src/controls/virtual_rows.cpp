#include "controls/virtual_rows.h"

#include "platform/case_fold.h"

#include <algorithm>
#include <climits>
#include <iterator>
#include <string_view>

namespace quorvel {

namespace {

typedef std::uintptr_t Slot;

constexpr Slot kSelected = 1;
static_assert(alignof(CVirtualListCtrlItem) > kSelected);

constexpr std::size_t kFilledRows = 2048; // rows of a block that Fill makes
constexpr std::size_t kMostRows = 4096;   // a larger block is split in two

CVirtualListCtrlItem* ItemOf(Slot slot) {
    return reinterpret_cast<CVirtualListCtrlItem*>(slot & ~kSelected);
}

bool IsSelectedSlot(Slot slot) {
    return (slot & kSelected) != 0;
}

struct Difference {
    int first;
    int last;
    bool isWanted;
};

// The runs of rows in which two selections differ, computed from the edges of their runs.
std::vector<Difference> Differences(const std::vector<RowRun>& shown,
                                    const std::vector<RowRun>& wanted, int rowCount) {
    struct Edge {
        int row;
        bool isOfWanted;
    };
    std::vector<Edge> edges;
    for (const bool isOfWanted : {false, true}) {
        for (const RowRun& run : isOfWanted ? wanted : shown) {
            edges.push_back({std::min(run.first, rowCount), isOfWanted});
            edges.push_back({std::min(run.last + 1, rowCount), isOfWanted});
        }
    }
    std::ranges::stable_sort(edges, {}, &Edge::row);
    std::vector<Difference> differences;
    bool isIn[2] = {};
    for (std::size_t i = 0; i < edges.size(); ++i) {
        bool& side = isIn[edges[i].isOfWanted];
        side = !side;
        const int end = i + 1 < edges.size() ? edges[i + 1].row : edges[i].row;
        if (isIn[0] != isIn[1] && edges[i].row < end)
            differences.push_back({edges[i].row, end - 1, isIn[1]});
    }
    return differences;
}

std::size_t RowsOf(const std::vector<Difference>& differences) {
    std::size_t rows = 0;
    for (const Difference& difference : differences)
        rows += static_cast<std::size_t>(difference.last - difference.first) + 1;
    return rows;
}

} // namespace

std::vector<SelectionMessage> PlanSelection(const std::vector<RowRun>& shown,
                                            const std::vector<RowRun>& wanted, int rowCount) {
    // For a list view, a message for all rows costs as much as messages for this many single rows.
    const std::size_t costOfAll = 1 + static_cast<std::size_t>(rowCount) / 16;
    const std::vector<RowRun> all = {{0, rowCount - 1}};
    std::vector<SelectionMessage> messages;
    std::vector<Difference> rest = Differences(shown, wanted, rowCount);
    for (const bool isSelected : {false, true}) {
        auto exceptions = Differences(isSelected ? all : std::vector<RowRun>(), wanted, rowCount);
        if (RowsOf(exceptions) + costOfAll < RowsOf(rest) + (messages.empty() ? 0 : costOfAll)) {
            rest = std::move(exceptions);
            messages = {{SelectionMessage::kAllRows, isSelected}};
        }
    }
    for (const Difference& difference : rest) {
        for (int row = difference.first; row <= difference.last; ++row)
            messages.push_back({row, difference.isWanted});
    }
    return messages;
}

CVirtualListCtrlItem* VirtualRows::GetItem(int row) const {
    if (!IsRow(row))
        return nullptr;
    const Place place = Locate(row);
    return ItemOf(m_blocks[place.block].slots[place.slot]);
}

int VirtualRows::GetRow(const CVirtualListCtrlItem* item) const {
    int first = 0;
    for (const Block& block : m_blocks) {
        const auto slot = std::ranges::find(block.slots, item, ItemOf);
        if (slot != block.slots.end())
            return first + static_cast<int>(slot - block.slots.begin());
        first += static_cast<int>(block.slots.size());
    }
    return -1;
}

int VirtualRows::Add(CVirtualListCtrlItem* item) {
    if (item == nullptr || m_count == INT_MAX || m_blocks.empty() ||
        m_blocks.back().slots.size() == kMostRows)
        return Insert(m_count, item);
    m_blocks.back().slots.push_back(reinterpret_cast<Slot>(item));
    return m_count++;
}

int VirtualRows::Insert(int row, CVirtualListCtrlItem* item) {
    if (item == nullptr || row < 0 || row > m_count || m_count == INT_MAX)
        return -1;
    if (m_blocks.empty())
        m_blocks.emplace_back();
    // At the end there is no row to locate except the previous one.
    Place place = {0, 0};
    if (m_count > 0) {
        place = Locate(row < m_count ? row : row - 1);
        place.slot += row == m_count;
    }
    if (m_blocks[place.block].slots.size() == kMostRows) {
        // In a list that grows at its end, blocks stay full.
        const std::size_t kept = row == m_count ? kMostRows : kMostRows / 2;
        Split(place.block, kept);
        if (place.slot >= kept)
            place = {place.block + 1, place.slot - kept};
    }
    std::vector<Slot>& slots = m_blocks[place.block].slots;
    slots.insert(slots.begin() + static_cast<std::ptrdiff_t>(place.slot),
                 reinterpret_cast<Slot>(item));
    ++m_count;
    if (m_focusedRow >= row)
        ++m_focusedRow;
    return row;
}

CVirtualListCtrlItem* VirtualRows::Remove(int row) {
    if (!IsRow(row))
        return nullptr;
    const Place place = Locate(row);
    Block& block = m_blocks[place.block];
    const Slot slot = block.slots[place.slot];
    block.slots.erase(block.slots.begin() + static_cast<std::ptrdiff_t>(place.slot));
    --m_count;
    block.selectedCount -= IsSelectedSlot(slot);
    m_selectedCount -= IsSelectedSlot(slot);
    if (block.slots.empty()) {
        m_blocks.erase(m_blocks.begin() + static_cast<std::ptrdiff_t>(place.block));
        m_knownBlock = 0;
        m_knownFirst = 0;
    }
    if (m_focusedRow > row || m_focusedRow == m_count)
        --m_focusedRow;
    return ItemOf(slot);
}

std::vector<CVirtualListCtrlItem*> VirtualRows::Remove(std::vector<int> rows) {
    std::ranges::sort(rows);
    std::vector<CVirtualListCtrlItem*> removed;
    removed.reserve(rows.size());
    std::vector<Slot> slots = Flattened();
    auto next = std::ranges::lower_bound(rows, 0);
    int removedBeforeFocus = 0;
    std::size_t kept = 0;
    for (int row = 0; row < m_count; ++row) {
        const Slot slot = slots[static_cast<std::size_t>(row)];
        if (next == rows.end() || *next != row) {
            slots[kept++] = slot;
            continue;
        }
        removed.push_back(ItemOf(slot));
        removedBeforeFocus += row < m_focusedRow;
        while (next != rows.end() && *next == row)
            ++next;
    }
    slots.resize(kept);
    Fill(slots);
    m_focusedRow = std::min(m_focusedRow - removedBeforeFocus, m_count - 1);
    return removed;
}

std::vector<CVirtualListCtrlItem*> VirtualRows::RemoveAll() {
    std::vector<CVirtualListCtrlItem*> removed;
    removed.reserve(static_cast<std::size_t>(m_count));
    for (const Block& block : m_blocks)
        std::ranges::transform(block.slots, std::back_inserter(removed), ItemOf);
    Clear();
    return removed;
}

void VirtualRows::Clear() {
    const int searchColumn = m_searchColumn;
    *this = VirtualRows();
    m_searchColumn = searchColumn;
}

std::vector<CVirtualListCtrlItem*>
VirtualRows::Replace(const std::vector<CVirtualListCtrlItem*>& items) {
    if (m_count == 0) { // saves two copies of what may be millions of rows
        VirtualRows filled;
        for (CVirtualListCtrlItem* const item : items)
            filled.Add(item);
        m_blocks.swap(filled.m_blocks);
        m_count = filled.m_count;
        return {};
    }
    const CVirtualListCtrlItem* const focused = GetItem(m_focusedRow);
    std::vector<Slot> former = Flattened();
    std::ranges::sort(former); // by address; the mark is the lowest bit
    std::vector<bool> isKept(former.size());
    std::vector<Slot> slots;
    slots.reserve(items.size());
    for (CVirtualListCtrlItem* const item : items) {
        if (item == nullptr)
            continue;
        const auto place = std::ranges::lower_bound(former, reinterpret_cast<Slot>(item));
        const bool wasThere = place != former.end() && ItemOf(*place) == item;
        if (wasThere)
            isKept[static_cast<std::size_t>(place - former.begin())] = true;
        slots.push_back(wasThere ? *place : reinterpret_cast<Slot>(item));
    }
    std::vector<CVirtualListCtrlItem*> removed;
    for (std::size_t i = 0; i < former.size(); ++i) {
        if (!isKept[i])
            removed.push_back(ItemOf(former[i]));
    }
    Fill(slots);
    const int row = focused != nullptr ? GetRow(focused) : -1;
    m_focusedRow = row >= 0 ? row : std::min(m_focusedRow, m_count - 1);
    return removed;
}

int VirtualRows::GetRowToSelect(int removedRow, bool wasSelected) const {
    return wasSelected && m_selectedCount == 0 ? std::min(removedRow, m_count - 1) : -1;
}

void VirtualRows::Sort(VirtualRowOrder order) {
    if (order != nullptr)
        SortRows(order);
}

void VirtualRows::SortBy(
    const std::function<bool(CVirtualListCtrlItem* const&, CVirtualListCtrlItem* const&)>& order) {
    if (order)
        SortRows(std::cref(order));
}

// If all rows have the same mark, sorts plain pointers, which is as fast as without marks.
// Otherwise the mark is part of the pointer and moves with it.
template <class Order>
void VirtualRows::SortRows(Order order) {
    const CVirtualListCtrlItem* const focused = GetItem(m_focusedRow);
    std::vector<Slot> slots = Flattened();
    if (m_selectedCount == 0 || m_selectedCount == m_count) {
        const Slot mark = m_selectedCount > 0 ? kSelected : 0;
        std::vector<CVirtualListCtrlItem*> items(slots.size());
        std::ranges::transform(slots, items.begin(), ItemOf);
        std::stable_sort(items.begin(), items.end(), order);
        std::ranges::transform(items, slots.begin(), [mark](CVirtualListCtrlItem* item) {
            return reinterpret_cast<Slot>(item) | mark;
        });
    } else {
        std::stable_sort(slots.begin(), slots.end(), [order](Slot left, Slot right) {
            return order(ItemOf(left), ItemOf(right));
        });
    }
    Fill(slots);
    if (focused != nullptr)
        m_focusedRow = GetRow(focused);
}

bool VirtualRows::CanMoveSelectedDown() const {
    const int row = GetOnlySelectedRow();
    return row >= 0 && IsRow(row + 1);
}

int VirtualRows::MoveSelected(int direction) {
    const int row = GetOnlySelectedRow();
    const int other = row + direction;
    if (row < 0 || !IsRow(other))
        return -1;
    const Place from = Locate(row);
    const Place to = Locate(other);
    std::swap(m_blocks[from.block].slots[from.slot], m_blocks[to.block].slots[to.slot]);
    --m_blocks[from.block].selectedCount;
    ++m_blocks[to.block].selectedCount;
    if (m_focusedRow == row)
        m_focusedRow = other;
    else if (m_focusedRow == other)
        m_focusedRow = row;
    return other;
}

void VirtualRows::Select(int first, int last, bool isSelected) {
    first = std::max(first, 0);
    last = std::min(last, m_count - 1);
    if (first > last)
        return;
    Place place = Locate(first);
    for (int left = last - first + 1; left > 0; ++place.block, place.slot = 0) {
        Block& block = m_blocks[place.block];
        const std::size_t end =
            std::min(block.slots.size(), place.slot + static_cast<std::size_t>(left));
        left -= static_cast<int>(end - place.slot);
        int change = 0;
        for (std::size_t i = place.slot; i < end; ++i) {
            change += static_cast<int>(isSelected) - IsSelectedSlot(block.slots[i]);
            block.slots[i] = (block.slots[i] & ~kSelected) | (isSelected ? kSelected : 0);
        }
        block.selectedCount += change;
        m_selectedCount += change;
    }
}

bool VirtualRows::IsSelected(int row) const {
    if (!IsRow(row))
        return false;
    const Place place = Locate(row);
    return IsSelectedSlot(m_blocks[place.block].slots[place.slot]);
}

int VirtualRows::GetFirstSelectedRow() const {
    int first = 0;
    for (const Block& block : m_blocks) {
        if (block.selectedCount > 0) {
            const auto slot = std::ranges::find_if(block.slots, IsSelectedSlot);
            return first + static_cast<int>(slot - block.slots.begin());
        }
        first += static_cast<int>(block.slots.size());
    }
    return -1;
}

int VirtualRows::GetNextRow(int after, bool isSelected, bool isFocused) const {
    const auto fits = [&](int row) {
        return (!isSelected || IsSelected(row)) && (!isFocused || row == m_focusedRow);
    };
    for (int row = std::max(after, -1) + 1; row < m_count; ++row) {
        if (fits(row))
            return row;
    }
    return -1;
}

std::vector<RowRun> VirtualRows::GetSelectedRuns() const {
    std::vector<RowRun> runs;
    const auto add = [&runs](int first, int last) {
        if (!runs.empty() && runs.back().last + 1 == first)
            runs.back().last = last;
        else
            runs.push_back({first, last});
    };
    int first = 0;
    for (const Block& block : m_blocks) {
        const int size = static_cast<int>(block.slots.size());
        if (block.selectedCount == size && size > 0) {
            add(first, first + size - 1);
        } else if (block.selectedCount > 0) {
            for (int i = 0; i < size; ++i) {
                if (IsSelectedSlot(block.slots[static_cast<std::size_t>(i)]))
                    add(first + i, first + i);
            }
        }
        first += size;
    }
    return runs;
}

int VirtualRows::Find(const WCHAR* text, int start, bool isWholeText, bool wraps) const {
    if (start == -1 || (wraps && start == m_count))
        start = 0;
    if (text == nullptr || *text == 0 || !IsRow(start))
        return -1;
    const std::basic_string_view<WCHAR> wanted(text);
    const auto find = [&](int from, int end) {
        for (int row = from; row < end; ++row) {
            const CString shown = GetItem(row)->GetSubItemText(m_searchColumn);
            const std::basic_string_view<WCHAR> view(shown.GetString(),
                                                     static_cast<std::size_t>(shown.GetLength()));
            if (isWholeText ? EqualIgnoringCase(view, wanted)
                            : BeginsWithIgnoringCase(view, wanted))
                return row;
        }
        return -1;
    };
    const int found = find(start, m_count);
    return found < 0 && wraps ? find(0, start) : found;
}

int VirtualRows::FindTyped(const WCHAR* typed, int focusedRow) const {
    if (typed == nullptr || *typed == 0)
        return -1;
    const std::basic_string_view<WCHAR> letters(typed);
    if (letters.size() > 1) {
        const int found = Find(typed, focusedRow, false, true);
        const auto isFirst = [&](WCHAR letter) { return FoldCase(letter) == FoldCase(*typed); };
        if (found >= 0 || !std::ranges::all_of(letters, isFirst))
            return found;
    }
    const WCHAR letter[] = {*typed, 0};
    return Find(letter, IsRow(focusedRow + 1) ? focusedRow + 1 : 0, false, true);
}

CString VirtualRows::GetSelectedText(const std::vector<int>& columns) const {
    CString text;
    for (const RowRun& run : GetSelectedRuns()) {
        for (int row = run.first; row <= run.last; ++row) {
            const WCHAR* separator = _T("");
            for (const int column : columns) {
                CString cell = GetItem(row)->GetSubItemText(column);
                for (const WCHAR character : {'\t', '\r', '\n'})
                    cell.Replace(character, ' ');
                text += separator;
                text += cell;
                separator = _T("\t");
            }
            text += _T("\r\n");
        }
    }
    return text;
}

VirtualRows::Place VirtualRows::Locate(int row) const {
    const auto size = [this](std::size_t block) {
        return static_cast<int>(m_blocks[block].slots.size());
    };
    while (row < m_knownFirst)
        m_knownFirst -= size(--m_knownBlock);
    while (row - m_knownFirst >= size(m_knownBlock))
        m_knownFirst += size(m_knownBlock++);
    return {m_knownBlock, static_cast<std::size_t>(row - m_knownFirst)};
}

void VirtualRows::Split(std::size_t block, std::size_t kept) {
    const std::vector<Slot>& slots = m_blocks[block].slots;
    Block rest;
    rest.slots.reserve(kMostRows);
    rest.slots.assign(slots.begin() + static_cast<std::ptrdiff_t>(kept), slots.end());
    const auto selectedCount = static_cast<int>(std::ranges::count_if(rest.slots, IsSelectedSlot));
    rest.selectedCount = selectedCount;
    m_blocks.insert(m_blocks.begin() + static_cast<std::ptrdiff_t>(block) + 1, std::move(rest));
    m_blocks[block].selectedCount -= selectedCount;
    m_blocks[block].slots.resize(kept);
}

std::vector<CVirtualListCtrlItem*> VirtualRows::GetItems() const {
    std::vector<CVirtualListCtrlItem*> items;
    items.reserve(static_cast<std::size_t>(m_count));
    for (const Block& block : m_blocks)
        std::ranges::transform(block.slots, std::back_inserter(items), ItemOf);
    return items;
}

void VirtualRows::Select(std::vector<CVirtualListCtrlItem*> items, bool isSelected) {
    std::ranges::sort(items);
    int row = 0;
    for (const Block& block : m_blocks) {
        for (const Slot slot : block.slots) {
            if (std::ranges::binary_search(items, ItemOf(slot)))
                Select(row, row, isSelected);
            ++row;
        }
    }
}

std::vector<VirtualRows::Slot> VirtualRows::Flattened() const {
    std::vector<Slot> slots;
    slots.reserve(static_cast<std::size_t>(m_count));
    for (const Block& block : m_blocks)
        slots.insert(slots.end(), block.slots.begin(), block.slots.end());
    return slots;
}

void VirtualRows::Fill(const std::vector<Slot>& slots) {
    std::vector<Block> blocks;
    int selectedCount = 0;
    for (auto next = slots.begin(); next != slots.end();) {
        const auto end = next + std::min<std::ptrdiff_t>(kFilledRows, slots.end() - next);
        Block& block = blocks.emplace_back();
        block.slots.assign(next, end);
        block.selectedCount = static_cast<int>(std::count_if(next, end, IsSelectedSlot));
        selectedCount += block.selectedCount;
        next = end;
    }
    m_blocks = std::move(blocks);
    m_count = static_cast<int>(slots.size());
    m_selectedCount = selectedCount;
    m_knownBlock = 0;
    m_knownFirst = 0;
}

} // namespace quorvel

#include "keyboard/shortcut_list.h"

#include "keyboard/key_name_order.h"
#include "keyboard/shortcuts_by_command.h"
#include "keyboard/text_view.h"
#include "platform/case_fold.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

namespace quorvel {

namespace {

typedef ShortcutList::Row Row;
typedef std::basic_string_view<WCHAR> View;

const Row* RowOf(const CVirtualListCtrlItem* item) {
    return dynamic_cast<const Row*>(item);
}

template <class Compare>
bool IsOrdered(const CVirtualListCtrlItem* first, const CVirtualListCtrlItem* second,
               Compare compare) {
    const Row* const a = RowOf(first);
    const Row* const b = RowOf(second);
    return a != nullptr && b != nullptr && compare(*a, *b);
}

CString TextOf(const Row& row) {
    return row.GetKeyboardShortcut().GetCommandText();
}

// Texts with their rows, so that comparisons need not call the rows. The text stays in its row.
struct Entry {
    View text;
    Row* row;
};

void SortByText(std::vector<Entry>::iterator first, std::vector<Entry>::iterator last,
                bool isAscending) {
    if (isAscending)
        std::stable_sort(first, last,
                         [](const Entry& a, const Entry& b) { return a.text < b.text; });
    else
        std::stable_sort(first, last,
                         [](const Entry& a, const Entry& b) { return b.text < a.text; });
}

// Whether a case-folded text contains another one.
class Finder {
public:
    explicit Finder(const CString& text) : m_wanted(ViewOf(text)) {
        std::ranges::transform(m_wanted, m_wanted.begin(),
                               [](WCHAR unit) { return FoldCase(unit); });
    }

    bool IsIn(View text) const {
        if (text.size() < m_wanted.size())
            return false;
        const std::size_t last = text.size() - m_wanted.size();
        for (std::size_t start = 0; start <= last; ++start) {
            std::size_t i = 0;
            while (i < m_wanted.size() && FoldCase(text[start + i]) == m_wanted[i])
                ++i;
            if (i == m_wanted.size())
                return true;
        }
        return false;
    }

private:
    std::basic_string<WCHAR> m_wanted;
};

// For each row of the scheme; empty without a function.
std::vector<CShortcutKey> DefaultKeysOf(const ShortcutList::Scheme& scheme) {
    CKeyboardMappingScheme defaults;
    if (!defaults.SetLoadDefaultMappingSchemeFunction(
            scheme.scheme->GetLoadDefaultMappingSchemeFunction()))
        return {};
    defaults.LoadDefaultMappingScheme();
    std::vector<unsigned int> commands;
    for (const auto& row : scheme.rows)
        commands.push_back(row->GetKeyboardShortcut().GetCommandID());
    return quorvel::DefaultKeysOf(commands, defaults);
}

} // namespace

bool IsCommandBefore(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second) {
    return IsOrdered(first, second,
                     [](const Row& a, const Row& b) { return TextOf(a) < TextOf(b); });
}

bool IsCommandAfter(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second) {
    return IsCommandBefore(second, first);
}

bool IsKeyBefore(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second) {
    return IsOrdered(first, second, [](const Row& a, const Row& b) {
        return IsNameBefore(a.GetKeyName(), b.GetKeyName());
    });
}

bool IsKeyAfter(CVirtualListCtrlItem* const& first, CVirtualListCtrlItem* const& second) {
    return IsOrdered(first, second, [](const Row& a, const Row& b) {
        return IsNameAfter(a.GetKeyName(), b.GetKeyName());
    });
}

VirtualRowOrder ShortcutList::OrderOf(int column, bool isAscending) {
    switch (column) {
    case kCommandColumn:
        return isAscending ? IsCommandBefore : IsCommandAfter;
    case kKeyColumn:
        return isAscending ? IsKeyBefore : IsKeyAfter;
    default:
        return nullptr;
    }
}

// Schemes

int ShortcutList::InsertScheme(int index, const CKeyboardMappingScheme* scheme) {
    if (scheme == nullptr || index < 0 || index > GetSchemeCount())
        return -1;
    Scheme added = {scheme, {}};
    scheme->GetKeyboardMappingScheme(added.rows);
    m_schemes.insert(m_schemes.begin() + index, std::move(added));
    m_activeScheme += m_activeScheme >= index;
    return index;
}

bool ShortcutList::SetScheme(int index, const CKeyboardMappingScheme* scheme) {
    if (scheme == nullptr || !IsScheme(index))
        return false;
    Scheme replacement = {scheme, {}};
    scheme->GetKeyboardMappingScheme(replacement.rows);
    if (index == m_activeScheme)
        Show(-1);
    m_schemes[static_cast<std::size_t>(index)] = std::move(replacement);
    return true;
}

bool ShortcutList::RemoveScheme(int index) {
    if (!IsScheme(index))
        return false;
    if (index == m_activeScheme)
        Show(-1);
    m_schemes.erase(m_schemes.begin() + index);
    m_activeScheme -= m_activeScheme > index;
    return true;
}

bool ShortcutList::Load(int index) {
    if (index != -1 && !IsScheme(index))
        return false;
    Show(index);
    return true;
}

void ShortcutList::Show(int index) {
    std::vector<Row*> rows;
    if (index >= 0)
        for (const auto& row : GetScheme(index).rows)
            rows.push_back(row.get());
    SortRows(rows);
    m_all = std::move(rows);
    m_filtered.clear();
    m_filter.Empty();
    m_activeScheme = index;
}

// Rows

Row* ShortcutList::GetRow(int row) const {
    const std::vector<Row*>& rows = GetRows();
    return row >= 0 && static_cast<std::size_t>(row) < rows.size()
               ? rows[static_cast<std::size_t>(row)]
               : nullptr;
}

int ShortcutList::GetRowOf(const Row* row) const {
    const auto found = std::ranges::find(GetRows(), row);
    return found != GetRows().end() ? static_cast<int>(found - GetRows().begin()) : -1;
}

int ShortcutList::FindKey(const CShortcutKey& key) const {
    const auto found = std::ranges::find_if(GetRows(), [&key](const Row* row) {
        return row->GetKeyboardShortcut().GetShortcutKey() == key;
    });
    return found != GetRows().end() ? static_cast<int>(found - GetRows().begin()) : -1;
}

void ShortcutList::SetOrder(std::vector<Row*> rows) {
    (IsFiltered() ? m_filtered : m_all) = std::move(rows);
}

// Keys

bool ShortcutList::SetKey(int row, const CShortcutKey& key, int& formerRow) {
    Row* const changed = GetRow(row);
    formerRow = -1;
    if (changed == nullptr)
        return false;
    const CShortcutKey given = key;
    formerRow = ClearKey(given);
    changed->GetKeyboardShortcut().SetShortcutKey(given);
    SortByKey();
    return true;
}

int ShortcutList::ClearKey(const CShortcutKey& key) {
    const auto found = std::ranges::find_if(m_all, [&key](const Row* row) {
        return row->GetKeyboardShortcut().GetShortcutKey() == key;
    });
    if (found == m_all.end())
        return -1;
    Row* const cleared = *found;
    cleared->GetKeyboardShortcut().ClearShortcutKey();
    return GetRowOf(cleared);
}

bool ShortcutList::ClearKey(int row) {
    Row* const cleared = GetRow(row);
    if (cleared == nullptr)
        return false;
    cleared->GetKeyboardShortcut().ClearShortcutKey();
    return true;
}

bool ShortcutList::SortByKey() {
    if (m_sort.column != kKeyColumn)
        return false;
    Sort(m_sort);
    return true;
}

bool ShortcutList::ResetKey(int row, int& formerRow) {
    formerRow = -1;
    const Row* const reset = GetRow(row);
    if (reset == nullptr)
        return false;
    const Scheme& scheme = GetScheme(m_activeScheme);
    const std::vector<CShortcutKey> keys = DefaultKeysOf(scheme);
    const auto place = std::ranges::find(scheme.rows, reset, &boost::shared_ptr<Row>::get);
    return !keys.empty() &&
           SetKey(row, keys[static_cast<std::size_t>(place - scheme.rows.begin())], formerRow);
}

void ShortcutList::ResetAllKeys() {
    for (const Scheme& scheme : m_schemes) {
        const std::vector<CShortcutKey> keys = DefaultKeysOf(scheme);
        for (std::size_t i = 0; i < keys.size(); ++i)
            scheme.rows[i]->GetKeyboardShortcut().SetShortcutKey(keys[i]);
    }
    SortByKey();
}

void ShortcutList::ForgetKeyNames() {
    for (const Scheme& scheme : m_schemes)
        for (const auto& row : scheme.rows)
            row->ForgetKeyName();
}

// Sorting and filtering

void ShortcutList::SortRows(std::vector<Row*>& rows) const {
    const VirtualRowOrder order = m_sort.order;
    const bool isByCommand = order == IsCommandBefore || order == IsCommandAfter;
    if (order == nullptr)
        return;
    if (!isByCommand && order != IsKeyBefore && order != IsKeyAfter) {
        std::stable_sort(rows.begin(), rows.end(),
                         [order](Row* first, Row* second) { return order(first, second); });
        return;
    }
    std::vector<Entry> entries;
    entries.reserve(rows.size());
    for (Row* const row : rows)
        entries.push_back({isByCommand ? ViewOf(TextOf(*row)) : ViewOf(row->GetKeyName()), row});
    // Moves rows without a key to the end. So comparing the others needs no test for a key.
    const auto end =
        isByCommand ? entries.end()
                    : std::stable_partition(entries.begin(), entries.end(),
                                            [](const Entry& entry) { return !entry.text.empty(); });
    SortByText(entries.begin(), end, order == IsCommandBefore || order == IsKeyBefore);
    std::ranges::transform(entries, rows.begin(), &Entry::row);
}

void ShortcutList::Sort(const ShortcutSort& sort) {
    m_sort = sort;
    SortRows(IsFiltered() ? m_filtered : m_all);
}

bool ShortcutList::Filter(const WCHAR* text) {
    if (text == nullptr || m_filter.CompareNoCase(text) == 0)
        return false;
    const CString filter(text);
    const Finder finder(filter);
    std::vector<Row*> rows;
    if (filter.IsEmpty()) {
        m_sort = m_sortBeforeFilter;
        SortRows(m_all);
    } else {
        if (!IsFiltered())
            m_sortBeforeFilter = m_sort;
        std::ranges::copy_if(m_all, std::back_inserter(rows), [&finder](const Row* row) {
            return finder.IsIn(ViewOf(TextOf(*row))) || finder.IsIn(ViewOf(row->GetKeyName()));
        });
        SortRows(rows);
    }
    m_filtered = std::move(rows);
    m_filter = filter;
    return true;
}

} // namespace quorvel

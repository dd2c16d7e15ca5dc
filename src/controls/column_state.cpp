// Saves and loads the state of columns.
//
// A state may come from another list or from any program. So its numbers are only compared; they
// never determine how often a loop runs.
#include "controls/columns.h"

#include <quorvel/framework/app.h>

#include "util/text/no_throw.h"

#include <algorithm>
#include <climits>

namespace quorvel {

namespace {

constexpr WCHAR kColumns[] = _T("Columns");
constexpr WCHAR kCount[] = _T("Count");
constexpr WCHAR kSortColumn[] = _T("Sort Column");
constexpr WCHAR kSortAscending[] = _T("Sort Ascending");
constexpr WCHAR kPersistSortOrder[] = _T("Persist Sort Order");
constexpr WCHAR kWidth[] = _T("Width");
constexpr WCHAR kSortOrder[] = _T("Sort Order");

CString ColumnName(int trueColumn) {
    CString name;
    name.Format(_T("Column %d"), trueColumn);
    return name;
}

// Records whether a write failed.
class StateWriter {
public:
    explicit StateWriter(bool endsAtFailure) : m_endsAtFailure(endsAtFailure) {}

    // Returns whether to continue.
    bool Write(const StateGroup& group, const WCHAR* name, int value) {
        m_isComplete = group.WriteNumber(name, value) && m_isComplete;
        return m_isComplete || !m_endsAtFailure;
    }
    bool IsComplete() const { return m_isComplete; }

private:
    bool m_endsAtFailure;
    bool m_isComplete = true;
};

} // namespace

BOOL Columns::SaveState(HKEY key, BOOL closeKey) const {
    return WithoutException([&] { return Save(KeyState(key, closeKey != FALSE).get(), false); });
}

BOOL Columns::SaveState(const CRegistryPath& path) const {
    return WithoutException([&] { return Save(CreatedPathState(path).get(), false); });
}

BOOL Columns::SaveState(const WCHAR* section) const {
    return WithoutException([&] { return Save(SectionState(section).get(), true); });
}

BOOL Columns::LoadState(HKEY key, BOOL closeKey) {
    return Load([&] { return KeyState(key, closeKey != FALSE); });
}

BOOL Columns::LoadState(const CRegistryPath& path) {
    return Load([&] { return OpenedPathState(path); });
}

BOOL Columns::LoadState(const WCHAR* section) {
    if (section != nullptr && *section != 0 && AfxGetApp() == nullptr)
        return FALSE;
    return Load([&] { return SectionState(section); });
}

bool Columns::Save(const StateGroup* place, bool endsAtFailedWrite) const {
    const StatePlace columns = place != nullptr ? place->CreateGroup(kColumns) : nullptr;
    if (columns == nullptr)
        return false;
    const bool isOrderPersisted = HasRecords();
    const int count = GetTrueColumnCount();
    StateWriter writer(endsAtFailedWrite);
    if (!writer.Write(*columns, kCount, count) ||
        !writer.Write(*columns, kSortColumn, m_sortColumn) ||
        !writer.Write(*columns, kSortAscending, m_isSortAscending) ||
        !writer.Write(*columns, kPersistSortOrder, isOrderPersisted))
        return false;
    for (int i = 0; i < count; ++i) {
        const StatePlace column = columns->CreateGroup(ColumnName(i));
        if (column == nullptr || !writer.Write(*column, kWidth, GetWidth(i)))
            return false;
        if (isOrderPersisted &&
            !writer.Write(*column, kSortOrder, GetDisplayPosition(GetInsertedColumn(i))))
            return false;
    }
    return writer.IsComplete();
}

// Reads the whole state before changing anything: changes to the view call the host, and its
// exceptions must pass through.
template <class OpenPlace>
bool Columns::Load(OpenPlace openPlace) {
    std::optional<SavedState> state;
    WithoutException([&] { return (state = Read(openPlace().get())).has_value(); });
    if (!state) {
        m_view.LoadDefaultWidths();
        return false;
    }
    m_sortColumn = -1; // otherwise hiding the sort column would sort
    m_isSortAscending = state->isSortAscending;
    if (state->count > 0)
        ShowAsSaved(*state);
    else
        m_view.LoadDefaultWidths();
    m_sortColumn = DoesTrueColumnExist(state->sortColumn) ? state->sortColumn : -1;
    return true;
}

std::optional<Columns::SavedState> Columns::Read(const StateGroup* place) const {
    const StatePlace columns = place != nullptr ? place->OpenGroup(kColumns) : nullptr;
    if (columns == nullptr)
        return std::nullopt;
    SavedState state;
    state.count = columns->ReadNumber(kCount, 0);
    state.sortColumn = columns->ReadNumber(kSortColumn, -1);
    state.isSortAscending = columns->ReadNumber(kSortAscending, 1) != 0;
    state.isOrderPersisted = columns->ReadNumber(kPersistSortOrder, 0) != 0;
    for (const int trueColumn : ColumnsOfState(state.count, state.isOrderPersisted)) {
        SavedColumn saved = {trueColumn, std::nullopt, -1};
        if (const StatePlace column = columns->OpenGroup(ColumnName(trueColumn))) {
            // Any number can be a width. -1 is the width of a column that never had one.
            const int width = column->ReadNumber(kWidth, -1);
            if (width != -1 || column->ReadNumber(kWidth, 0) == -1)
                saved.width = width;
            saved.position = column->ReadNumber(kSortOrder, -1);
        }
        state.columns.push_back(saved);
    }
    return state;
}

void Columns::ShowAsSaved(const SavedState& state) {
    std::map<int, int> positions; // maps display positions to true columns
    for (const SavedColumn& saved : state.columns) {
        if (!saved.width && saved.trueColumn == 0) {
            m_view.LoadDefaultWidths();
            break;
        }
        const int width = saved.width.value_or(-1);
        if (!state.isOrderPersisted) {
            if (saved.trueColumn < m_view.GetCount()) // a width message has 16 bits
                m_view.SetWidth(saved.trueColumn, static_cast<SHORT>(LOWORD(width)));
            continue;
        }
        // -1 means automatic width, which a hidden column cannot have.
        const bool isHidden = HasRecords() && !IsVisible(saved.trueColumn);
        if (width <= SHRT_MAX && width >= (isHidden ? 0 : -1))
            SetWidth(saved.trueColumn, width);
        Show(saved.trueColumn, saved.position != -1);
        if (saved.position >= 0 && saved.position < state.count)
            positions[saved.position] = saved.trueColumn;
    }
    if (HasRecords() && m_view.GetCount() == 0) // there would be no header to show one with
        Show(m_records.begin()->first, true);
    std::vector<int> order;
    for (const auto& [position, trueColumn] : positions)
        order.push_back(trueColumn);
    if (!order.empty())
        SetOrder(order);
}

// The columns of this list that a state of `count` columns describes, the last first. Always
// includes column 0. Without an order the state describes inserted columns.
std::vector<int> Columns::ColumnsOfState(int count, bool isOrderPersisted) const {
    std::vector<int> columns;
    if (isOrderPersisted && HasRecords()) {
        for (auto record = m_records.rbegin(); record != m_records.rend(); ++record) {
            if (record->first < count)
                columns.push_back(record->first);
        }
    } else {
        for (int i = std::min(count, m_view.GetCount()) - 1; i >= 0; --i)
            columns.push_back(i);
    }
    if (columns.empty() || columns.back() != 0)
        columns.push_back(0);
    return columns;
}

} // namespace quorvel

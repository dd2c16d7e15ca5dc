#include <quorvel/framework/map.h>

IMPLEMENT_DYNAMIC(CMapStringToString, CObject)

namespace {

typedef std::map<CString, CString, std::less<>> Entries;

// A position is the address of an entry. An entry does not move while it is in the map.
template <class Iterator>
POSITION PositionOf(const Entries& entries, Iterator entry) {
    return entry != entries.end() ? reinterpret_cast<POSITION>(&*entry) : nullptr;
}

} // namespace

CMapStringToString::CMapStringToString() = default;

BOOL CMapStringToString::Lookup(const WCHAR* key, CString& value) const {
    const auto entry = m_entries.find(key);
    if (entry == m_entries.end())
        return FALSE;
    value = entry->second;
    return TRUE;
}

void CMapStringToString::SetAt(const WCHAR* key, const WCHAR* value) {
    m_entries.insert_or_assign(CString(key), CString(value));
}

BOOL CMapStringToString::RemoveKey(const WCHAR* key) {
    const auto entry = m_entries.find(key);
    if (entry == m_entries.end())
        return FALSE;
    m_entries.erase(entry);
    return TRUE;
}

void CMapStringToString::RemoveAll() noexcept {
    m_entries.clear();
}

POSITION CMapStringToString::GetStartPosition() const noexcept {
    return PositionOf(m_entries, m_entries.begin());
}

void CMapStringToString::GetNextAssoc(POSITION& next, CString& key, CString& value) const {
    const auto& entry = *reinterpret_cast<const Entries::value_type*>(next);
    key = entry.first;
    value = entry.second;
    next = PositionOf(m_entries, m_entries.upper_bound(entry.first));
}

// CMapStringToString: texts found by a text key. Letter case counts, and a key ends at its first
// zero. Looking up takes logarithmic time whatever the keys, so that keys from a stranger are no
// threat. One object may be used by one thread at a time; lack of memory throws std::bad_alloc.
#pragma once

#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

#include <map>

typedef const struct CMapPosition* POSITION; // an entry that was found; null for none

class QUORVEL_API CMapStringToString : public CObject {
    DECLARE_DYNAMIC(CMapStringToString)
public:
    CMapStringToString();

    INT_PTR GetCount() const noexcept { return static_cast<INT_PTR>(m_entries.size()); }
    BOOL IsEmpty() const noexcept { return m_entries.empty(); }
    // FALSE, and the value as it was, when there is no such key.
    BOOL Lookup(const WCHAR* key, CString& value) const;
    void SetAt(const WCHAR* key, const WCHAR* value); // adds or replaces
    BOOL RemoveKey(const WCHAR* key);
    void RemoveAll() noexcept;

    // Every entry once, in the order of the keys: from the start position until the position is
    // null. Entries may be changed meanwhile, those of the next position not removed.
    POSITION GetStartPosition() const noexcept;
    void GetNextAssoc(POSITION& next, CString& key, CString& value) const;

private:
    std::map<CString, CString, std::less<>> m_entries;
};

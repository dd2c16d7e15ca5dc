// CMapStringToString and CMap: maps from keys to values.
//
// CMapStringToString has text keys, which are case-sensitive and end at their first zero. A lookup
// takes logarithmic time for all keys, so hostile keys cannot slow it down. One object may be used
// by one thread at a time. A failed allocation throws std::bad_alloc.
#pragma once

#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

#include <functional>
#include <iterator>
#include <map>
#include <type_traits>
#include <unordered_map>

typedef const struct CMapPosition* POSITION; // an entry; null after the last one

class QUORVEL_API CMapStringToString : public CObject {
    DECLARE_DYNAMIC(CMapStringToString)
public:
    CMapStringToString();

    // The number of entries. Constant time.
    INT_PTR GetCount() const noexcept { return static_cast<INT_PTR>(m_entries.size()); }
    BOOL IsEmpty() const noexcept { return m_entries.empty(); }
    // Returns FALSE and leaves the value unchanged when the key is missing.
    BOOL Lookup(const WCHAR* key, CString& value) const;
    void SetAt(const WCHAR* key, const WCHAR* value); // adds or replaces
    BOOL RemoveKey(const WCHAR* key);                 // FALSE when the key is missing
    void RemoveAll() noexcept;                        // also ends every walk

    // Visits each entry once, in the order of the keys, until the position is null. During the walk
    // entries may be changed; do not remove the entry at the next position.
    POSITION GetStartPosition() const noexcept;
    void GetNextAssoc(POSITION& next, CString& key, CString& value) const;

private:
    std::map<CString, CString, std::less<>> m_entries;
};

// The hash of a key, in the type that CMap's members take. Specialise it for types of your own.
template <class ArgKey>
UINT HashKey(ArgKey key) {
    return static_cast<UINT>(std::hash<std::remove_cvref_t<ArgKey>>()(key));
}
template <>
inline UINT HashKey<const WCHAR*>(const WCHAR* key) {
    UINT hash = 0;
    while (*key != 0)
        hash = hash * 33 + static_cast<UINT>(*key++);
    return hash;
}
template <>
inline UINT HashKey<const CString&>(const CString& key) {
    return HashKey<const WCHAR*>(key);
}

// Values of any type, with keys of any type that has == and a HashKey: CMap<int, int, CString,
// const CString&>. The second and fourth types are those in which members take keys and values. One
// object may be used by one thread at a time. A failed allocation throws std::bad_alloc.
template <class Key, class ArgKey, class Value, class ArgValue>
class CMap : public CObject {
public:
    CMap() = default;
    explicit CMap(INT_PTR) {} // the block size is ignored

    // The number of entries. Constant time.
    INT_PTR GetCount() const noexcept { return static_cast<INT_PTR>(m_entries.size()); }
    INT_PTR GetSize() const noexcept { return GetCount(); }
    BOOL IsEmpty() const noexcept { return m_entries.empty(); }
    // Reserves buckets for about `hashSize` entries. Ignored when the map has entries, and for 0.
    void InitHashTable(UINT hashSize, BOOL = TRUE) {
        if (!m_entries.empty() || hashSize == 0)
            return;
        m_hashSize = hashSize;
        m_entries.rehash(hashSize);
    }
    UINT GetHashTableSize() const noexcept { return m_hashSize; } // 17 unless it was set

    // Returns FALSE and leaves the value unchanged when the key is missing.
    BOOL Lookup(ArgKey key, Value& value) const {
        const auto entry = m_entries.find(Key(key));
        if (entry == m_entries.end())
            return FALSE;
        value = entry->second;
        return TRUE;
    }
    Value& operator[](ArgKey key) { return m_entries[Key(key)]; } // adds a missing key
    void SetAt(ArgKey key, ArgValue value) { m_entries.insert_or_assign(Key(key), value); }
    BOOL RemoveKey(ArgKey key) { return m_entries.erase(Key(key)) != 0; } // FALSE when missing
    void RemoveAll() noexcept { m_entries.clear(); }                      // also ends every walk

    // Visits each entry once, in no particular order, until the position is null. During the walk
    // values may be changed, and entries other than the one at the next position may be removed.
    // After an entry is added, the walk may visit entries twice or not at all.
    POSITION GetStartPosition() const noexcept { return PositionOf(m_entries.begin()); }
    void GetNextAssoc(POSITION& next, Key& key, Value& value) const {
        const auto entry =
            m_entries.find(reinterpret_cast<const typename Entries::value_type*>(next)->first);
        key = entry->first;
        value = entry->second;
        next = PositionOf(std::next(entry));
    }

private:
    struct Hash {
        std::size_t operator()(const Key& key) const { return HashKey<ArgKey>(key); }
    };
    typedef std::unordered_map<Key, Value, Hash> Entries;

    // A position is the address of an entry; entries do not move in memory.
    POSITION PositionOf(typename Entries::const_iterator entry) const noexcept {
        return entry != m_entries.end() ? reinterpret_cast<POSITION>(&*entry) : nullptr;
    }

    Entries m_entries;
    UINT m_hashSize = 17;
};

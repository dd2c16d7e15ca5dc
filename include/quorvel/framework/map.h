// CMapStringToString and CMap: values found by a key.
//
// CMapStringToString has text keys. Letter case counts, and a key ends at its first
// zero. Looking up takes logarithmic time whatever the keys, so that keys from a stranger are no
// threat. One object may be used by one thread at a time; lack of memory throws std::bad_alloc.
#pragma once

#include <quorvel/framework/object.h>
#include <quorvel/framework/string.h>

#include <functional>
#include <iterator>
#include <map>
#include <type_traits>
#include <unordered_map>

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

// The hash of a key as CMap's members are given it. A program specialises it for a type of its own.
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

// Values of any type found by keys of any type that have == and a HashKey: CMap<int, int, CString,
// const CString&>. The second and fourth type are how members take keys and values. One object may
// be used by one thread at a time; lack of memory throws std::bad_alloc.
template <class Key, class ArgKey, class Value, class ArgValue>
class CMap : public CObject {
public:
    CMap() = default;
    explicit CMap(INT_PTR) {} // the count of entries to find memory for at once: not needed

    INT_PTR GetCount() const noexcept { return static_cast<INT_PTR>(m_entries.size()); }
    INT_PTR GetSize() const noexcept { return GetCount(); }
    BOOL IsEmpty() const noexcept { return m_entries.empty(); }
    // A hint of how many entries to expect; nothing while there are any, and for 0.
    void InitHashTable(UINT hashSize, BOOL = TRUE) {
        if (!m_entries.empty() || hashSize == 0)
            return;
        m_hashSize = hashSize;
        m_entries.rehash(hashSize);
    }
    UINT GetHashTableSize() const noexcept { return m_hashSize; }

    // FALSE, and the value as it was, when there is no such key.
    BOOL Lookup(ArgKey key, Value& value) const {
        const auto entry = m_entries.find(Key(key));
        if (entry == m_entries.end())
            return FALSE;
        value = entry->second;
        return TRUE;
    }
    Value& operator[](ArgKey key) { return m_entries[Key(key)]; } // added when it is missing
    void SetAt(ArgKey key, ArgValue value) { m_entries.insert_or_assign(Key(key), value); }
    BOOL RemoveKey(ArgKey key) { return m_entries.erase(Key(key)) != 0; }
    void RemoveAll() noexcept { m_entries.clear(); }

    // Every entry once, in no particular order: from the start position until the position is null.
    // Meanwhile values may be changed and entries removed but that of the next position; after
    // adding one, entries may be met twice or not at all.
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

    // A position is the address of an entry, which stays where it is for as long as it is there.
    POSITION PositionOf(typename Entries::const_iterator entry) const noexcept {
        return entry != m_entries.end() ? reinterpret_cast<POSITION>(&*entry) : nullptr;
    }

    Entries m_entries;
    UINT m_hashSize = 17;
};

// CRecentFiles: the files that a program opened last, the latest first.
//
// A plain value; one object may be used by one thread at a time. Names are compared without regard
// to letter case: give full paths. A menu shows them with AfxShowRecentFiles
// (controls/win/recent_files_menu.h).
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/system/registry_path.h>

#include <vector>

class QUORVEL_API CRecentFiles {
public:
    static constexpr int DEFAULT_LIMIT = 9; // as many as have a digit in a menu

    explicit CRecentFiles(int limit = DEFAULT_LIMIT) : m_limit(limit) {} // below 1: 1

    // Puts a file in front; files beyond the limit are dropped. FALSE for null and an empty name.
    BOOL Add(const WCHAR* fileName);
    BOOL Remove(const WCHAR* fileName); // a deleted file, for example; FALSE when not in the list
    // Index 0 is the latest file. For an index outside the list the name is empty.
    int GetCount() const { return static_cast<int>(m_files.size()); }
    CString GetFile(int index) const;

    // Values "Recent file 1" and so on in the key of the path. Loading replaces the list and stops
    // at the limit. Saving returns FALSE when a value could not be written, loading when it found
    // no value.
    BOOL SaveState(const CRegistryPath& path) const;
    BOOL LoadState(const CRegistryPath& path);

private:
    int m_limit;
    std::vector<CString> m_files;
};

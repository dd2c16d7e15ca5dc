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

    // Puts a file in front; what exceeds the limit is dropped. FALSE for null and an empty name.
    BOOL Add(const WCHAR* fileName);
    BOOL Remove(const WCHAR* fileName); // such as one that is gone; FALSE when it is not there
    int GetCount() const { return static_cast<int>(m_files.size()); }
    CString GetFile(int index) const; // empty outside

    // Values "Recent file 1" and so on in the key of the path. Loading replaces what is there and
    // takes up to the limit. FALSE when a value could not be written, and when there was none.
    BOOL SaveState(const CRegistryPath& path) const;
    BOOL LoadState(const CRegistryPath& path);

private:
    int m_limit;
    std::vector<CString> m_files;
};

// What the workbench remembers, in one key of the registry.
#pragma once

#include <quorvel/framework/string.h>
#include <quorvel/system/registry_path.h>

#include <vector>

struct Settings {
    static constexpr UINT kLeastSourceLimit = 100;
    static constexpr UINT kMostSourceLimit = 1000000;

    UINT sourceLimit = 20000; // characters
    BOOL checksOnOpen = FALSE;
    LANGID language = 0;              // 0: as the system
    std::vector<CString> recentFiles; // the newest first

    static CRegistryPath Path();
    static Settings Load();
    void Save() const;
    void AddRecentFile(const CString& file);
};

// What the workbench remembers, in one key of the registry.
#pragma once

#include <quorvel/controls/recent_files.h>
#include <quorvel/keyboard/keyboard_mapping_scheme.h>

struct Settings {
    static constexpr UINT kLeastSourceLimit = 100;
    static constexpr UINT kMostSourceLimit = 1000000;

    UINT sourceLimit = 20000; // characters
    BOOL checksOnOpen = FALSE;
    LANGID language = 0; // 0: as the system
    CRecentFiles recentFiles;
    CKeyboardMappingScheme shortcuts;

    static CRegistryPath Path(); // that of the application's profile
    static Settings Load();      // after the language was installed: commands have names
    void Save() const;
    // The key and all below it as .reg text. FALSE with the reason.
    static BOOL Export(const CString& file, CString& error);
};

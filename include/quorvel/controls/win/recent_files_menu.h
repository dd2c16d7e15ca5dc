// The menu of the files that were opened last. Windows only, user-interface thread.
#pragma once

#include <quorvel/controls/recent_files.h>
#include <quorvel/framework/win/menu.h>

// Fills a pop-up menu, in place of what it held, with a numbered item for each file, whose commands
// count from `firstCommand`: the file of a command is GetFile(command - firstCommand). Without
// files the text stands there, greyed, with the first command. Call it when the menu opens
// (WM_INITMENUPOPUP).
QUORVEL_API void AfxShowRecentFiles(CMenu& menu, const CRecentFiles& files, UINT firstCommand,
                                    const WCHAR* textWithoutFiles);

// Opens the target of a Help button.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// The functions that show the two kinds of target. Tests replace them.
struct HelpViewers {
    void (*openLink)(HWND owner, const WCHAR* address);
    void (*showTopic)(const WCHAR* path);
};
HelpViewers& CurrentHelpViewers();

// Opens a valid web address when the host's link hook allows it. Shows any other target as an HTML
// Help topic.
void OpenHelpTarget(HWND owner, const WCHAR* target);

} // namespace quorvel

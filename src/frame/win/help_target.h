// What a Help button opens.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// How the two kinds of target are shown. Tests replace them.
struct HelpViewers {
    void (*openLink)(HWND owner, const WCHAR* address);
    void (*showTopic)(const WCHAR* path);
};
HelpViewers& CurrentHelpViewers();

// A valid web address is opened when the host's link hook allows it; anything else is shown as an
// HTML Help topic.
void OpenHelpTarget(HWND owner, const WCHAR* target);

} // namespace quorvel

#include "frame/win/help_target.h"

#include <quorvel/util/text/validation.h>

#include "frame/external_link.h"
#include "frame/win/html_help_control.h"

#include <htmlhelp.h>
#include <shellapi.h>

namespace quorvel {

namespace {

void OpenLink(HWND owner, const WCHAR* address) {
    ::ShellExecuteW(owner, _T("open"), address, nullptr, nullptr, SW_SHOWNORMAL);
}

// The desktop owns the topic's window, so that it stays open when the box closes. The control is
// never unloaded, because its windows still need it.
void ShowTopic(const WCHAR* path) {
    if (const HtmlHelpFunction htmlHelp = HtmlHelpOf(::LoadLibraryW(kHtmlHelpControl)))
        htmlHelp(::GetDesktopWindow(), path, HH_DISPLAY_TOPIC, 0);
}

} // namespace

HelpViewers& CurrentHelpViewers() {
    static HelpViewers viewers = {OpenLink, ShowTopic};
    return viewers;
}

void OpenHelpTarget(HWND owner, const WCHAR* target) {
    if (!AfxIsValidURL(target))
        CurrentHelpViewers().showTopic(target);
    else if (MayOpenExternalLink(target))
        CurrentHelpViewers().openLink(owner, target);
}

} // namespace quorvel

#include "frame/html_help.h"

namespace quorvel {

BOOL QueryHtmlHelpError(HtmlHelpError&) {
    return FALSE; // there is no HTML Help here
}

} // namespace quorvel

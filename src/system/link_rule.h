// The rule for opening links when the host has set no hook.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Whether opening the link runs no program except the viewer. These links are harmless:
// - http, https, ftp, gopher and news addresses without quotes, angle brackets and backslashes;
// - such mailto addresses, if they name no attachment and have line breaks in the body only;
// - file:// with the path of a document on this computer: bmp, csv, doc, docx, gif, htm, html,
//   jpeg, jpg, log, md, odp, ods, odt, pdf, png, ppt, pptx, rtf, tif, tiff, txt, xls, xlsx. A
//   folder, a path on another computer and a path with a query are not harmless.
bool IsHarmlessLink(const WCHAR* link);

} // namespace quorvel

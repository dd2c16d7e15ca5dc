// Which links are opened when no host says otherwise.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

// Whether opening the link starts no program but the one that shows it. So are
// - http, https, ftp, gopher and news addresses without characters that an address has to escape;
// - such mailto addresses that name no attachment and have line breaks in the body only;
// - file:// with the path of a document on this computer: bmp, csv, doc, docx, gif, htm, html,
//   jpeg, jpg, log, md, odp, ods, odt, pdf, png, ppt, pptx, rtf, tif, tiff, txt, xls, xlsx. A
//   folder, a path on another computer and a path with a query are not.
bool IsHarmlessLink(const WCHAR* link);

} // namespace quorvel

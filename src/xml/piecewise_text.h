// Reads the text of a file in pieces and converts each while it is in the processor's caches. So
// the whole file is never in memory both as bytes and as text.
//
// Both functions get the bytes that were already read, and the number of bytes left in the file. If
// the file has shrunk, they use what is there. They throw the exceptions of CFile::Read, and
// CMemoryException.
#pragma once

#include <quorvel/framework/file.h>
#include <quorvel/framework/string.h>

#include <string_view>

namespace quorvel {

// Whether text of the code page may be cut between any two characters and has no more UTF-16 units
// than bytes. True for UTF-8 and for the single-byte pages that XML files use.
bool ConvertsInPieces(UINT codePage);

CString ReadTextInPieces(CFile& file, std::string_view bytes, int left, UINT codePage);
// For UTF-16. `units` are already in this machine's byte order; those in the file have the other
// order when `swapped` is true. Drops an odd byte at the end.
CString ReadTextInPieces(CFile& file, std::basic_string_view<WCHAR> units, int left, bool swapped);

} // namespace quorvel

// Reads the text of a file in pieces, each converted while it is in the processor's caches, so that
// the bytes are never all in memory beside the text.
//
// Both functions take the bytes that were read already and how many are left in the file; of a file
// that has shrunk they take what there is. They throw what CFile::Read throws, and
// CMemoryException.
#pragma once

#include <quorvel/framework/file.h>
#include <quorvel/framework/string.h>

#include <string_view>

namespace quorvel {

// Whether text of the code page may be cut between any two characters, wherever they are, and has
// no more UTF-16 units than bytes: UTF-8 and the single-byte pages that XML files are written in.
bool ConvertsInPieces(UINT codePage);

CString ReadTextInPieces(CFile& file, std::string_view bytes, int left, UINT codePage);
// Of UTF-16 the units that were read are in this machine's byte order, those in the file are not
// where `swapped` says so. An odd byte at the end is dropped.
CString ReadTextInPieces(CFile& file, std::basic_string_view<WCHAR> units, int left, bool swapped);

} // namespace quorvel

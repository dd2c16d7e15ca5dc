#include "xml/piecewise_text.h"

#include <quorvel/util/text/byte_swap.h>

#include "platform/win32.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>

namespace quorvel {

namespace {

constexpr int kPiece = 65536;

struct CodePageRange {
    UINT first;
    UINT last;
};
// Some are left out: Windows combines letters with marks in its Hebrew and Vietnamese pages.
constexpr CodePageRange kSingleByte[] = {
    {437, 437},     {850, 850},     {852, 852},     {866, 866},     {1250, 1254},   {1256, 1257},
    {20127, 20127}, {20866, 20866}, {21866, 21866}, {28591, 28597}, {28599, 28599}, {28603, 28605},
};

// The number of bytes at the end to leave for the next piece, so that no UTF-8 sequence is cut. A
// lead byte never belongs to the sequence before it, so cutting there is safe even in ill-formed
// text. The cut is necessary there too: a converter may treat everything after an incomplete
// sequence as part of it, even letters.
int CutSequence(std::string_view bytes) {
    constexpr int kMost = 64; // text never needs more
    constexpr int kReach = 3;
    const int size = static_cast<int>(bytes.size());
    int cut = 0;
    for (int count = 1; count <= std::min({size, cut + kReach, kMost}); ++count) {
        const auto byte = static_cast<BYTE>(bytes[static_cast<std::size_t>(size - count)]);
        const int length = byte < 0xc0 ? 1 : byte < 0xe0 ? 2 : byte < 0xf0 ? 3 : 4;
        if (length > count - cut)
            cut = count;
    }
    return cut;
}

} // namespace

bool ConvertsInPieces(UINT codePage) {
    return codePage == CP_UTF8 ||
           std::any_of(std::begin(kSingleByte), std::end(kSingleByte),
                       [codePage](const CodePageRange& range) {
                           return codePage >= range.first && codePage <= range.last;
                       });
}

CString ReadTextInPieces(CFile& file, std::string_view bytes, int left, UINT codePage) {
    CString text;
    const int capacity = static_cast<int>(bytes.size()) + left;
    WCHAR* const units = text.GetBuffer(capacity);
    int length = 0;
    std::unique_ptr<char[]> piece;
    for (;;) {
        const int kept = left > 0 && codePage == CP_UTF8 ? CutSequence(bytes) : 0;
        const int whole = static_cast<int>(bytes.size()) - kept;
        if (whole > 0)
            length += MultiByteToWideChar(codePage, 0, bytes.data(), whole, units + length,
                                          capacity - length);
        if (left == 0)
            break;
        if (piece == nullptr)
            piece.reset(new char[kPiece]);
        std::memmove(piece.get(), bytes.data() + whole, static_cast<std::size_t>(kept));
        const int wanted = std::min(left, kPiece - kept);
        const int read = static_cast<int>(file.Read(piece.get() + kept, static_cast<UINT>(wanted)));
        left = read < wanted ? 0 : left - read;
        bytes = {piece.get(), static_cast<std::size_t>(kept + read)};
    }
    text.ReleaseBuffer(length);
    return text;
}

CString ReadTextInPieces(CFile& file, std::basic_string_view<WCHAR> units, int left, bool swapped) {
    CString text;
    const int present = static_cast<int>(units.size());
    WCHAR* at = text.GetBuffer(present + (left + 1) / 2);
    at = std::copy(units.begin(), units.end(), at);
    int length = present;
    while (left > 0) {
        const int wanted = std::min(left, kPiece);
        const int read = static_cast<int>(file.Read(at, static_cast<UINT>(wanted)));
        const int count = read / 2;
        if (swapped)
            AfxSwapWordData(reinterpret_cast<WORD*>(at), static_cast<ULONGLONG>(count));
        at += count;
        length += count;
        left = read < wanted ? 0 : left - read;
    }
    text.ReleaseBuffer(length);
    return text;
}

} // namespace quorvel

// Code pages with one or two bytes for each character, converted by table.
//
// On first use of a code page its table is built from an ICU converter, corrected where the
// platform differs (code_page_data.inc), and kept until the process ends. It takes about 30 KB and
// a fraction of a millisecond for a single-byte page, about 250 KB and a few milliseconds for a
// double-byte page.
#pragma once

#include "platform/linux/text/code_page.h"

#include <array>
#include <vector>

namespace quorvel {

class Converter;
struct CodePageRow;

class CodePageTable {
public:
    static bool IsListed(UINT codePage);
    // The table of a code page, built when necessary; null for an unknown code page. Any thread.
    // Throws std::bad_alloc. Tables are never destroyed.
    static const CodePageTable* Find(UINT codePage);

    bool IsDoubleByte() const { return m_rows.size() > 1; }
    // MB_USEGLYPHCHARS: whether the page has a glyph for that control character.
    bool HasGlyph(WCHAR unit) const;
    BYTE DefaultByte() const { return m_defaultByte; } // the question mark

    DWORD Decode(Bytes bytes, bool strict, WideOutput& output) const;
    DWORD Encode(WideText text, Substitution& substitution, ByteOutput& output) const;

private:
    typedef std::array<WCHAR, 256> Row;
    struct Code {
        WORD value = 0;
        bool isExact = false;
        bool isBestFit = false;
    };
    typedef std::array<Code, 256> Block;

    explicit CodePageTable(const CodePageRow& page) : m_page(page) {}
    bool Build();
    bool ReadConverter();
    WCHAR ReadPair(Converter& converter, BYTE lead, BYTE trail) const;
    void MakeLead(BYTE byte);
    void ApplyDifferences();
    void BuildCodes();
    void AddCode(WCHAR unit, WORD value);
    void AddBestFits();
    void AddBestFit(WCHAR unit, WCHAR fit);
    const Code& Find(WCHAR unit) const { return m_blocks[m_blockOf[unit >> 8]][unit & 0xff]; }
    Code& FindOrAdd(WCHAR unit);
    bool DecodeOne(Bytes bytes, std::size_t& position, WCHAR& unit) const;

    const CodePageRow& m_page;
    BYTE m_defaultByte = '?';
    WCHAR m_defaultUnit = '?';
    Row m_singles;
    std::array<BYTE, 256> m_rowOf = {};   // index: lead byte; the row of its trail bytes, or 0
    std::vector<Row> m_rows{1};           // row 0 belongs to no lead byte
    std::array<WORD, 256> m_blockOf = {}; // index: a unit's upper half; its block, or 0
    std::vector<Block> m_blocks{1};
};

} // namespace quorvel

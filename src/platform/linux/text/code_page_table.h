// Code pages of one or two bytes a character, converted by table.
//
// A table is read from an ICU converter when its code page is first used, corrected where the
// platform differs (code_page_data.inc), and kept for good: some 30 KB and a fraction of a
// millisecond for a single-byte page, some 250 KB and a few milliseconds for a double-byte one.
// After that ICU is not asked again.
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
    // The table of a code page, built when needed; null when there is none. Any thread; throws
    // std::bad_alloc. Tables live as long as the process.
    static const CodePageTable* Find(UINT codePage);

    bool IsDoubleByte() const { return m_rows.size() > 1; }
    // MB_USEGLYPHCHARS: whether the page shows a glyph for that control character.
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
    std::array<BYTE, 256> m_rowOf = {};   // by lead byte: the row of its trail bytes, or 0
    std::vector<Row> m_rows{1};           // the first is no lead byte's
    std::array<WORD, 256> m_blockOf = {}; // by upper half of a unit: its block, or the empty 0
    std::vector<Block> m_blocks{1};
};

} // namespace quorvel

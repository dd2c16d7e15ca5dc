#include "platform/linux/text/code_page_table.h"

#include "platform/linux/text/converter.h"
#include "platform/linux/text/johab.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <string_view>

namespace quorvel {

using namespace std::string_view_literals;

// Properties of a page in addition to its converter.
enum CodePageForm : BYTE {
    kEbcdic = 1,       // if not set, the lower half is ASCII, whatever the converter says
    kNoPrivateUse = 2, // the converter's private-use characters differ from the platform's
    kFullWidth = 4,    // the full-width forms of ASCII are best fits for the narrow ones
    kMiddleDot = 8,    // unassigned codes are read as U+30FB instead of a question mark
    kGlyphs = 16,      // has glyphs for control characters
    kDeleteGlyph = 32, // has a glyph for 7F only
    kJohab = 64,       // has the converter's characters at the codes of code page 1361
};

struct CodePageRow {
    WORD codePage;
    WORD bestFitsOf; // the page whose best fits also apply here, or 0
    const char* converter;
    int form;
};

namespace {

struct DifferenceRow {
    WORD codePage;
    WORD firstCode;
    std::u16string_view units;
};

struct SecondChoiceRow {
    WORD codePage;
    WORD first;
    WORD last;
};

struct BestFitRow {
    WORD codePage;
    std::u16string_view pairs;
};

#include "platform/linux/text/code_page_data.inc"

constexpr WCHAR kLead = 0xfffe; // for a byte: a trail byte follows
constexpr WCHAR kNone = 0xffff; // no character

const CodePageRow* FindRow(UINT codePage) {
    const auto row = std::lower_bound(
        std::begin(kCodePages), std::end(kCodePages), codePage,
        [](const CodePageRow& page, UINT number) { return page.codePage < number; });
    return row != std::end(kCodePages) && row->codePage == codePage ? row : nullptr;
}

bool IsPrivateUse(WCHAR unit) {
    return unit >= 0xe000 && unit <= 0xf8ff;
}

bool IsSecondChoice(WORD codePage, WORD code) {
    return std::any_of(std::begin(kSecondChoices), std::end(kSecondChoices),
                       [=](const SecondChoiceRow& row) {
                           return row.codePage == codePage && code >= row.first && code <= row.last;
                       });
}

// The best fits of the referenced page, overridden by those of the page itself.
void CollectBestFits(const CodePageRow& page, std::map<WCHAR, WCHAR>& fits) {
    if (const CodePageRow* base = FindRow(page.bestFitsOf))
        CollectBestFits(*base, fits);
    for (const BestFitRow& row : kBestFits) {
        for (std::size_t i = 0; row.codePage == page.codePage && i < row.pairs.size(); i += 2)
            fits[row.pairs[i]] = row.pairs[i + 1];
    }
}

} // namespace

bool CodePageTable::HasGlyph(WCHAR unit) const {
    return (m_page.form & kGlyphs) != 0 || (unit == 0x7f && (m_page.form & kDeleteGlyph) != 0);
}

bool CodePageTable::IsListed(UINT codePage) {
    return FindRow(codePage) != nullptr;
}

const CodePageTable* CodePageTable::Find(UINT codePage) {
    static constinit std::atomic<const CodePageTable*> s_tables[std::size(kCodePages)] = {};
    static constinit std::mutex s_building;

    const CodePageRow* page = FindRow(codePage);
    if (page == nullptr)
        return nullptr;
    std::atomic<const CodePageTable*>& table = s_tables[page - kCodePages];
    if (const CodePageTable* built = table.load(std::memory_order_acquire))
        return built;
    const std::lock_guard lock(s_building);
    if (table.load(std::memory_order_relaxed) == nullptr) {
        std::unique_ptr<CodePageTable> built(new CodePageTable(*page));
        if (built->Build())
            table.store(built.release(), std::memory_order_release);
    }
    return table.load(std::memory_order_relaxed);
}

bool CodePageTable::Build() {
    if (!ReadConverter())
        return false;
    ApplyDifferences();
    BuildCodes();
    AddBestFits();
    m_rows.shrink_to_fit();
    m_blocks.shrink_to_fit();
    m_defaultByte = static_cast<BYTE>(Find(u'?').value);
    if ((m_page.form & kMiddleDot) != 0)
        m_defaultUnit = 0x30fb;
    return true;
}

bool CodePageTable::ReadConverter() {
    Converter converter(m_page.converter);
    if (!converter.IsOpen())
        return false;
    const bool isJohab = (m_page.form & kJohab) != 0;
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const BYTE code = static_cast<BYTE>(byte);
        const Converter::Single single = converter.DecodeSingle({&code, 1});
        const bool isLead = isJohab ? IsJohabLead(code) : single.isCut;
        m_singles[byte] = isLead ? kLead : single.isFound && !isJohab ? single.unit : kNone;
        if (byte < 0x80 && (m_page.form & kEbcdic) == 0)
            m_singles[byte] = static_cast<WCHAR>(byte);
        if (m_singles[byte] != kLead)
            continue;
        MakeLead(code);
        for (unsigned trail = 0; trail < 0x100; ++trail) {
            m_rows[m_rowOf[byte]][trail] = ReadPair(converter, code, static_cast<BYTE>(trail));
        }
    }
    return true;
}

WCHAR CodePageTable::ReadPair(Converter& converter, BYTE lead, BYTE trail) const {
    WORD code = MAKEWORD(trail, lead);
    if ((m_page.form & kJohab) != 0) {
        if (const WCHAR unit = JohabUnit(lead, trail))
            return unit;
        code = JohabTo949(lead, trail);
    }
    const BYTE pair[] = {HIBYTE(code), LOBYTE(code)};
    const Converter::Single found = converter.DecodeSingle(pair);
    const bool isLeftOut = (m_page.form & kNoPrivateUse) != 0 && IsPrivateUse(found.unit);
    return found.isFound && !isLeftOut ? found.unit : kNone;
}

void CodePageTable::MakeLead(BYTE byte) {
    m_singles[byte] = kLead;
    m_rowOf[byte] = static_cast<BYTE>(m_rows.size());
    m_rows.emplace_back().fill(kNone);
}

void CodePageTable::ApplyDifferences() {
    for (const DifferenceRow& row : kDifferences) {
        if (row.codePage != m_page.codePage)
            continue;
        for (std::size_t i = 0; i < row.units.size(); ++i) {
            const std::size_t code = row.firstCode + i;
            if (code >= 0x100)
                m_rows[m_rowOf[code >> 8]][code & 0xff] = row.units[i];
            else if (row.units[i] == kLead)
                MakeLead(static_cast<BYTE>(code));
            else
                m_singles[code] = row.units[i];
        }
    }
}

// Builds the encoding table. If a character has several codes, the first one is kept.
void CodePageTable::BuildCodes() {
    for (const bool isSecond : {false, true}) {
        const auto add = [this, isSecond](WCHAR unit, unsigned code) {
            if (IsSecondChoice(m_page.codePage, static_cast<WORD>(code)) == isSecond)
                AddCode(unit, static_cast<WORD>(code));
        };
        for (unsigned byte = 0; byte < 0x100; ++byte)
            add(m_singles[byte], byte);
        for (unsigned lead = 0; lead < 0x100; ++lead) {
            for (unsigned trail = 0; m_singles[lead] == kLead && trail < 0x100; ++trail)
                add(m_rows[m_rowOf[lead]][trail], lead << 8 | trail);
        }
    }
}

void CodePageTable::AddCode(WCHAR unit, WORD value) {
    if (unit == kNone || unit == kLead)
        return;
    Code& code = FindOrAdd(unit);
    if (!code.isExact)
        code = {value, true, false};
}

void CodePageTable::AddBestFits() {
    std::map<WCHAR, WCHAR> fits;
    CollectBestFits(m_page, fits);
    for (const auto& [unit, fit] : fits)
        AddBestFit(unit, fit);
    constexpr WCHAR kQuestionMark = 0xff1f; // its fit is the default character
    for (WCHAR unit = 0xff01; (m_page.form & kFullWidth) != 0 && unit <= 0xff5e; ++unit) {
        if (unit != kQuestionMark)
            AddBestFit(unit, static_cast<WCHAR>(unit - 0xff01 + '!'));
    }
}

void CodePageTable::AddBestFit(WCHAR unit, WCHAR fit) {
    const Code target = Find(fit);
    if (fit != 0 && target.isExact && !Find(unit).isExact)
        FindOrAdd(unit) = {target.value, false, true};
}

CodePageTable::Code& CodePageTable::FindOrAdd(WCHAR unit) {
    WORD& block = m_blockOf[unit >> 8];
    if (block == 0) {
        block = static_cast<WORD>(m_blocks.size());
        m_blocks.emplace_back();
    }
    return m_blocks[block][unit & 0xff];
}

// False for an unassigned character; `unit` is then its replacement.
bool CodePageTable::DecodeOne(Bytes bytes, std::size_t& position, WCHAR& unit) const {
    const BYTE byte = bytes[position++];
    unit = m_singles[byte];
    if (unit != kLead && unit != kNone)
        return !IsPrivateUse(unit) && (unit != m_defaultUnit || byte == m_defaultByte);
    // A lead byte at the end has no trail byte, and a terminator is never a trail byte.
    if (unit == kLead && position < bytes.size() && bytes[position] != 0)
        unit = m_rows[m_rowOf[byte]][bytes[position++]];
    if (unit != kLead && unit != kNone)
        return true;
    unit = m_defaultUnit;
    return false;
}

DWORD CodePageTable::Decode(Bytes bytes, bool strict, WideOutput& output) const {
    std::size_t position = 0;
    while (position < bytes.size()) {
        if (bytes[position] < 0x80 && (m_page.form & kEbcdic) == 0) {
            position += output.PutAscii(bytes.subspan(position));
            if (position == bytes.size())
                break;
        }
        WCHAR unit;
        if (!DecodeOne(bytes, position, unit) && strict)
            return ERROR_NO_UNICODE_TRANSLATION;
        if (!output.Put(unit))
            return ERROR_INSUFFICIENT_BUFFER;
    }
    return ERROR_SUCCESS;
}

DWORD CodePageTable::Encode(WideText text, Substitution& substitution, ByteOutput& output) const {
    std::size_t position = 0;
    while (position < text.size()) {
        if (text[position] < 0x80 && (m_page.form & kEbcdic) == 0) {
            position += output.PutAscii(text.subspan(position));
            if (position == text.size())
                break;
        }
        const Code& code = Find(text[position++]);
        WORD value = code.value;
        if (!code.isExact && !(code.isBestFit && substitution.bestFit)) {
            value = substitution.defaultChar;
            substitution.used = true;
        }
        const char pair[] = {static_cast<char>(value >> 8), static_cast<char>(value)};
        if (!(value > 0xff ? output.Put(pair, 2) : output.Put(pair[1])))
            return ERROR_INSUFFICIENT_BUFFER;
    }
    return ERROR_SUCCESS;
}

} // namespace quorvel

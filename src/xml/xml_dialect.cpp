// The two editions differ in the characters of names, and expat compares names only for equality.
// So each character that begins a name in the fifth edition becomes one that begins a name in both:
// an ideograph or Hangul syllable that the text does not use, always the same one. Those in the
// text stay unchanged. Outside names the replacement has no effect.
//
// Not replaced are character references in a name within an entity's text, and in a namespace name
// that is written differently elsewhere.
#include "xml/xml_dialect.h"

#include <quorvel/framework/exceptions.h>
#include <quorvel/xml/xml_file.h>

#include "platform/digits.h"
#include "platform/surrogates.h"

#include <algorithm>
#include <bitset>
#include <new>
#include <unordered_map>

namespace quorvel {

namespace {

struct Range {
    char32_t first;
    char32_t last;
    bool Has(char32_t character) const { return character >= first && character <= last; }
};

template <class Ranges>
bool IsIn(const Ranges& ranges, char32_t character) {
    return std::ranges::any_of(ranges, [&](const Range& range) { return range.Has(character); });
}

constexpr char32_t kFirstBeyondAscii = 0x80;
// Characters beyond ASCII that begin a name in the fifth edition.
constexpr Range kBeginsName[] = {
    {0xc0, 0xd6},     {0xd8, 0xf6},     {0xf8, 0x2ff},    {0x370, 0x37d},
    {0x37f, 0x1fff},  {0x200c, 0x200d}, {0x2070, 0x218f}, {0x2c00, 0x2fef},
    {0x3001, 0xd7ff}, {0xf900, 0xfdcf}, {0xfdf0, 0xfffd}, {0x10000, 0xeffff},
};
// Characters that begin a name in both editions and replace the others.
constexpr Range kSubstitutes[] = {{0x4e00, 0x9fa5}, {0xac00, 0xd7a3}};
// Characters that continue a name in the fifth edition only. Digits of other scripts replace them:
// those begin a name in the fifth edition, but only continue one in the fourth.
constexpr Range kContinuesName[] = {{0x346, 0x35f}, {0x362, 0x36f}, {0x203f, 0x2040}};
constexpr WCHAR kDigitZeros[] = {0x660, 0x6f0, 0x966, 0x9e6, 0xa66};
// expat accepts these as letters, but in neither edition are they letters.
constexpr WCHAR kNoLetters[] = {0xaa, 0xb5, 0xba};
constexpr WCHAR kNoLetter = 0xa1;

constexpr WCHAR kNextLine = 0x85;
constexpr WCHAR kLineSeparator = 0x2028;

class Substitutes {
public:
    explicit Substitutes(std::basic_string_view<WCHAR> text) {
        for (const WCHAR unit : text)
            m_isTaken.set(unit);
    }

    WCHAR For(char32_t character) {
        const auto [place, isNew] = m_substitutes.try_emplace(character);
        if (isNew)
            place->second = TakeNext();
        return place->second;
    }

private:
    WCHAR TakeNext() {
        for (; m_range < std::size(kSubstitutes); ++m_range, m_offset = 0)
            for (const Range& range = kSubstitutes[m_range]; range.Has(range.first + m_offset);) {
                const auto unit = static_cast<WCHAR>(range.first + m_offset++);
                if (!m_isTaken[unit])
                    return unit;
            }
        AfxThrowXMLFileException(CXMLFileException::internalError);
    }

    std::bitset<0x10000> m_isTaken; // occurs in the text and keeps its meaning
    std::unordered_map<char32_t, WCHAR> m_substitutes;
    std::size_t m_range = 0;
    char32_t m_offset = 0;
};

WCHAR DigitFor(char32_t character) {
    std::size_t index = 0;
    for (const Range& range : kContinuesName) {
        if (range.Has(character)) {
            index += character - range.first;
            break;
        }
        index += range.last - range.first + 1;
    }
    return static_cast<WCHAR>(kDigitZeros[index / 10] + index % 10);
}

// The digits of a reference to a control character at `at`; empty if there is no such reference.
// Outside markup the same characters are text, where a change of digits does no harm.
std::basic_string_view<WCHAR> DigitsOfControl(std::basic_string_view<WCHAR> text, std::size_t at) {
    constexpr unsigned kFirstNoControl = 0x20;
    text.remove_prefix(at);
    if (!text.starts_with(_T("&#")))
        return {};
    const unsigned radix = text.starts_with(_T("&#x")) ? 16 : 10;
    const std::size_t first = radix == 16 ? 3 : 2;
    unsigned value = 0;
    std::size_t end = first;
    for (; end < text.size() && DigitValue(text[end]) < static_cast<int>(radix); ++end) {
        value = value * radix + static_cast<unsigned>(DigitValue(text[end]));
        if (value >= kFirstNoControl)
            return {};
    }
    return end < text.size() && text[end] == ';' && value > 0 ? text.substr(first, end - first)
                                                              : text.substr(0, 0);
}

bool MustBeReference(WCHAR unit) {
    return (unit >= 0x7f && unit <= 0x9f && unit != kNextLine) ||
           (unit < 0x20 && unit != '\t' && unit != '\r' && unit != '\n');
}

} // namespace

CString FromFifthEdition(std::basic_string_view<WCHAR> text) try {
    CString result(text.data(), static_cast<int>(text.size()));
    Substitutes substitutes(text);
    WCHAR* const units = result.GetBuffer();
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = units[i];
        if (character < kFirstBeyondAscii || IsIn(kSubstitutes, character))
            continue;
        const bool isPair =
            IsHighSurrogate(units[i]) && i + 1 < text.size() && IsLowSurrogate(units[i + 1]);
        if (isPair)
            character = 0x10000 + ((character - 0xd800) << 10) + (units[i + 1] - 0xdc00u);
        if (IsIn(kBeginsName, character)) {
            units[i] = substitutes.For(character);
            if (isPair) // the second unit: any character that a name may contain
                units[i + 1] = kDigitZeros[0];
        } else if (IsIn(kContinuesName, character)) {
            units[i] = DigitFor(character);
        } else if (std::ranges::find(kNoLetters, units[i]) != std::end(kNoLetters)) {
            units[i] = kNoLetter;
        }
        i += isPair;
    }
    return result;
} catch (const std::bad_alloc&) {
    AfxThrowMemoryException();
}

void FromVersion11(CString& text, int declarationLength) {
    WCHAR* const units = text.GetBuffer();
    const std::basic_string_view<WCHAR> whole(units, static_cast<std::size_t>(text.GetLength()));
    for (std::size_t i = static_cast<std::size_t>(declarationLength); i < whole.size(); ++i) {
        if (units[i] == kNextLine || units[i] == kLineSeparator)
            units[i] = '\n';
        else if (MustBeReference(units[i]))
            units[i] = kNoCharacter;
        else if (const auto digits = DigitsOfControl(whole, i); !digits.empty()) {
            // Makes it a tab: 9, with leading zeros.
            WCHAR* const first = units + (digits.data() - whole.data());
            std::fill_n(first, digits.size() - 1, WCHAR('0'));
            first[digits.size() - 1] = '9';
        }
    }
}

} // namespace quorvel

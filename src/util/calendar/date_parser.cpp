// A form is a text of these codes. A letter is a field, a blank matches any white space or nothing,
// and any other character matches itself:
//     d y H M S  numbers; m the month as a number; n the next number of the caller's order
//     b  a word that names a month; a three characters that name one
//     w  a word; l a word of letters
//     z  the zone, which may be missing
#include <quorvel/util/calendar/date_parser.h>

#include "platform/case_fold.h"
#include "platform/digits.h"

#include <algorithm>
#include <iterator>
#include <string_view>

using namespace quorvel;

namespace {

typedef std::basic_string_view<WCHAR> Text;

// The first form that matches is used.
// clang-format off
constexpr const char* kForms[] = {
    "b d, y H:M:S z",
    "w b d, y H:M:S z",
    "w d b y H:M:S z",
    "n/n/n H:M:S z",
    "d b y H:M:S z",
    "w d b y H:M z",
    "n/n/n H:M z",
    "d b y H:M z",
    "y-m-dTH:M:Sz",
    "y-m-dTH:Mz",
    "n/n/n",
    "d b y",
    "b d, y",
    "y-m-d",
    "d-a-y",
    "w d-a-y H:M:S z",
    "l,d b y H:M:S z",
    "l,d b y H:M z",
    "w b d H:M:S y",
};
// clang-format on
constexpr const char* kOrders[] = {"mdy", "dmy", "ymd"};

constexpr Text kMonths[] = {_T("january"),   _T("february"), _T("march"),    _T("april"),
                            _T("may"),       _T("june"),     _T("july"),     _T("august"),
                            _T("september"), _T("october"),  _T("november"), _T("december")};
constexpr std::size_t kShortestMonth = 3;

constexpr struct {
    Text word;
    int bias;
} kZones[] = {
    {_T("gmt"), 0},     {_T("utc"), 0},   {_T("ut"), 0},      {_T("est"), 300},  {_T("edt"), 240},
    {_T("cst"), 360},   {_T("cdt"), 300}, {_T("mst"), 420},   {_T("mdt"), 360},  {_T("pst"), 480},
    {_T("pdt"), 420},   {_T("wet"), 0},   {_T("west"), -60},  {_T("bst"), -60},  {_T("cet"), -60},
    {_T("cest"), -120}, {_T("met"), -60}, {_T("mest"), -120}, {_T("eet"), -120}, {_T("eest"), -180},
    {_T("msk"), -180},
};

bool IsBlank(WCHAR character) {
    return character == ' ' || (character >= '\t' && character <= '\r');
}
bool IsLetter(WCHAR character) {
    return FoldCase(character) >= 'a' && FoldCase(character) <= 'z';
}
bool IsSign(WCHAR character) {
    return character == '+' || character == '-';
}

int MonthOf(Text word) {
    if (word.size() < kShortestMonth)
        return 0;
    for (std::size_t i = 0; i < std::size(kMonths); ++i) {
        if (BeginsWithIgnoringCase(kMonths[i], word))
            return static_cast<int>(i) + 1;
    }
    return 0;
}

// +hhmm, +hh:mm or +hh.
bool ReadOffset(Text text, int& bias) {
    int digits[4] = {};
    std::size_t count = 0;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (i == 3 && text[i] == ':' && text.size() == 6)
            continue;
        if (!IsDigit(text[i]) || count == std::size(digits))
            return false;
        digits[count++] = text[i] - '0';
    }
    const int minutes = digits[2] * 10 + digits[3];
    if ((count != 2 && count != 4) || minutes > 59)
        return false;
    const int offset = (digits[0] * 10 + digits[1]) * 60 + minutes;
    bias = text[0] == '-' ? offset : -offset;
    return true;
}

bool ReadZone(Text text, int& bias) {
    if (text.empty())
        return false;
    if (IsSign(text[0]))
        return ReadOffset(text, bias);
    if (text.size() == 1 && IsLetter(text[0]) && FoldCase(text[0]) != 'j') { // there is no zone J
        bias = 0;
        return true;
    }
    for (const auto& zone : kZones) {
        if (EqualIgnoringCase(text, zone.word)) {
            bias = zone.bias;
            return true;
        }
    }
    return false;
}

// The values that a form has read.
struct Fields {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int bias = 0;
    bool isZoneKnown = true;
};

class Scanner {
public:
    Scanner(Text text, const char* order) : m_rest(text), m_order(order) {}

    // Whether the text begins with the form.
    bool Matches(const char* form, Fields& fields) {
        for (; *form != 0; ++form) {
            if (!ReadField(*form == 'n' ? *m_order++ : *form, fields))
                return false;
        }
        return true;
    }

private:
    bool ReadField(char field, Fields& fields) {
        switch (field) {
        case ' ':
            SkipBlanks();
            return true;
        case 'd':
            return ReadNumber(fields.day);
        case 'm':
            return ReadNumber(fields.month);
        case 'y':
            return ReadYear(fields.year);
        case 'H':
            return ReadNumber(fields.hour);
        case 'M':
            return ReadNumber(fields.minute);
        case 'S':
            return ReadSecond(fields.second);
        case 'b':
            fields.month = MonthOf(Word());
            return fields.month != 0;
        case 'a':
            fields.month = MonthOf(Take(kShortestMonth));
            return fields.month != 0;
        case 'w':
            return !Word().empty();
        case 'l':
            return !TakeWhile(IsLetter).empty();
        case 'z':
            fields.isZoneKnown = ReadOptionalZone(fields.bias);
            return true;
        default: {
            const Text character = Take(1);
            return !character.empty() && character[0] == static_cast<WCHAR>(field);
        }
        }
    }

    template <class Condition>
    Text TakeWhile(Condition condition) {
        std::size_t count = 0;
        while (count < m_rest.size() && condition(m_rest[count]))
            ++count;
        return Take(count);
    }
    Text Take(std::size_t count) {
        const Text taken = m_rest.substr(0, count);
        m_rest.remove_prefix(taken.size());
        return taken;
    }
    void SkipBlanks() { TakeWhile(IsBlank); }
    Text Word() {
        SkipBlanks();
        return TakeWhile([](WCHAR character) { return !IsBlank(character); });
    }

    // Returns the number of digits; 0 when there is no number. A number too long for any field is
    // limited to a value that is also out of range.
    int ReadDigits(int& number) {
        constexpr int kMost = 100000;
        SkipBlanks();
        const bool isNegative = !m_rest.empty() && m_rest[0] == '-';
        if (!m_rest.empty() && IsSign(m_rest[0]))
            Take(1);
        const Text digits = TakeWhile(IsDigit<WCHAR>);
        int value = 0;
        for (const WCHAR digit : digits)
            value = value < kMost ? value * 10 + (digit - '0') : kMost;
        number = isNegative ? -value : value;
        return static_cast<int>(digits.size());
    }
    bool ReadNumber(int& number) { return ReadDigits(number) != 0; }

    bool ReadYear(int& year) {
        const int digits = ReadDigits(year);
        if (digits <= 3 && year >= 0)
            year += digits < 3 && year < 50 ? 2000 : 1900;
        return digits != 0;
    }

    bool ReadSecond(int& second) {
        const bool isNumber = ReadNumber(second);
        if (m_rest.size() > 1 && (m_rest[0] == '.' || m_rest[0] == ',') && IsDigit(m_rest[1])) {
            Take(1);
            TakeWhile(IsDigit<WCHAR>);
        }
        return isNumber;
    }

    // False for an unknown zone. By RFC 5322, 4.3, unknown words mean UTC. Words of less than three
    // letters are not zones, because most of them are AM and PM.
    bool ReadOptionalZone(int& bias) {
        SkipBlanks();
        if (m_rest.empty() || !(IsLetter(m_rest[0]) || IsSign(m_rest[0])))
            return true;
        const Text zone = TakeWhile([](WCHAR character) {
            return IsLetter(character) || IsSign(character) || IsDigit(character) ||
                   character == ':';
        });
        if (ReadZone(zone, bias))
            return true;
        return zone.size() >= 3 && zone.size() <= 5 &&
               std::all_of(zone.begin(), zone.end(), IsLetter);
    }

    Text m_rest;
    const char* m_order;
};

bool ToDate(const Fields& fields, COleDateTime& date) {
    const int leapSecond = fields.second == 60 ? 1 : 0;
    const COleDateTime local(fields.year, fields.month, fields.day, fields.hour, fields.minute,
                             fields.second - leapSecond);
    const COleDateTime utc = local + COleDateTimeSpan(0, 0, fields.bias, leapSecond);
    SYSTEMTIME parts;
    if (!fields.isZoneKnown || !utc.GetAsSystemTime(parts))
        return false;
    date = COleDateTime(parts); // without the rounding error of the addition
    return true;
}

} // namespace

BOOL AfxStringToDate(const WCHAR* text, COleDateTime& date, int order) {
    if (text == nullptr || order < 0 || order >= static_cast<int>(std::size(kOrders)))
        return FALSE;
    for (const char* form : kForms) {
        Fields fields;
        if (Scanner(text, kOrders[order]).Matches(form, fields))
            return ToDate(fields, date);
    }
    return FALSE;
}

int AfxStringToMonth(const WCHAR* text) {
    return text == nullptr ? 0 : MonthOf(text);
}

BOOL AfxStringToUTCTimeZoneBias(const WCHAR* text, int& bias) {
    return text != nullptr && ReadZone(text, bias);
}

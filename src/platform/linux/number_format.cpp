#include "platform/linux/locale.h"
#include "platform/win32.h"

#include <algorithm>
#include <string_view>

namespace quorvel {

namespace {

// A number written out: no leading zeros, and both parts as long as they are.
struct Decimal {
    bool isNegative = false;
    std::u16string whole;
    std::u16string fraction;
};

struct NumberFormat {
    UINT digits;
    bool leadingZero;
    UINT grouping;
    std::u16string decimalSeparator;
    std::u16string thousandsSeparator;
    UINT negativeOrder;
};

constexpr struct {
    const WCHAR* before;
    const WCHAR* after;
} kNegativeOrders[] = {{u"(", u")"}, {u"-", u""}, {u"- ", u""}, {u"", u"-"}, {u"", u" -"}};

std::size_t DigitsFrom(std::u16string_view text, std::size_t position) {
    std::size_t end = position;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9')
        ++end;
    return end - position;
}

// A minus sign, digits, a point, digits, and nothing else; each of them may be missing.
bool Parse(std::u16string_view text, Decimal& number) {
    std::size_t position = 0;
    if (position < text.size() && text[position] == '-') {
        number.isNegative = true;
        ++position;
    }
    std::size_t count = DigitsFrom(text, position);
    number.whole = text.substr(position, count);
    number.whole.erase(0, number.whole.find_first_not_of(u'0'));
    position += count;
    if (position < text.size() && text[position] == '.') {
        ++position;
        count = DigitsFrom(text, position);
        number.fraction = text.substr(position, count);
        position += count;
    }
    return position == text.size();
}

// Adds one to the last digit.
void Increment(Decimal& number) {
    std::u16string digits = u'0' + number.whole + number.fraction;
    std::size_t last = digits.size() - 1;
    for (; digits[last] == '9'; --last)
        digits[last] = '0';
    ++digits[last];
    const std::size_t wholeLength = digits.size() - number.fraction.size();
    number.fraction = digits.substr(wholeLength);
    number.whole = digits.substr(0, wholeLength);
    number.whole.erase(0, number.whole.find_first_not_of(u'0'));
}

void Round(Decimal& number, UINT digits) {
    const bool roundsUp = number.fraction.size() > digits && number.fraction[digits] >= '5';
    number.fraction.resize(digits, '0');
    if (roundsUp)
        Increment(number);
}

// `grouping` has a decimal digit for each group from the point on; the last repeats, and 0 ends.
std::u16string Group(const std::u16string& whole, UINT grouping, const std::u16string& separator) {
    std::u16string sizes;
    for (; grouping > 0; grouping /= 10)
        sizes.insert(sizes.begin(), static_cast<WCHAR>(grouping % 10));
    std::u16string result = whole;
    std::size_t position = whole.size();
    for (std::size_t group = 0; !sizes.empty(); ++group) {
        const std::size_t size = sizes[std::min(group, sizes.size() - 1)];
        if (size == 0 || position <= size)
            break;
        position -= size;
        result.insert(position, separator);
    }
    return result;
}

std::u16string Write(const Decimal& number, const NumberFormat& format) {
    std::u16string result = Group(number.whole, format.grouping, format.thousandsSeparator);
    if (result.empty() && (format.leadingZero || format.digits == 0))
        result = u"0";
    if (format.digits > 0)
        result += format.decimalSeparator + number.fraction;
    const auto& order = kNegativeOrders[format.negativeOrder];
    return number.isNegative ? order.before + result + order.after : result;
}

// The locale's "3;2;0" is 32 in a format, and its "3", without repetition, would be 30.
UINT GroupingNumber(const std::u16string& text) {
    UINT number = 0;
    bool repeats = false;
    for (const WCHAR unit : text) {
        if (unit >= '1' && unit <= '9')
            number = number * 10 + (unit - '0');
        repeats = repeats || unit == '0';
    }
    return repeats ? number : number * 10;
}

bool FormatOf(LCID locale, NumberFormat& format) {
    format = {2,
              true,
              GroupingNumber(LocaleItem(locale, LOCALE_SGROUPING)),
              LocaleItem(locale, LOCALE_SDECIMAL),
              LocaleItem(locale, LOCALE_STHOUSAND),
              1};
    return !format.decimalSeparator.empty();
}

bool FormatFrom(const NUMBERFMTW& source, NumberFormat& format) {
    constexpr UINT kMostDigits = 9;
    if (source.NumDigits > kMostDigits || source.lpDecimalSep == nullptr ||
        source.lpThousandSep == nullptr || source.NegativeOrder >= std::size(kNegativeOrders))
        return false;
    format = {source.NumDigits,    source.LeadingZero != 0, source.Grouping,
              source.lpDecimalSep, source.lpThousandSep,    source.NegativeOrder};
    return true;
}

} // namespace

} // namespace quorvel

namespace quorvel::win32 {

int GetNumberFormatW(LCID locale, DWORD flags, LPCWSTR value, const NUMBERFMTW* source, LPWSTR text,
                     int length) {
    NumberFormat format;
    Decimal number;
    const bool isValid =
        length >= 0 && (text != nullptr || length == 0) && value != nullptr &&
        (source != nullptr ? FormatFrom(*source, format) : FormatOf(locale, format)) &&
        Parse(value, number);
    if (!isValid || (source != nullptr && flags != 0)) {
        SetLastError(isValid ? ERROR_INVALID_FLAGS : ERROR_INVALID_PARAMETER);
        return 0;
    }
    Round(number, format.digits);
    return ReturnText(Write(number, format), text, length);
}

LPWSTR StrFormatByteSizeW(LONGLONG size, LPWSTR text, UINT length) {
    static constexpr std::string_view kUnits[] = {"bytes", "KB", "MB", "GB", "TB", "PB", "EB"};
    if (text == nullptr || length == 0)
        return text;

    // A thousand of one unit is written as 0.97 of the next.
    std::size_t unit = size < 1024 ? 0 : 1;
    while (unit > 0 && unit + 1 < std::size(kUnits) && size >> (10 * unit) >= 1000)
        ++unit;
    const LONGLONG whole = size >> (10 * unit);
    std::string number = std::to_string(whole);
    std::u16string result(number.begin(), number.end());
    if (unit > 0 && whole < 100) {
        const ULONGLONG mask = (1ull << (10 * unit)) - 1;
        result += LocaleItem(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL);
        ULONGLONG rest = static_cast<ULONGLONG>(size) & mask;
        for (int digit = whole < 10 ? 0 : 1; digit < 2; ++digit) {
            rest *= 10; // below 2^64: the rest is below 2^60
            result += static_cast<WCHAR>('0' + (rest >> (10 * unit)));
            rest &= mask;
        }
    }
    result += ' ';
    result.append(kUnits[unit].begin(), kUnits[unit].end());
    result.resize(std::min<std::size_t>(result.size(), length - 1));
    std::copy_n(result.c_str(), result.size() + 1, text);
    return text;
}

} // namespace quorvel::win32

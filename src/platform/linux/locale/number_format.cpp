#include "platform/linux/locale/locale.h"

#include <quorvel/platform/linux_api.h>

#include <algorithm>
#include <string_view>

namespace quorvel {

namespace {

// `grouping` has one decimal digit for each group from the point on. The last repeats; 0 ends.
std::u16string Group(std::u16string_view whole, UINT grouping, const WCHAR* separator) {
    std::u16string sizes;
    for (; grouping > 0; grouping /= 10)
        sizes.insert(sizes.begin(), static_cast<WCHAR>(grouping % 10));
    std::u16string result(whole);
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

} // namespace

} // namespace quorvel

namespace quorvel::win32 {

int GetNumberFormatW(LCID, DWORD flags, LPCWSTR value, const NUMBERFMTW* format, LPWSTR text,
                     int length) {
    const std::u16string_view digits(value != nullptr ? value : u"");
    const bool isWhole = !digits.empty() && digits[0] != '0' &&
                         digits.find_first_not_of(u"0123456789") == digits.npos;
    if (length < 0 || (text == nullptr && length > 0) || !isWhole || flags != 0 ||
        format == nullptr || format->NumDigits != 0 || format->lpThousandSep == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return ReturnText(Group(digits, format->Grouping, format->lpThousandSep), text, length);
}

LPWSTR StrFormatByteSizeW(LONGLONG size, LPWSTR text, UINT length) {
    static constexpr std::string_view kUnits[] = {"bytes", "KB", "MB", "GB", "TB", "PB", "EB"};
    if (text == nullptr || length == 0)
        return text;

    // 1000 and more of one unit are written in the next unit, as 0.97 for example.
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
            rest *= 10; // below 2^64, because the rest is below 2^60
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

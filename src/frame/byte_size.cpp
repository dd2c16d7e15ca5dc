#include <quorvel/frame/byte_size.h>

#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "platform/win32.h"

namespace {

constexpr int kTextSize = 100; // in characters, with the terminator
constexpr int kLocaleItemSize = 20;
constexpr __int64 kBytesInKilobyte = 1024;

struct LocaleItem {
    WCHAR text[kLocaleItemSize];

    bool Read(LCTYPE item) {
        return GetLocaleInfoW(LOCALE_USER_DEFAULT, item, text, kLocaleItemSize) > 0;
    }
    // The number before the first character that is not a digit: "3;2;0" means groups of 3 here.
    UINT Number() const { return static_cast<UINT>(_wcstoi64(text, nullptr, 10)); }
};

// Writes a whole number in the user's format.
bool FormatCount(__int64 count, CString& text) {
    LocaleItem leadingZero, grouping, decimal, thousands, negativeOrder;
    if (!leadingZero.Read(LOCALE_ILZERO) || !grouping.Read(LOCALE_SGROUPING) ||
        !decimal.Read(LOCALE_SDECIMAL) || !thousands.Read(LOCALE_STHOUSAND) ||
        !negativeOrder.Read(LOCALE_INEGNUMBER))
        return false;
    NUMBERFMTW format = {};
    format.NumDigits = 0;
    format.LeadingZero = leadingZero.Number();
    format.Grouping = grouping.Number();
    format.lpDecimalSep = decimal.text;
    format.lpThousandSep = thousands.text;
    format.NegativeOrder = negativeOrder.Number();
    CString digits;
    digits.Format(_T("%I64d"), count);
    const int length = GetNumberFormatW(LOCALE_USER_DEFAULT, 0, digits, &format,
                                        text.GetBuffer(kTextSize), kTextSize);
    text.ReleaseBuffer(length > 0 ? length - 1 : 0);
    return length > 0;
}

} // namespace

CString AfxFormatFileSize(__int64 size) {
    WCHAR text[kTextSize] = {};
    return StrFormatByteSizeW(size, text, kTextSize) != nullptr ? CString(text) : CString();
}

CString AfxFormatExtendedFileSize(__int64 size) {
    const CString shortText = AfxFormatFileSize(size);
    CString count;
    if (size < kBytesInKilobyte || !FormatCount(size, count))
        return shortText;
    try {
        CString text;
        text.FormatMessage(quorvel::kTextByteSizeExtended, shortText.GetString(),
                           count.GetString());
        return text;
    } catch (CException* exception) { // the text is not in the language library
        exception->Delete();
        return shortText;
    }
}

BOOL AfxIsValidByteBit(int bit) {
    return bit >= 0 && bit < 8;
}

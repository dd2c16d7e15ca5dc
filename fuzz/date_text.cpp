// The date parser: the first byte chooses the order of n/n/n, the others are the text.
#include <quorvel/util/calendar/date_parser.h>

#include "fuzz_input.h"

namespace {

void CheckDate(const WCHAR* text, int order) {
    const COleDateTime marker(1234.5);
    COleDateTime date = marker;
    if (!AfxStringToDate(text, date, order)) {
        Require(date == marker);
        return;
    }
    const CString written = date.Format(_T("%Y-%m-%dT%H:%M:%S"));
    COleDateTime readBack = marker;
    Require(AfxStringToDate(written, readBack, order) && readBack == date);
}

void CheckWord(const WCHAR* word) {
    const int month = AfxStringToMonth(word);
    Require(month >= 0 && month <= 12);
    int bias = 10000;
    Require(AfxStringToUTCTimeZoneBias(word, bias) ? bias > -6000 && bias < 6000 : bias == 10000);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0 || size > 4096)
        return 0;
    CString text;
    for (std::size_t i = 1; i < size; ++i)
        text.AppendChar(static_cast<WCHAR>(data[i]));
    CheckDate(text, data[0] % 3);
    CheckWord(text);
    return 0;
}

// The date parser: the first byte chooses the order of n/n/n; the other bytes are the text.
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
    const WideText text = Widened(FuzzInput(data + 1, size - 1).Rest());
    CheckDate(text.c_str(), data[0] % 3);
    CheckWord(text.c_str());
    return 0;
}

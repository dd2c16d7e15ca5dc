// The date parser: the first byte chooses the order of n/n/n; the other bytes are the text.
#include <quorvel/util/calendar/date_parser.h>

#include "fuzz_input.h"

FUZZ_TARGET(input) {
    const int order = input.Byte() % 3;
    const WideText text = Widened(input.Rest());
    const COleDateTime marker(1234.5);
    COleDateTime date = marker, readBack = marker;
    if (AfxStringToDate(text.c_str(), date, order))
        Require(AfxStringToDate(date.Format(_T("%Y-%m-%dT%H:%M:%S")), readBack, order));
    Require(readBack == date);
    const int month = AfxStringToMonth(text.c_str());
    Require(month >= 0 && month <= 12);
    int bias = 10000;
    Require(AfxStringToUTCTimeZoneBias(text.c_str(), bias) ? bias > -6000 && bias < 6000
                                                           : bias == 10000);
}

// Readable failure messages for the library's dates.
#pragma once

#include <quorvel/framework/date_time.h>

#include "support/test.h"

// The calendar date and time, and the serial number for everything else.
inline void PrintTo(const COleDateTime& date, std::ostream* stream) {
    PrintTo(date.Format(_T("%Y-%m-%d %H:%M:%S")), stream);
    *stream << " (" << date.m_dt << ", status " << date.GetStatus() << ')';
}

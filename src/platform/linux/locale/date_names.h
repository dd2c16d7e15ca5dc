// Names and forms of dates and times in a language: from ICU, the forms as Windows pictures.
#pragma once

#include <string>
#include <vector>

namespace quorvel {

// For the Gregorian calendar. Months begin with January, days of the week with Sunday.
struct DateNames {
    std::u16string shortDate; // pictures
    std::u16string longDate;
    std::u16string time;
    std::u16string timeWithoutSeconds;
    std::u16string timeSeparator;
    std::vector<std::u16string> months;        // alone, for example in a calendar's heading
    std::vector<std::u16string> monthsWithDay; // in the genitive, if the language has it
    std::vector<std::u16string> shortMonths;
    std::vector<std::u16string> shortMonthsWithDay;
    std::vector<std::u16string> days;
    std::vector<std::u16string> shortDays;
    std::vector<std::u16string> halfDays; // AM and PM
    std::vector<std::u16string> eras;     // before and after Christ
};

// By ICU's name of the locale. Read once for each and kept, because ICU is slow. Any thread.
const DateNames& DateNamesOf(const std::string& locale);

} // namespace quorvel

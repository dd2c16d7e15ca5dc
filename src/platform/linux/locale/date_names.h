// How a language writes dates and times: ICU's names and forms, the forms as pictures of Windows.
#pragma once

#include <string>
#include <vector>

namespace quorvel {

// The Gregorian calendar's. Months and days of the week begin with January and Sunday.
struct DateNames {
    std::u16string shortDate; // pictures
    std::u16string longDate;
    std::u16string time;
    std::u16string timeWithoutSeconds;
    std::u16string timeSeparator;
    std::vector<std::u16string> months;        // alone, as in a calendar's heading
    std::vector<std::u16string> monthsWithDay; // in the genitive, where a language has it
    std::vector<std::u16string> shortMonths;
    std::vector<std::u16string> shortMonthsWithDay;
    std::vector<std::u16string> days;
    std::vector<std::u16string> shortDays;
    std::vector<std::u16string> halfDays; // AM, PM
    std::vector<std::u16string> eras;     // before Christ, after
};

// By ICU's name of the locale. Read once for each and kept, since ICU takes long. Any thread.
const DateNames& DateNamesOf(const std::string& locale);

} // namespace quorvel

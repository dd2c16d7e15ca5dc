#include "platform/linux/locale/date_names.h"

#include "platform/linux/text/icu.h"

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <string_view>

namespace quorvel {
namespace {

// Calls an ICU function that fills a buffer. Empty on failure.
template <class Fill>
std::u16string Filled(Fill fill) {
    char16_t text[128];
    UErrorCode error = U_ZERO_ERROR;
    const int length = fill(text, static_cast<int>(std::size(text)), &error);
    return U_SUCCESS(error) ? std::u16string(text, static_cast<std::size_t>(length))
                            : std::u16string();
}

bool IsPatternLetter(char16_t character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// The picture letters for `count` times a letter of an ICU pattern. Empty for other letters.
std::u16string PictureOf(char16_t letter, std::size_t count) {
    switch (letter) {
    case 'y':
        return count == 2 ? u"yy" : u"yyyy";
    case 'L':
        return std::u16string(count, 'M');
    case 'E':
    case 'c':
        return count == 4 ? u"dddd" : u"ddd";
    case 'a':
    case 'b':
    case 'B':
        return u"tt";
    case 'G':
        return u"gg";
    case 'K':
        return std::u16string(count, 'h');
    case 'k':
        return std::u16string(count, 'H');
    case 'M':
    case 'd':
    case 'h':
    case 'H':
    case 'm':
    case 's':
        return std::u16string(count, letter);
    default:
        return {};
    }
}

// Quotes mean the same in both. Windows uses a plain blank for ICU's special blanks.
std::u16string ToPicture(const std::u16string& pattern) {
    std::u16string picture;
    bool isQuoted = false;
    for (std::size_t i = 0; i < pattern.size();) {
        const char16_t character = pattern[i];
        const std::size_t end = std::min(pattern.find_first_not_of(character, i), pattern.size());
        if (IsPatternLetter(character) && !isQuoted) {
            picture += PictureOf(character, end - i);
            i = end;
            continue;
        }
        isQuoted ^= character == '\'';
        picture += character == u'\u202f' || character == u'\u00a0' ? u' ' : character;
        ++i;
    }
    return picture;
}

// The text between the hours and the minutes.
std::u16string SeparatorIn(const std::u16string& time) {
    const std::size_t hours = time.find_first_of(u"hH");
    const std::size_t start = std::min(time.find_first_not_of(u"hH", hours), time.size());
    const std::size_t end = std::min(time.find(u'm', start), time.size());
    const std::u16string separator = time.substr(start, end - start);
    return separator.empty() || separator.find(u'\'') != separator.npos ? u":" : separator;
}

struct CloseFormat {
    void operator()(UDateFormat* format) const { udat_close(format); }
};
struct CloseGenerator {
    void operator()(UDateTimePatternGenerator* generator) const { udatpg_close(generator); }
};

DateNames ReadDateNames(const std::string& locale) {
    const std::string name = locale + "@calendar=gregorian";
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UDateFormat, CloseFormat> format(
        udat_open(UDAT_NONE, UDAT_FULL, name.c_str(), nullptr, 0, nullptr, 0, &error));
    const std::unique_ptr<UDateTimePatternGenerator, CloseGenerator> generator(
        udatpg_open(name.c_str(), &error));
    if (U_FAILURE(error))
        return {};
    // The first symbol of days is day 1; ICU has an empty day 0.
    const auto symbols = [&](UDateFormatSymbolType type, int first = 0) {
        std::vector<std::u16string> names;
        for (int i = first; i < udat_countSymbols(format.get(), type); ++i)
            names.push_back(Filled([&](char16_t* text, int size, UErrorCode* status) {
                return udat_getSymbols(format.get(), type, i, text, size, status);
            }));
        return names;
    };
    const auto picture = [&](std::u16string_view parts) {
        return ToPicture(Filled([&](char16_t* text, int size, UErrorCode* status) {
            return udatpg_getBestPattern(generator.get(), parts.data(),
                                         static_cast<int>(parts.size()), text, size, status);
        }));
    };
    DateNames names;
    names.shortDate = picture(u"yMd");
    names.longDate = ToPicture(Filled([&](char16_t* text, int size, UErrorCode* status) {
        return udat_toPattern(format.get(), false, text, size, status);
    }));
    names.time = picture(u"jms");
    names.timeWithoutSeconds = picture(u"jm");
    names.timeSeparator = SeparatorIn(names.time);
    names.months = symbols(UDAT_STANDALONE_MONTHS);
    names.monthsWithDay = symbols(UDAT_MONTHS);
    names.shortMonths = symbols(UDAT_STANDALONE_SHORT_MONTHS);
    names.shortMonthsWithDay = symbols(UDAT_SHORT_MONTHS);
    names.days = symbols(UDAT_STANDALONE_WEEKDAYS, 1);
    names.shortDays = symbols(UDAT_STANDALONE_SHORT_WEEKDAYS, 1);
    names.halfDays = symbols(UDAT_AM_PMS);
    names.eras = symbols(UDAT_ERAS);
    return names;
}

} // namespace

const DateNames& DateNamesOf(const std::string& locale) {
    static std::mutex s_mutex;
    static std::map<std::string, DateNames> s_names; // its elements do not move
    const std::lock_guard lock(s_mutex);
    auto found = s_names.find(locale);
    if (found == s_names.end())
        found = s_names.emplace(locale, ReadDateNames(locale)).first;
    return found->second;
}

} // namespace quorvel

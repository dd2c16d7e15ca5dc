#include "platform/linux/locale/locale.h"

#include <quorvel/platform/linux_api.h>

#include "platform/linux/locale/date_names.h"
#include "platform/linux/text/icu.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <string_view>

namespace quorvel {

namespace {

struct LanguageRow {
    WORD id;
    const char* abbreviation;
    const char* locale;
    const WCHAR* nativeName; // null: the name from ICU
};

#include "platform/linux/locale/locale_data.inc"

// The facts about a locale that the items need.
struct Locale {
    LCID id;
    const char* abbreviation;
    const char* name; // ICU's name; its owner must outlive this
    const WCHAR* nativeName;
};

Locale ToLocale(const LanguageRow& row) {
    return {row.id, row.abbreviation, row.locale, row.nativeName};
}

const LanguageRow* FindLanguage(LCID id) {
    const auto row =
        std::lower_bound(std::begin(kLanguages), std::end(kLanguages), id,
                         [](const LanguageRow& language, LCID key) { return language.id < key; });
    return row != std::end(kLanguages) && row->id == id ? row : nullptr;
}

std::string EnvironmentLocale() {
    for (const char* variable : {"LC_ALL", "LC_NUMERIC", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != 0)
            return value;
    }
    return "C";
}

// "sr_RS.UTF-8@latin" gives "sr_Latn_RS". Drops the character set and other modifiers.
std::string ToIcuName(const std::string& posixName) {
    static constexpr struct {
        std::string_view modifier;
        const char* script;
    } kScripts[] = {
        {"@latin", "_Latn"},
        {"@cyrillic", "_Cyrl"},
        {"@devanagari", "_Deva"},
    };
    std::string name = posixName.substr(0, posixName.find_first_of(".@"));
    if (name == "C" || name == "POSIX")
        return "en_US";
    const std::size_t languageEnd = std::min(name.find('_'), name.size());
    for (const auto& row : kScripts) {
        if (posixName.ends_with(row.modifier))
            name.insert(languageEnd, row.script);
    }
    return name.substr(0, languageEnd) == "no" ? "nb" + name.substr(languageEnd) : name;
}

// Completes the language, script and region: "de" and "de_DE" give "de_Latn_DE".
std::string Maximize(const std::string& name) {
    char full[ULOC_FULLNAME_CAPACITY];
    UErrorCode error = U_ZERO_ERROR;
    const int length = uloc_addLikelySubtags(name.c_str(), full, sizeof full, &error);
    return U_SUCCESS(error) && length < static_cast<int>(sizeof full) ? full : "";
}

// Finds a locale by ICU's full name.
Locale FindByFullName(const std::string& name) {
    constexpr LANGID kTraditionalSpanish = 0x040a; // 0x0c0a is modern Spanish
    constexpr LANGID kAmericanEnglish = 0x0409;
    for (const LanguageRow& row : kLanguages) {
        if (SUBLANGID(row.id) != SUBLANG_NEUTRAL && row.id != kTraditionalSpanish &&
            Maximize(row.locale) == name)
            return ToLocale(row);
    }
    if (*uloc_getISO3Language(name.c_str()) == 0)
        return ToLocale(*FindLanguage(kAmericanEnglish));
    return {LOCALE_CUSTOM_DEFAULT, "ZZZ", name.c_str(), nullptr};
}

const Locale& UserLocale() {
    static const std::string s_name = Maximize(ToIcuName(EnvironmentLocale()));
    static const Locale s_locale = FindByFullName(s_name);
    return s_locale;
}

bool FindLocale(LCID id, Locale& locale) {
    constexpr LCID kNeutral = 0;
    if (id == kNeutral || id == LOCALE_USER_DEFAULT || id == LOCALE_SYSTEM_DEFAULT ||
        id == LOCALE_CUSTOM_DEFAULT) {
        locale = UserLocale();
        return true;
    }
    const LanguageRow* row = FindLanguage(id);
    if (row != nullptr)
        locale = ToLocale(*row);
    return row != nullptr;
}

std::u16string Widen(const char* ascii) {
    return std::u16string(ascii, ascii + std::char_traits<char>::length(ascii));
}

// "de_DE" gives "de", "zh_Hans_CN" gives "zh_Hans".
std::string LanguageAndScript(const Locale& locale) {
    char language[ULOC_LANG_CAPACITY];
    char script[ULOC_SCRIPT_CAPACITY];
    UErrorCode error = U_ZERO_ERROR;
    uloc_getLanguage(locale.name, language, sizeof language, &error);
    uloc_getScript(locale.name, script, sizeof script, &error);
    return *script == 0 ? language : std::string(language) + "_" + script;
}

std::u16string DisplayName(const std::string& name, const char* inLanguage) {
    UChar text[ULOC_FULLNAME_CAPACITY];
    UErrorCode error = U_ZERO_ERROR;
    const int length = uloc_getDisplayName(name.c_str(), inLanguage, text,
                                           static_cast<int>(std::size(text)), &error);
    return U_SUCCESS(error) && length <= static_cast<int>(std::size(text))
               ? std::u16string(text, static_cast<std::size_t>(length))
               : std::u16string();
}

// The locale's number format. Windows writes Western digits in every language.
class NumberSymbols {
public:
    explicit NumberSymbols(const Locale& locale) {
        UErrorCode error = U_ZERO_ERROR;
        const std::string name = std::string(locale.name) + "@numbers=latn";
        m_format.reset(unum_open(UNUM_DECIMAL, nullptr, 0, name.c_str(), nullptr, &error));
    }
    std::u16string Symbol(UNumberFormatSymbol symbol) const {
        UChar text[8];
        UErrorCode error = U_ZERO_ERROR;
        const int length =
            unum_getSymbol(m_format.get(), symbol, text, static_cast<int>(std::size(text)), &error);
        return std::u16string(text, U_SUCCESS(error) ? static_cast<std::size_t>(length) : 0);
    }
    bool HasShortUpperGroups() const { // as in India: 12,34,567
        return unum_getAttribute(m_format.get(), UNUM_SECONDARY_GROUPING_SIZE) == 2;
    }

private:
    struct Close {
        void operator()(UNumberFormat* format) const { unum_close(format); }
    };
    std::unique_ptr<UNumberFormat, Close> m_format;
};

std::u16string Abbreviation(const Locale& locale) {
    return Widen(locale.abbreviation);
}
std::u16string LocalizedName(const Locale& locale) {
    return DisplayName(locale.name, UserLocale().name);
}
std::u16string EnglishName(const Locale& locale) {
    return DisplayName(LanguageAndScript(locale), "en");
}
std::u16string NativeName(const Locale& locale) {
    return locale.nativeName != nullptr ? locale.nativeName
                                        : DisplayName(LanguageAndScript(locale), locale.name);
}
std::u16string DecimalSeparator(const Locale& locale) {
    return NumberSymbols(locale).Symbol(UNUM_DECIMAL_SEPARATOR_SYMBOL);
}
std::u16string ThousandsSeparator(const Locale& locale) {
    return NumberSymbols(locale).Symbol(UNUM_GROUPING_SEPARATOR_SYMBOL);
}
std::u16string Grouping(const Locale& locale) {
    return NumberSymbols(locale).HasShortUpperGroups() ? u"3;2;0" : u"3;0";
}
std::u16string TimeSeparator(const Locale& locale) {
    return DateNamesOf(locale.name).timeSeparator;
}
std::u16string One(const Locale&) {
    return u"1";
}
std::u16string Two(const Locale&) {
    return u"2";
}

constexpr struct {
    LCTYPE item;
    std::u16string (*get)(const Locale&);
} kItems[] = {
    {LOCALE_SABBREVLANGNAME, Abbreviation},
    {LOCALE_SLANGUAGE, LocalizedName},
    {LOCALE_SENGLANGUAGE, EnglishName},
    {LOCALE_SNATIVELANGNAME, NativeName},
    {LOCALE_SDECIMAL, DecimalSeparator},
    {LOCALE_STHOUSAND, ThousandsSeparator},
    {LOCALE_SGROUPING, Grouping},
    {LOCALE_IDIGITS, Two},
    {LOCALE_ILZERO, One},     // a zero is written before the decimal separator
    {LOCALE_INEGNUMBER, One}, // "-1"
    {LOCALE_STIME, TimeSeparator},
};

} // namespace

const char* IcuLocaleName(LCID locale) {
    Locale found;
    return FindLocale(locale, found) ? found.name : nullptr;
}

LCID LocaleIdOf(const std::string& posixName) {
    return FindByFullName(Maximize(ToIcuName(posixName))).id;
}

std::u16string LocaleItem(LCID locale, LCTYPE item) {
    Locale found;
    if (FindLocale(locale, found)) {
        for (const auto& row : kItems) {
            if (row.item == (item & ~LOCALE_NOUSEROVERRIDE))
                return row.get(found);
        }
    }
    return {};
}

int ReturnText(const std::u16string& result, LPWSTR text, int length) {
    const int needed = static_cast<int>(result.size()) + 1;
    if (length == 0)
        return needed;
    if (length < needed) {
        win32::SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::copy_n(result.c_str(), needed, text);
    return needed;
}

} // namespace quorvel

namespace quorvel::win32 {

LCID GetUserDefaultLCID() {
    return UserLocale().id;
}

LANGID GetUserDefaultLangID() {
    return static_cast<LANGID>(UserLocale().id);
}

BOOL IsValidLocale(LCID locale, DWORD) {
    return locale == LOCALE_CUSTOM_DEFAULT || FindLanguage(locale) != nullptr;
}

int GetLocaleInfoW(LCID locale, LCTYPE item, LPWSTR text, int length) {
    Locale found;
    if (length < 0 || (text == nullptr && length > 0) || !FindLocale(locale, found)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::u16string result = LocaleItem(locale, item);
    if (result.empty()) {
        SetLastError(ERROR_INVALID_FLAGS);
        return 0;
    }
    return ReturnText(result, text, length);
}

} // namespace quorvel::win32

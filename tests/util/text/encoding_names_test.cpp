#include <quorvel/util/text/encoding_names.h>

#include "support/golden.h"
#include "util/text/encoding_table.h"

#include <sstream>

// A null preferred name: not an alias. Code page 0: unknown.
static void ExpectEncoding(const CString& name, const WCHAR* preferred, UINT codePage) {
    SCOPED_TRACE(testing::PrintToString(name));
    CString found(_T("#"));
    EXPECT_EQ(AfxGetPreferredCharacterEncodingName(name, found), preferred != nullptr);
    EXPECT_EQ(found, preferred != nullptr ? preferred : _T("#"));
    UINT foundCodePage = 1;
    EXPECT_EQ(AfxCharacterEncodingToCodePage(name, foundCodePage), codePage != 0);
    EXPECT_EQ(foundCodePage, codePage);
}

TEST(EncodingNames, TheTableIsThePublishedOne) {
    Golden golden("encodings");
    for (const auto& [codePage, name, aliases] : quorvel::kEncodings)
        golden.Expect(std::string(name) + ": " + std::string(aliases), std::to_string(codePage));
}

TEST(EncodingNames, EveryNameAndAliasLeadsToItsCodePage) {
    for (const auto& [codePage, name, aliases] : quorvel::kEncodings) {
        const CString preferred(std::string(name).c_str());
        ExpectEncoding(preferred, nullptr, codePage);
        std::istringstream words{std::string(aliases)};
        for (std::string alias; words >> alias;)
            if (alias != "_iso-2022-jp$SIO") // a look-up never finds its capitals
                ExpectEncoding(CString(alias.c_str()), preferred, codePage);
    }
}

TEST(EncodingNames, NamesAreFoundInAnyLetterCase) {
    // The Kelvin sign is not a k.
    const std::tuple<const WCHAR*, const WCHAR*, UINT> rows[] = {
        {_T("ANSI_X3.4-1968"), _T("windows-1252"), 1252},
        {_T("UnicodeFFFE"), _T("utf-16be"), 1201},
        {_T("UTF-8"), nullptr, 65001},
        {_T("_iso-2022-jp$SIO"), nullptr, 0},
        {_T("\x212aoi8"), nullptr, 0},
        {_T("x-a-name-that-is-longer-than-every-one-of-the-table"), nullptr, 0},
        {_T(""), nullptr, 0},
    };
    for (const auto& [name, preferred, codePage] : rows)
        ExpectEncoding(name, preferred, codePage);
    UINT codePage;
    EXPECT_FALSE(AfxCharacterEncodingToCodePage(nullptr, codePage));
}

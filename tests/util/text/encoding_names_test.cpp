#include <quorvel/util/text/encoding_names.h>

#include <quorvel/util/text/md5.h>

#include "support/text.h"
#include "util/text/encoding_table.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

CString Wide(std::string_view text) {
    const std::basic_string<WCHAR> wide(text.begin(), text.end());
    return CString(wide.c_str());
}

} // namespace

TEST(EncodingNames, TheTableIsThePublishedOne) {
    std::string rows; // "code-page name alias ... alias" a line
    for (const auto& [codePage, name, aliases] : quorvel::kEncodings)
        (rows += std::to_string(codePage)).append(" ").append(name).append(" ").append(aliases) +=
            '\n';
    CStringA checksum;
    ASSERT_TRUE(AfxGenerateMD5Checksum(reinterpret_cast<const BYTE*>(rows.data()),
                                       static_cast<unsigned>(rows.size()), checksum, FALSE));
    EXPECT_EQ(checksum, "f00cc1c04904e83fd06a5b00d6364d96");
}

TEST(EncodingNames, EveryNameAndAliasLeadsToItsCodePage) {
    for (const auto& [codePage, name, aliases] : quorvel::kEncodings) {
        UINT found = 1;
        EXPECT_TRUE(AfxCharacterEncodingToCodePage(Wide(name), found)) << name;
        EXPECT_EQ(found, codePage) << name;
        CString preferred(_T("#"));
        EXPECT_FALSE(AfxGetPreferredCharacterEncodingName(Wide(name), preferred)) << name;
        EXPECT_EQ(preferred, _T("#")) << name;
        std::istringstream words{std::string(aliases)};
        for (std::string alias; words >> alias;) {
            if (alias == "_iso-2022-jp$SIO") // its capitals are never looked up
                continue;
            EXPECT_TRUE(AfxGetPreferredCharacterEncodingName(Wide(alias), preferred)) << alias;
            EXPECT_EQ(preferred, Wide(name)) << alias;
            EXPECT_TRUE(AfxCharacterEncodingToCodePage(Wide(alias), found)) << alias;
            EXPECT_EQ(found, codePage) << alias;
        }
    }
}

TEST(EncodingNames, NamesAreFoundInAnyLetterCase) {
    const struct {
        const WCHAR* name;
        const WCHAR* preferred; // null: no alias
        UINT codePage;          // 0: unknown
    } rows[] = {
        {_T("LATIN1"), _T("iso-8859-1"), 28591},
        {_T("ISO_8859-1:1987"), _T("iso-8859-1"), 28591},
        {_T("ANSI_X3.4-1968"), _T("windows-1252"), 1252},
        {_T("ascii"), _T("us-ascii"), 20127},
        {_T("Unicode"), _T("utf-16"), 1200},
        {_T("UnicodeFFFE"), _T("utf-16be"), 1201},
        {_T("UTF-8"), nullptr, 65001},
        {_T("Extended_Unix_Code_Packed_Format_For_Japanese"), _T("euc-jp"), 51932},
        {_T("_iso-2022-jp$SIO"), nullptr, 0},
        {_T("_iso-2022-jp$sio"), nullptr, 0},
        {_T("\x212aoi8"), nullptr, 0}, // the Kelvin sign is no k
        {_T("utf-8 "), nullptr, 0},
        {_T("utf"), nullptr, 0},
        {_T("\xe4scii"), nullptr, 0},
        {_T("x-a-name-that-is-longer-than-every-one-of-the-table"), nullptr, 0},
        {_T(""), nullptr, 0},
        {nullptr, nullptr, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(CString(row.name)));
        CString preferred(_T("#"));
        const bool isAlias = row.preferred != nullptr;
        EXPECT_EQ(AfxGetPreferredCharacterEncodingName(row.name, preferred), isAlias);
        EXPECT_EQ(preferred, isAlias ? row.preferred : _T("#"));
        UINT codePage = 1;
        EXPECT_EQ(AfxCharacterEncodingToCodePage(row.name, codePage), row.codePage != 0);
        EXPECT_EQ(codePage, row.codePage);
    }
}

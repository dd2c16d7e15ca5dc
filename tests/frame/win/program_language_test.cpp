// The languages of a program, by the libraries beside it.
#include <quorvel/frame/module.h>
#include <quorvel/frame/win/program_language.h>
#include <quorvel/framework/extension_module.h>
#include <quorvel/res/message_ids.h>

#include "support/test.h"

namespace {

TEST(ProgramLanguage, IsThatOfBothLibrariesOrNone) {
    const HINSTANCE own = QuorvelGetResourceHandle(), program = AfxGetResourceHandle();
    const WCHAR kTemplate[] = _T("Quorvel_%s.dll");
    const struct {
        const char* label;
        const WCHAR* programTemplate;
        const WCHAR* libraryTemplate;
        LANGID language;
        bool isInstalled;
    } rows[] = {
        {"German", kTemplate, kTemplate, 0x0407, true},
        {"Austria has the same library", kTemplate, kTemplate, 0x0007, true},
        {"no library", kTemplate, kTemplate, 0x040c, false},
        {"German again", kTemplate, kTemplate, 0x0407, true},
        {"one is missing", kTemplate, _T("None_%s.dll"), 0x0407, false},
        {"the other is missing", _T("None_%s.dll"), kTemplate, 0x0407, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(AfxInstallLanguage(row.programTemplate, row.libraryTemplate, row.language),
                  BOOL{row.isInstalled})
            << row.label;
        EXPECT_EQ(QuorvelGetResourceHandle() == own, !row.isInstalled) << row.label;
        EXPECT_EQ(AfxGetResourceHandle() == program, !row.isInstalled) << row.label;
    }
    std::vector<std::pair<LANGID, CString>> languages = {{1, _T("former")}};
    AfxGetProgramLanguages(kTemplate, languages);
    ASSERT_EQ(languages.size(), 2u);
    EXPECT_EQ(languages[0].first, 0x0409);
    EXPECT_EQ(languages[1].second, _T("Deutsch"));
    AfxGetProgramLanguages(_T("None_%s.dll"), languages);
    EXPECT_EQ(languages.size(), 1u);
}

} // namespace

#include <quorvel/frame/module.h>
#include <quorvel/frame/win/program_language.h>
#include <quorvel/framework/extension_module.h>
#include <quorvel/res/message_ids.h>

#include "support/test.h"

TEST(ProgramLanguage, IsThatOfBothLibrariesOrNone) {
    const HINSTANCE own = QuorvelGetResourceHandle(), program = AfxGetResourceHandle();
    const WCHAR kTemplate[] = _T("Quorvel_%s.dll");
    const std::tuple<const char*, const WCHAR*, const WCHAR*, LANGID, BOOL> rows[] = {
        {"German", kTemplate, kTemplate, 0x0407, TRUE},
        {"Austria has the same library", kTemplate, kTemplate, 0x0007, TRUE},
        {"no library", kTemplate, kTemplate, 0x040c, FALSE},
        {"one is missing", kTemplate, _T("None_%s.dll"), 0x0407, FALSE},
        {"the other is missing", _T("None_%s.dll"), kTemplate, 0x0407, FALSE},
    };
    for (const auto& [label, ofProgram, ofLibrary, language, isInstalled] : rows) {
        EXPECT_EQ(AfxInstallLanguage(ofProgram, ofLibrary, language), isInstalled) << label;
        EXPECT_EQ(QuorvelGetResourceHandle() == own, !isInstalled) << label;
        EXPECT_EQ(AfxGetResourceHandle() == program, !isInstalled) << label;
    }
    std::vector<std::pair<LANGID, CString>> languages = {{1, _T("former")}};
    AfxGetProgramLanguages(kTemplate, languages);
    ASSERT_EQ(languages.size(), 2u);
    EXPECT_EQ(languages[0].first, 0x0409);
    EXPECT_EQ(languages[1].second, _T("Deutsch"));
    AfxGetProgramLanguages(_T("None_%s.dll"), languages);
    EXPECT_EQ(languages.size(), 1u);
}

#include "controls/wizard_model.h"

#include <quorvel/res/message_ids.h>

#include "support/test.h"

using quorvel::SheetButtonText;
using quorvel::WizardButtonText;
using quorvel::WizardEvents;

TEST(Wizard, KeepsItsEventsInOrder) {
    WizardEvents events;
    for (const WCHAR* const text : {_T("a"), _T("b"), _T("c")})
        events.Add(CVaskEvent(text));
    CVaskEvent event(_T("?"));
    ExpectCases<BOOL>({
        CASE(events.Get(3, event), FALSE),
        CASE(events.Get(-1, event), FALSE),
        CASE(events.Update(3, event), FALSE),
        CASE(events.Delete(-1), FALSE),
        CASE(event == CVaskEvent(_T("?")), TRUE),
        CASE(event.SetDescription(nullptr), FALSE),
        CASE(event.SetDescription(_T("d")), TRUE),
        CASE(events.Update(2, event), TRUE),
        CASE(events.Delete(0), TRUE),
    });
    events.Append({CVaskEvent(_T("e")), CVaskEvent(_T("f"))});
    CString text;
    for (int i = 0; events.Get(i, event); ++i)
        text += event.GetDescription();
    EXPECT_EQ(text, _T("bdef"));
}

TEST(Wizard, NamesItselfInItsTexts) {
    const CString name(_T("Import Wizard"));
    ExpectCases<CString>({
        CASE(quorvel::WizardWelcomeText(name), _T("Welcome to the Import Wizard")),
        CASE(quorvel::WizardCompletingText(name), _T("Completing the Import Wizard")),
        CASE(quorvel::WizardCompletedText(name),
             _T("You have successful completed the Import Wizard")),
    });
    ExpectCases<UINT>({
        CASE(SheetButtonText(IDOK), 21110),
        CASE(SheetButtonText(0x3024), 0), // a wizard button
        CASE(WizardButtonText(0x3024), 21100),
        CASE(WizardButtonText(IDHELP), 21113),
        CASE(WizardButtonText(IDOK), 0),
    });
}

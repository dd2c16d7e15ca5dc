#include "controls/wizard_model.h"

#include "support/test.h"

TEST(Wizard, KeepsItsEventsInOrder) {
    quorvel::WizardEvents events;
    for (const WCHAR* const text : {_T("a"), _T("b"), _T("c")})
        events.Add(CVaskEvent(text));
    CVaskEvent event(_T("?"));
    EXPECT_FALSE(events.Get(3, event) || events.Get(-1, event) || events.Update(3, event));
    EXPECT_FALSE(events.Delete(-1) || event.SetDescription(nullptr));
    EXPECT_EQ(event, CVaskEvent(_T("?")));
    EXPECT_TRUE(event.SetDescription(_T("d")) && events.Update(2, event) && events.Delete(0));
    events.Append({CVaskEvent(_T("e")), CVaskEvent(_T("f"))});
    CString text;
    for (int i = 0; events.Get(i, event); ++i)
        text += event.GetDescription();
    EXPECT_EQ(text, _T("bdef"));
}

// The contents of the sixteen boxes, recorded by an application object that shows no box.
#include <quorvel/frame/vask_message_box.h>

#include <quorvel/res/message_ids.h>

#include "support/message_box_recorder.h"
#include "support/test.h"

using namespace quorvel;

namespace {

const WCHAR* const kHeading = _T("Heading %1");
const WCHAR* const kText = _T("Text 100%");
const WCHAR* const kFormat = _T("%2, %1!d!%%");
const WCHAR* const kCheck = _T("&Check %1 && 2");
const WCHAR* const kTarget = _T("help.chm::/page.htm");
const WCHAR* const kNone = nullptr;

class VaskMessageBox : public testing::Test {
protected:
    // One box with help id 0, checked if it has a check box. Only on Linux heading and check box
    // are parts of its text.
    void ExpectShown(int result, const WCHAR* heading, const WCHAR* text, const WCHAR* check,
                     UINT type, int line = __builtin_LINE()) {
        const testing::ScopedTrace trace(__FILE__, line, "here");
        CString shown(text);
        if (kOnLinux && heading != nullptr)
            shown = heading + CString(_T("\r\n\r\n")) + text;
        if (kOnLinux && check != nullptr)
            shown += CString(_T("\r\n\r\n[x] ")) + check;
        EXPECT_EQ(m_recorder.Take(), (std::vector<RecordedMessageBox>{{shown, type, 0}}));
        EXPECT_EQ(result, IDRETRY);
        EXPECT_EQ(m_state, 1);
    }

    MessageBoxRecorder m_recorder{IDRETRY};
    int m_state = 1;
};

TEST_F(VaskMessageBox, EachFormComposesItsBox) {
    constexpr UINT headingId = kTextCrashWarning, textId = kTextExceptionMemory;
    constexpr UINT formatId = kTextByteSizeBytes, checkId = kTextDoNotShowAgain;
    const WCHAR* const heading = _T("Crash Warning");
    const WCHAR* const text = _T("Out of memory.");
    const WCHAR* const check = _T("Do not show this message again");
    const WCHAR* const ownCheck = _T("Check %1 & 2");
    int& state = m_state;
    ExpectShown(AfxVaskMessageBox(textId, MB_YESNO, kTarget), kNone, text, kNone,
                MB_YESNO | MB_HELP);
    ExpectShown(AfxVaskMessageBox(kHeading, kText, MB_OK, kNone), kHeading, kText, kNone, MB_OK);
    // With a check box the caller must ask for the Help button.
    ExpectShown(AfxVaskMessageBox(kText, kCheck, state, MB_YESNO, kTarget), kNone, kText, ownCheck,
                MB_YESNO);
    ExpectShown(AfxVaskMessageBox(headingId, textId, checkId, state, MB_OK, kNone), heading, text,
                check, MB_OK);

    const CString seven(_T("seven")); // passes its text
    const WCHAR* const filled = _T("seven, 7%");
    ExpectShown(AfxFormatStringVaskMessageBox(headingId, formatId, 0u, kTarget, 7), heading,
                _T("7 bytes"), kNone, MB_HELP);
    ExpectShown(
        AfxFormatStringVaskMessageBox(kHeading, kFormat, kCheck, state, 0, kTarget, 7, seven),
        kHeading, filled, ownCheck, 0);
}

TEST_F(VaskMessageBox, ShowsNothingWithoutAllItsTexts) {
    m_state = 7;
    ExpectCases<int>({
        CASE(AfxVaskMessageBox(kNone, MB_OK, kNone), 0),
        CASE(AfxVaskMessageBox(kText, kNone, m_state, MB_OK, kNone), 0),
        CASE(AfxVaskMessageBox(UINT{kTextExceptionMemory}, 29999u, m_state, MB_OK, kNone), 0),
        CASE(AfxFormatStringVaskMessageBox(kText, MB_OK, kNone), 0), // not a format
    });
    EXPECT_TRUE(m_recorder.Take().empty());
    EXPECT_EQ(m_state, 7);
}

TEST_F(VaskMessageBox, AnyOtherCheckStateStartsUnchecked) {
    for (const auto& [before, after] : {std::pair(0, 0), {1, 1}, {2, 0}, {-1, 0}}) {
        int checkState = before;
        EXPECT_EQ(AfxVaskMessageBox(kText, kCheck, checkState, MB_OK, nullptr), IDRETRY);
        EXPECT_EQ(checkState, after) << before;
        EXPECT_EQ(m_recorder.Take().at(0).text.Find(_T("[x]")) > 0, kOnLinux && after == 1);
    }
}

TEST_F(VaskMessageBox, TheCrashAsksFirst) { // the answer is not Yes
    AfxPerformDivideByZeroException();
    EXPECT_EQ(m_recorder.Take().at(0).type, UINT{MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2});
    if (kOnLinux) { // under Wine the debugger makes a crash slow
        m_recorder.m_answer = IDYES;
        EXPECT_DEATH(AfxPerformDivideByZeroException(), "");
    }
}

} // namespace

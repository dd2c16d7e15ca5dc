// What the sixteen boxes compose, seen by an application object that shows none.
#include <quorvel/frame/vask_message_box.h>

#include <quorvel/res/message_ids.h>

#include "frame/vask_expectation.h"
#include "support/message_box_recorder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <vector>

using namespace quorvel;

namespace {

const WCHAR* const kHeading = _T("Heading %1");
const WCHAR* const kText = _T("Text 100%");
const WCHAR* const kFormat = _T("%2, %1!d!%%");
const WCHAR* const kCheck = _T("&Check %1 && 2");
const WCHAR* const kTarget = _T("help.chm::/page.htm");
constexpr UINT kNoSuchText = 29999;

const WCHAR* const kCatalogueHeading = _T("Crash Warning");
const WCHAR* const kCatalogueText = _T("Out of memory.");
const WCHAR* const kCatalogueCheck = _T("&Do not show this message again");

class VaskMessageBox : public testing::Test {
protected:
    // One box with help id 0, checked where it has a check box; null: without that part.
    void ExpectShown(int result, const WCHAR* heading, const WCHAR* text, const WCHAR* checkBox,
                     UINT type, int line = __builtin_LINE()) {
        const testing::ScopedTrace trace(__FILE__, line, "here");
        const RecordedMessageBox expected = {ShownText(heading, text, checkBox, 1), type, 0};
        EXPECT_EQ(m_recorder.Take(), std::vector{expected});
        EXPECT_EQ(result, IDRETRY);
        EXPECT_EQ(m_state, 1);
    }
    void ExpectNothing(int result, int line = __builtin_LINE()) {
        const testing::ScopedTrace trace(__FILE__, line, "here");
        EXPECT_TRUE(m_recorder.Take().empty());
        EXPECT_EQ(result, 0);
        EXPECT_EQ(m_state, 7);
    }

    MessageBoxRecorder m_recorder{IDRETRY};
    int m_state = 1;
};

TEST_F(VaskMessageBox, EachFormComposesItsBox) {
    constexpr UINT text = kTextExceptionMemory, heading = kTextCrashWarning,
                   check = kTextDoNotShowAgain;
    const WCHAR* const none = nullptr;
    ExpectShown(AfxVaskMessageBox(kText, MB_OK, none), none, kText, none, MB_OK);
    ExpectShown(AfxVaskMessageBox(text, MB_YESNO, kTarget), none, kCatalogueText, none,
                MB_YESNO | MB_HELP);
    ExpectShown(AfxVaskMessageBox(_T(""), _T(""), MB_OK, none), _T(""), _T(""), none, MB_OK);
    ExpectShown(AfxVaskMessageBox(kHeading, kText, MB_ICONERROR, kTarget), kHeading, kText, none,
                MB_ICONERROR | MB_HELP);
    ExpectShown(AfxVaskMessageBox(heading, text, MB_OK, none), kCatalogueHeading, kCatalogueText,
                none, MB_OK);
    // With a check box the Help button is the caller's.
    ExpectShown(AfxVaskMessageBox(kText, kCheck, m_state, MB_YESNO, kTarget), none, kText, kCheck,
                MB_YESNO);
    ExpectShown(AfxVaskMessageBox(text, check, m_state, MB_HELP, kTarget), none, kCatalogueText,
                kCatalogueCheck, MB_HELP);
    ExpectShown(AfxVaskMessageBox(kHeading, kText, kCheck, m_state, MB_OK, kTarget), kHeading,
                kText, kCheck, MB_OK);
    ExpectShown(AfxVaskMessageBox(heading, text, check, m_state, MB_OK, none), kCatalogueHeading,
                kCatalogueText, kCatalogueCheck, MB_OK);
}

TEST_F(VaskMessageBox, EachFormWithAFormatFillsItsInserts) {
    constexpr UINT format = kTextByteSizeBytes, heading = kTextCrashWarning,
                   check = kTextDoNotShowAgain;
    const WCHAR* const none = nullptr;
    const WCHAR* const seven = _T("seven");
    const WCHAR* const filled = _T("seven, 7%");
    const WCHAR* const bytes = _T("7 bytes");
    ExpectShown(AfxFormatStringVaskMessageBox(kFormat, MB_OK, kTarget, 7, seven), none, filled,
                none, MB_OK | MB_HELP);
    ExpectShown(AfxFormatStringVaskMessageBox(format, MB_OK, none, 7), none, bytes, none, MB_OK);
    ExpectShown(AfxFormatStringVaskMessageBox(kHeading, kFormat, MB_OK, none, 7, seven), kHeading,
                filled, none, MB_OK);
    ExpectShown(AfxFormatStringVaskMessageBox(heading, format, MB_OK, kTarget, 7),
                kCatalogueHeading, bytes, none, MB_OK | MB_HELP);
    ExpectShown(AfxFormatStringVaskMessageBox(kFormat, kCheck, m_state, MB_OK, kTarget, 7, seven),
                none, filled, kCheck, MB_OK);
    ExpectShown(AfxFormatStringVaskMessageBox(format, check, m_state, MB_OK, kTarget, 7), none,
                bytes, kCatalogueCheck, MB_OK);
    ExpectShown(
        AfxFormatStringVaskMessageBox(kHeading, kFormat, kCheck, m_state, MB_OK, kTarget, 7, seven),
        kHeading, filled, kCheck, MB_OK);
    ExpectShown(AfxFormatStringVaskMessageBox(heading, format, check, m_state, MB_OK, kTarget, 7),
                kCatalogueHeading, bytes, kCatalogueCheck, MB_OK);
}

TEST_F(VaskMessageBox, ShowsNothingWithoutAllItsTexts) {
    constexpr UINT text = kTextExceptionMemory, heading = kTextCrashWarning,
                   check = kTextDoNotShowAgain;
    const WCHAR* const null = nullptr;
    m_state = 7;
    ExpectNothing(AfxVaskMessageBox(null, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(null, kText, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(kHeading, null, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(kText, null, m_state, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(null, kCheck, m_state, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(null, kText, kCheck, m_state, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(kNoSuchText, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(kNoSuchText, text, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(text, kNoSuchText, m_state, MB_OK, null));
    ExpectNothing(AfxVaskMessageBox(heading, kNoSuchText, check, m_state, MB_OK, null));
    ExpectNothing(AfxFormatStringVaskMessageBox(null, MB_OK, null));
    ExpectNothing(AfxFormatStringVaskMessageBox(kNoSuchText, MB_OK, null));
    ExpectNothing(AfxFormatStringVaskMessageBox(kText, MB_OK, null)); // not a format
}

TEST_F(VaskMessageBox, AnyOtherCheckStateStartsUnchecked) {
    for (const auto& [before, after] : {std::pair(0, 0), {1, 1}, {2, 0}, {7, 0}, {-1, 0}}) {
        int checkState = before;
        EXPECT_EQ(AfxVaskMessageBox(kText, kCheck, checkState, MB_OK, nullptr), IDRETRY);
        EXPECT_EQ(checkState, after) << before;
        EXPECT_EQ(m_recorder.Take().at(0).text, ShownText(nullptr, kText, kCheck, after));
    }
}

TEST_F(VaskMessageBox, TheCrashAsksFirst) { // the answer is not Yes
    AfxPerformDivideByZeroException();
    const RecordedMessageBox asked = {
        ShownText(kCatalogueHeading,
                  _T("A divide by zero operation is about to be performed. This will cause the ")
                  _T("program to crash. Are you sure you want to continue?"),
                  nullptr, 0),
        MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2, 0};
    EXPECT_EQ(m_recorder.Take(), std::vector{asked});
}

} // namespace

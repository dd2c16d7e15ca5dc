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
constexpr UINT kNoSuchText = 29999;

constexpr UINT kHeadingId = kTextCrashWarning;
constexpr UINT kTextId = kTextExceptionMemory;
constexpr UINT kFormatId = kTextByteSizeBytes;
constexpr UINT kCheckId = kTextDoNotShowAgain;
const WCHAR* const kNone = nullptr;

// The text that the application object gets for a box. On Windows heading and check box are
// controls instead. Null: no heading, no check box.
CString ShownText(const WCHAR* heading, const WCHAR* text, const WCHAR* checkBox, int checkState) {
    if (!kOnLinux)
        return text;
    CString shown;
    if (heading != nullptr)
        shown = CString(heading) + _T("\r\n\r\n");
    shown += text;
    if (checkBox != nullptr) {
        CString label(checkBox); // these texts begin with their mnemonic
        label.Delete(0);
        label.Replace(_T("&&"), _T("&"));
        shown += checkState == 1 ? _T("\r\n\r\n[x] ") : _T("\r\n\r\n[ ] ");
        shown += label;
    }
    return shown;
}

class VaskMessageBox : public testing::Test {
protected:
    // One box with help id 0, checked if it has a check box. Its parts are heading (h), text (t),
    // filled format (f) and check box (c); capital letters mean a catalogue text.
    void ExpectShown(int result, const std::string& parts, UINT type, int line = __builtin_LINE()) {
        const testing::ScopedTrace trace(__FILE__, line, "here");
        const auto either = [&](char own, const WCHAR* ownText, const WCHAR* ofCatalogue) {
            return parts.find(own) != parts.npos                           ? ownText
                   : parts.find(static_cast<char>(own - 32)) != parts.npos ? ofCatalogue
                                                                           : nullptr;
        };
        const WCHAR* text = either('t', kText, _T("Out of memory."));
        if (text == nullptr)
            text = either('f', _T("seven, 7%"), _T("7 bytes"));
        const CString shown =
            ShownText(either('h', kHeading, _T("Crash Warning")), text,
                      either('c', kCheck, _T("&Do not show this message again")), 1);
        const RecordedMessageBox expected = {shown, type, 0};
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
    int& state = m_state;
    ExpectShown(AfxVaskMessageBox(kText, MB_OK, kNone), "t", MB_OK);
    ExpectShown(AfxVaskMessageBox(kTextId, MB_YESNO, kTarget), "T", MB_YESNO | MB_HELP);
    ExpectShown(AfxVaskMessageBox(kHeading, kText, MB_OK, kTarget), "ht", MB_OK | MB_HELP);
    // With a check box the caller must ask for the Help button.
    ExpectShown(AfxVaskMessageBox(kText, kCheck, state, MB_YESNO, kTarget), "tc", MB_YESNO);
    ExpectShown(AfxVaskMessageBox(kTextId, kCheckId, state, MB_HELP, kTarget), "TC", MB_HELP);
    ExpectShown(AfxVaskMessageBox(kHeadingId, kTextId, kCheckId, state, MB_OK, kNone), "HTC",
                MB_OK);
}

TEST_F(VaskMessageBox, EachFormWithAFormatFillsItsInserts) {
    int& state = m_state;
    const CString seven(_T("seven")); // passes its text
    const auto show = [](auto... arguments) { return AfxFormatStringVaskMessageBox(arguments...); };
    ExpectShown(show(kFormat, 0u, kTarget, 7, seven), "f", MB_HELP);
    ExpectShown(show(kHeadingId, kFormatId, 0u, kTarget, 7), "HF", MB_HELP);
    ExpectShown(AfxFormatStringVaskMessageBox(kFormat, kCheck, state, 0, kTarget, 7, seven), "fc",
                0);
    ExpectShown(
        AfxFormatStringVaskMessageBox(kHeading, kFormat, kCheck, state, 0, kTarget, 7, seven),
        "hfc", 0);
    ExpectShown(
        AfxFormatStringVaskMessageBox(kHeadingId, kFormatId, kCheckId, state, 0, kTarget, 7), "HFC",
        0);
}

TEST_F(VaskMessageBox, ShowsNothingWithoutAllItsTexts) {
    m_state = 7;
    ExpectNothing(AfxVaskMessageBox(kNone, MB_OK, kNone));
    ExpectNothing(AfxVaskMessageBox(kHeading, kNone, MB_OK, kNone));
    ExpectNothing(AfxVaskMessageBox(kText, kNone, m_state, MB_OK, kNone));
    ExpectNothing(AfxVaskMessageBox(kNoSuchText, MB_OK, kNone));
    ExpectNothing(AfxVaskMessageBox(kTextId, kNoSuchText, m_state, MB_OK, kNone));
    ExpectNothing(AfxFormatStringVaskMessageBox(kNone, MB_OK, kNone));
    ExpectNothing(AfxFormatStringVaskMessageBox(kText, MB_OK, kNone)); // not a format
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
        ShownText(_T("Crash Warning"),
                  _T("A divide by zero operation is about to be performed. This will cause the ")
                  _T("program to crash. Are you sure you want to continue?"),
                  nullptr, 0),
        MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2, 0};
    EXPECT_EQ(m_recorder.Take(), std::vector{asked});
    if (kOnLinux) { // under Wine the debugger makes a crash slow
        m_recorder.m_answer = IDYES;
        EXPECT_DEATH(AfxPerformDivideByZeroException(), "");
    }
}

} // namespace

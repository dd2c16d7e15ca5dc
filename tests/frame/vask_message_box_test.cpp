// What the sixteen boxes compose, seen by an application object that shows none.
#include <quorvel/frame/vask_message_box.h>

#include <quorvel/res/message_ids.h>

#include "frame/vask_expectation.h"
#include "support/message_box_recorder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <functional>
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

struct Row {
    const char* label;
    std::function<int(int& checkState)> show;
    const WCHAR* heading;
    const WCHAR* text;
    const WCHAR* checkBox;
    UINT type;
};

const std::vector<Row> kRows = {
    {"text", [](int&) { return AfxVaskMessageBox(kText, MB_OK, nullptr); }, nullptr, kText, nullptr,
     MB_OK},
    {"text, help", [](int&) { return AfxVaskMessageBox(kText, MB_YESNO, kTarget); }, nullptr, kText,
     nullptr, MB_YESNO | MB_HELP},
    {"empty texts", [](int&) { return AfxVaskMessageBox(_T(""), _T(""), MB_OK, nullptr); }, _T(""),
     _T(""), nullptr, MB_OK},
    {"id", [](int&) { return AfxVaskMessageBox(kTextExceptionMemory, MB_OKCANCEL, kTarget); },
     nullptr, kCatalogueText, nullptr, MB_OKCANCEL | MB_HELP},
    {"heading", [](int&) { return AfxVaskMessageBox(kHeading, kText, MB_ICONERROR, kTarget); },
     kHeading, kText, nullptr, MB_ICONERROR | MB_HELP},
    {"heading id",
     [](int&) {
         return AfxVaskMessageBox(kTextCrashWarning, kTextExceptionMemory, MB_OK, nullptr);
     },
     kCatalogueHeading, kCatalogueText, nullptr, MB_OK},
    {"check box, no Help button of its own",
     [](int& state) { return AfxVaskMessageBox(kText, kCheck, state, MB_YESNO, kTarget); }, nullptr,
     kText, kCheck, MB_YESNO},
    {"check box id, the caller's Help button",
     [](int& state) {
         return AfxVaskMessageBox(kTextExceptionMemory, kTextDoNotShowAgain, state,
                                  MB_YESNO | MB_HELP, kTarget);
     },
     nullptr, kCatalogueText, kCatalogueCheck, MB_YESNO | MB_HELP},
    {"heading and check box",
     [](int& state) { return AfxVaskMessageBox(kHeading, kText, kCheck, state, MB_OK, kTarget); },
     kHeading, kText, kCheck, MB_OK},
    {"heading id and check box id",
     [](int& state) {
         return AfxVaskMessageBox(kTextCrashWarning, kTextExceptionMemory, kTextDoNotShowAgain,
                                  state, MB_OK, nullptr);
     },
     kCatalogueHeading, kCatalogueText, kCatalogueCheck, MB_OK},

    {"format",
     [](int&) { return AfxFormatStringVaskMessageBox(kFormat, MB_OK, kTarget, 7, _T("seven")); },
     nullptr, _T("seven, 7%"), nullptr, MB_OK | MB_HELP},
    {"format id",
     [](int&) { return AfxFormatStringVaskMessageBox(kTextByteSizeBytes, MB_OK, nullptr, 7); },
     nullptr, _T("7 bytes"), nullptr, MB_OK},
    {"heading, format",
     [](int&) {
         return AfxFormatStringVaskMessageBox(kHeading, kFormat, MB_OK, nullptr, 7, _T("seven"));
     },
     kHeading, _T("seven, 7%"), nullptr, MB_OK},
    {"heading id, format id",
     [](int&) {
         return AfxFormatStringVaskMessageBox(kTextCrashWarning, kTextByteSizeBytes, MB_OK, kTarget,
                                              7);
     },
     kCatalogueHeading, _T("7 bytes"), nullptr, MB_OK | MB_HELP},
    {"format, check box",
     [](int& state) {
         return AfxFormatStringVaskMessageBox(kFormat, kCheck, state, MB_OK, kTarget, 7,
                                              _T("seven"));
     },
     nullptr, _T("seven, 7%"), kCheck, MB_OK},
    {"format id, check box id",
     [](int& state) {
         return AfxFormatStringVaskMessageBox(kTextByteSizeBytes, kTextDoNotShowAgain, state, MB_OK,
                                              kTarget, 7);
     },
     nullptr, _T("7 bytes"), kCatalogueCheck, MB_OK},
    {"heading, format, check box",
     [](int& state) {
         return AfxFormatStringVaskMessageBox(kHeading, kFormat, kCheck, state, MB_OK, kTarget, 7,
                                              _T("seven"));
     },
     kHeading, _T("seven, 7%"), kCheck, MB_OK},
    {"heading id, format id, check box id",
     [](int& state) {
         return AfxFormatStringVaskMessageBox(kTextCrashWarning, kTextByteSizeBytes,
                                              kTextDoNotShowAgain, state, MB_OK, kTarget, 7);
     },
     kCatalogueHeading, _T("7 bytes"), kCatalogueCheck, MB_OK},
};

TEST(VaskMessageBox, EachFormComposesItsBox) {
    MessageBoxRecorder recorder(IDRETRY);
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.label);
        int checkState = 1;
        EXPECT_EQ(row.show(checkState), IDRETRY);
        EXPECT_EQ(checkState, 1);
        const std::vector<RecordedMessageBox> boxes = recorder.Take();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, ShownText(row.heading, row.text, row.checkBox, 1));
        EXPECT_EQ(boxes[0].type, row.type);
        EXPECT_EQ(boxes[0].helpId, 0u);
    }
}

TEST(VaskMessageBox, ShowsNothingWithoutAllItsTexts) {
    const WCHAR* const null = nullptr;
    const std::vector<std::pair<const char*, std::function<int(int&)>>> rows = {
        {"text", [&](int&) { return AfxVaskMessageBox(null, MB_OK, nullptr); }},
        {"heading", [&](int&) { return AfxVaskMessageBox(null, kText, MB_OK, nullptr); }},
        {"text below a heading",
         [&](int&) { return AfxVaskMessageBox(kHeading, null, MB_OK, nullptr); }},
        {"check box",
         [&](int& state) { return AfxVaskMessageBox(kText, null, state, MB_OK, nullptr); }},
        {"text above a check box",
         [&](int& state) { return AfxVaskMessageBox(null, kCheck, state, MB_OK, nullptr); }},
        {"heading of all three",
         [&](int& state) { return AfxVaskMessageBox(null, kText, kCheck, state, MB_OK, nullptr); }},
        {"text id", [&](int&) { return AfxVaskMessageBox(kNoSuchText, MB_OK, nullptr); }},
        {"heading id",
         [&](int&) {
             return AfxVaskMessageBox(kNoSuchText, kTextExceptionMemory, MB_OK, nullptr);
         }},
        {"check box id",
         [&](int& state) {
             return AfxVaskMessageBox(kTextExceptionMemory, kNoSuchText, state, MB_OK, nullptr);
         }},
        {"text id of all three",
         [&](int& state) {
             return AfxVaskMessageBox(kTextCrashWarning, kNoSuchText, kTextDoNotShowAgain, state,
                                      MB_OK, nullptr);
         }},
        {"format", [&](int&) { return AfxFormatStringVaskMessageBox(null, MB_OK, nullptr); }},
        {"format id",
         [&](int&) { return AfxFormatStringVaskMessageBox(kNoSuchText, MB_OK, nullptr); }},
        {"refused format",
         [&](int&) { return AfxFormatStringVaskMessageBox(kText, MB_OK, nullptr); }},
    };
    MessageBoxRecorder recorder;
    for (const auto& [label, show] : rows) {
        int checkState = 7;
        EXPECT_EQ(show(checkState), 0) << label;
        EXPECT_EQ(checkState, 7) << label;
        EXPECT_TRUE(recorder.Take().empty()) << label;
    }
}

TEST(VaskMessageBox, AnyOtherCheckStateStartsUnchecked) {
    MessageBoxRecorder recorder;
    for (const auto& [before, after] : {std::pair(0, 0), {1, 1}, {2, 0}, {7, 0}, {-1, 0}}) {
        int checkState = before;
        EXPECT_EQ(AfxVaskMessageBox(kText, kCheck, checkState, MB_OK, nullptr), IDOK);
        EXPECT_EQ(checkState, after) << before;
        EXPECT_EQ(recorder.Take().at(0).text, ShownText(nullptr, kText, kCheck, after));
    }
}

TEST(VaskMessageBox, TheCrashAsksFirst) {
    MessageBoxRecorder recorder(IDNO);
    AfxPerformDivideByZeroException();
    const RecordedMessageBox asked = {
        ShownText(kCatalogueHeading,
                  _T("A divide by zero operation is about to be performed. This will cause the ")
                  _T("program to crash. Are you sure you want to continue?"),
                  nullptr, 0),
        MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2, 0};
    EXPECT_EQ(recorder.Take(), std::vector{asked});
}

} // namespace

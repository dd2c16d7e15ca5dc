#include <quorvel/framework/app.h>
#include <quorvel/res/message_ids.h>

#include "support/german_texts.h"
#include "support/message_box_recorder.h"
#include "support/test.h"

TEST(App, MessageBoxesGoThroughTheApplication) {
    const GermanTexts german;
    const CString memory = german.Text(quorvel::kTextExceptionMemory);
    MessageBoxRecorder app(IDNO);
    EXPECT_EQ(AfxGetApp(), &app);
    EXPECT_EQ(AfxMessageBox(_T("text"), MB_YESNO | MB_ICONSTOP, 7), IDNO);
    EXPECT_EQ(AfxMessageBox(quorvel::kTextExceptionMemory), IDNO);
    EXPECT_EQ(AfxMessageBox(1u), 0); // a missing text: no box
    const std::vector<RecordedMessageBox> expected = {
        {_T("text"), MB_YESNO | MB_ICONSTOP, 7}, {memory, MB_OK, quorvel::kTextExceptionMemory}};
    EXPECT_EQ(app.Take(), expected);
}

TEST(App, BearsTheNameGivenOrThatOfTheProgram) {
    {
        const CWinApp named(_T("Name"));
        EXPECT_EQ(CString(AfxGetAppName()), _T("Name"));
    }
    const CWinApp unnamed;
    EXPECT_EQ(CString(AfxGetAppName()), _T("framework_tests"));
}

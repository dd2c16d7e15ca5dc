#include <quorvel/framework/app.h>
#include <quorvel/res/message_ids.h>

#include "support/german_texts.h"
#include "support/message_box_recorder.h"
#include "support/registry.h"
#include "support/test.h"

TEST(App, MessageBoxesGoThroughTheApplication) {
    const GermanTexts german;
    const CString memory = german.Text(quorvel::kTextExceptionMemory);
    MessageBoxRecorder app(IDNO);
    EXPECT_EQ(AfxGetApp(), &app);
    EXPECT_EQ(CString(AfxGetAppName()), _T("framework_tests"));
    EXPECT_EQ(AfxMessageBox(_T("text"), MB_YESNO | MB_ICONSTOP, 7), IDNO);
    EXPECT_EQ(AfxMessageBox(quorvel::kTextExceptionMemory), IDNO);
    EXPECT_EQ(AfxMessageBox(1u), 0); // a missing text: no box
    const std::vector<RecordedMessageBox> expected = {
        {_T("text"), MB_YESNO | MB_ICONSTOP, 7}, {memory, MB_OK, quorvel::kTextExceptionMemory}};
    EXPECT_EQ(app.Take(), expected);
}

TEST(App, KeepsItsProfileInTheRegistryUntilANullRemovesIt) {
    const TestKey test;
    CWinApp app(_T("Program"));
    EXPECT_FALSE(app.WriteProfileInt(_T("s"), _T("i"), 1)); // no registry key yet
    app.SetRegistryKey(test.Path().Mid(9));                 // relative to Software
    BYTE bytes[] = {1, 0, 2};
    EXPECT_TRUE(app.WriteProfileInt(_T("s"), _T("i"), -2));
    EXPECT_TRUE(app.WriteProfileString(_T("s\\t"), _T("s"), _T("te\u00dft")));
    EXPECT_TRUE(app.WriteProfileBinary(_T("s"), _T("b"), bytes, 3));
    EXPECT_EQ(static_cast<int>(app.GetProfileInt(_T("S"), _T("I"), 7)), -2);
    EXPECT_EQ(app.GetProfileString(_T("s\\t"), _T("s")), _T("te\u00dft"));
    BYTE* data = nullptr;
    UINT size = 0;
    EXPECT_TRUE(app.GetProfileBinary(_T("s"), _T("b"), &data, &size));
    EXPECT_TRUE(size == 3 && data[2] == 2);
    delete[] data;

    // Wrong type, missing entry, missing section.
    EXPECT_EQ(app.GetProfileInt(_T("s"), _T("b"), 7), 7u);
    EXPECT_EQ(app.GetProfileString(_T("s"), _T("i"), _T("default")), _T("default"));
    EXPECT_FALSE(app.WriteProfileInt(_T("s"), nullptr, 1));

    EXPECT_TRUE(app.WriteProfileInt(_T("t"), _T("i"), 4));
    EXPECT_TRUE(app.WriteProfileString(_T("s"), _T("b"), nullptr));
    EXPECT_FALSE(app.GetProfileBinary(_T("s"), _T("b"), &data, &size));
    EXPECT_EQ(static_cast<int>(app.GetProfileInt(_T("s"), _T("i"), 7)), -2);
    EXPECT_TRUE(app.WriteProfileString(_T("s"), nullptr, _T("x")));
    EXPECT_EQ(app.GetProfileString(_T("s\\t"), _T("s"), _T("default")), _T("default"));
    EXPECT_EQ(app.GetProfileInt(_T("t"), _T("i"), 7), 4u);
}

#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "support/german_texts.h"
#include "support/message_box_recorder.h"
#include "support/test.h"

TEST(Exceptions, AreCaughtByTheirBaseAndKnowTheirClass) {
    for (const bool isMemory : {true, false, true}) // a static exception can be thrown again
        try {
            if (isMemory)
                AfxThrowMemoryException();
            AfxThrowFileException(CFileException::diskFull);
        } catch (CException* exception) {
            EXPECT_EQ(exception->IsKindOf(RUNTIME_CLASS(CMemoryException)), isMemory);
            EXPECT_EQ(exception->IsKindOf(RUNTIME_CLASS(CFileException)), !isMemory);
            EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CException)));
            EXPECT_EQ(exception->m_bAutoDelete, !isMemory);
            exception->Delete();
        }
}

TEST(Exceptions, SystemErrorsHaveACause) {
    typedef CFileException E;
    ExpectCases<int>({CASE(E::OsErrorToException(0), E::none),
                      CASE(E::OsErrorToException(19), E::accessDenied),
                      CASE(E::OsErrorToException(-1), E::genericException)});
}

TEST(Exceptions, HaveTheCatalogueTextOfTheirCause) {
    const GermanTexts german;
    CMemoryException memory;
    CInvalidArgException argument;
    CFileException file(CFileException::endOfFile), unknownFile(22);
    CArchiveException archive(CArchiveException::badSchema);
    const std::tuple<CException&, UINT> rows[] = {
        {memory, 21240}, {argument, 21243}, {file, 22534}, {unknownFile, 22521}, {archive, 22549}};
    for (const auto& [exception, textId] : rows) {
        const CString expected = german.Text(textId);
        WCHAR text[256];
        EXPECT_TRUE(exception.GetErrorMessage(text, 256));
        EXPECT_EQ(CString(text), expected);
        EXPECT_TRUE(exception.GetErrorMessage(text, 4));
        EXPECT_EQ(CString(text), expected.Left(3));
        EXPECT_FALSE(exception.GetErrorMessage(text, 0) || exception.GetErrorMessage(nullptr, 4));
    }
    CException base; // has no text
    MessageBoxRecorder app(IDRETRY);
    EXPECT_EQ(file.ReportError(MB_RETRYCANCEL), IDRETRY);
    EXPECT_EQ(base.ReportError(), IDRETRY);
    const std::vector<RecordedMessageBox> expected = {{german.Text(22534), MB_RETRYCANCEL, 0},
                                                      {german.Text(21243), MB_OK, 21243}};
    EXPECT_EQ(app.Take(), expected);
}

#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "support/german_texts.h"
#include "support/message_box_recorder.h"
#include "support/test.h"

TEST(Exceptions, AreCaughtByTheirBaseAndKnowTheirClass) {
    const std::tuple<CRuntimeClass*, void (*)(), BOOL> rows[] = {
        {RUNTIME_CLASS(CMemoryException), [] { AfxThrowMemoryException(); }, FALSE},
        {RUNTIME_CLASS(CFileException), [] { AfxThrowFileException(CFileException::diskFull); },
         TRUE},
    };
    for (const auto& [runtimeClass, raise, isDeleted] : rows)
        for (int time = 0; time < 2; ++time) { // a static exception can be thrown again
            SCOPED_TRACE(runtimeClass->m_lpszClassName);
            try {
                raise();
                ADD_FAILURE();
            } catch (CException* exception) {
                EXPECT_EQ(exception->GetRuntimeClass(), runtimeClass);
                for (const auto& other : rows)
                    EXPECT_EQ(exception->IsKindOf(std::get<0>(other)),
                              std::get<0>(other) == runtimeClass);
                EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CException)));
                EXPECT_EQ(exception->m_bAutoDelete, isDeleted);
                exception->Delete();
            }
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
    CFileException file(CFileException::endOfFile), unknownFile(22), negativeFile(-1);
    CArchiveException archive(CArchiveException::badSchema), unknownArchive(8);
    const std::tuple<CException&, UINT> rows[] = {
        {memory, 21240},  {argument, 21243},       {file, 22534},         {unknownFile, 22521},
        {archive, 22549}, {unknownArchive, 22543}, {negativeFile, 22521},
    };
    for (const auto& [exception, textId] : rows) {
        const CString expected = german.Text(textId);
        WCHAR text[256];
        EXPECT_TRUE(exception.GetErrorMessage(text, 256));
        EXPECT_EQ(CString(text), expected);
        EXPECT_TRUE(exception.GetErrorMessage(text, 4));
        EXPECT_EQ(CString(text), expected.Left(3));
        EXPECT_FALSE(exception.GetErrorMessage(text, 0) || exception.GetErrorMessage(nullptr, 4));
    }
    WCHAR text[4] = {'?'};
    CException base;
    EXPECT_FALSE(base.GetErrorMessage(text, 4));
    EXPECT_EQ(text[0], 0);

    MessageBoxRecorder app(IDRETRY);
    EXPECT_EQ(file.ReportError(MB_RETRYCANCEL), IDRETRY);
    EXPECT_EQ(base.ReportError(), IDRETRY);
    const std::vector<RecordedMessageBox> expected = {{german.Text(22534), MB_RETRYCANCEL, 0},
                                                      {german.Text(21243), MB_OK, 21243}};
    EXPECT_EQ(app.Take(), expected);
}

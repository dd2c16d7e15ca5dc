#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "support/german_texts.h"
#include "support/message_box_recorder.h"
#include "support/test.h"

#define EXCEPTION(name, raise, deleted)                                                            \
    {                                                                                              \
#name, RUNTIME_CLASS(name), [] { raise; }, deleted                                         \
    }

TEST(Exceptions, AreCaughtByTheirBaseAndKnowTheirClass) {
    const struct {
        const char* name;
        CRuntimeClass* runtimeClass;
        void (*raise)();
        BOOL deleted;
    } rows[] = {
        EXCEPTION(CMemoryException, AfxThrowMemoryException(), FALSE),
        EXCEPTION(CNotSupportedException, AfxThrowNotSupportedException(), FALSE),
        EXCEPTION(CResourceException, AfxThrowResourceException(), FALSE),
        EXCEPTION(CUserException, AfxThrowUserException(), FALSE),
        EXCEPTION(CInvalidArgException, AfxThrowInvalidArgException(), FALSE),
        EXCEPTION(CFileException, AfxThrowFileException(CFileException::diskFull), TRUE),
        EXCEPTION(CArchiveException, AfxThrowArchiveException(CArchiveException::badClass), TRUE),
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        for (int time = 0; time < 2; ++time) { // a static exception can be thrown again
            try {
                row.raise();
                ADD_FAILURE();
            } catch (CException* exception) {
                EXPECT_EQ(exception->GetRuntimeClass(), row.runtimeClass);
                EXPECT_STREQ(exception->GetRuntimeClass()->m_lpszClassName, row.name);
                for (const auto& other : rows)
                    EXPECT_EQ(exception->IsKindOf(other.runtimeClass), &other == &row);
                EXPECT_TRUE(exception->IsKindOf(RUNTIME_CLASS(CException)));
                EXPECT_EQ(exception->m_bAutoDelete, row.deleted);
                exception->Delete();
            }
        }
    }
}

TEST(Exceptions, SystemErrorsHaveACause) {
    typedef CFileException E;
    const std::tuple<DWORD, int> rows[] = {
        {0, E::none},          {3, E::badPath},           {4, E::tooManyOpenFiles},
        {19, E::accessDenied}, {16, E::removeCurrentDir}, {33, E::lockViolation},
        {112, E::diskFull},    {131, E::badSeek},         {0xffffffff, E::genericException},
    };
    for (const auto& [error, cause] : rows)
        EXPECT_EQ(CFileException::OsErrorToException(static_cast<LONG>(error)), cause) << error;
    CFileException::ThrowOsError(0, _T("name")); // 0 is not an error
}

TEST(Exceptions, TellTheCatalogueTextOfTheirCause) {
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
        ASSERT_FALSE(expected.IsEmpty());
        WCHAR text[256];
        UINT help = 7;
        EXPECT_TRUE(exception.GetErrorMessage(text, 256, &help));
        EXPECT_EQ(CString(text), expected);
        EXPECT_EQ(help, 0u);
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

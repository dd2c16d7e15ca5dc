#include <quorvel/frame/exception_text.h>
#include <quorvel/frame/message_box.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "support/message_box_recorder.h"
#include "support/test.h"

void PrintTo(const RecordedMessageBox& box, std::ostream* stream) {
    PrintTo(box.text, stream);
    *stream << ", type " << box.type << ", help " << box.helpId;
}

namespace {

using namespace quorvel;

constexpr UINT kMissingId = 60000;
constexpr DWORD kNoSystemError = 0x2fffffff;
constexpr UINT kType = MB_YESNO | MB_ICONSTOP;
constexpr UINT kHelpId = 4711;
constexpr int kAnswer = IDNO;

// Boxes that return kAnswer and have kType and kHelpId.
class MessageBox : public testing::Test {
protected:
    // A null text: no box was shown, and the result is 0.
    void ExpectShown(const WCHAR* text, int result, int line = __builtin_LINE()) {
        const testing::ScopedTrace trace(__FILE__, line, "here");
        std::vector<RecordedMessageBox> expected;
        if (text != nullptr)
            expected.push_back({text, kType, kHelpId});
        EXPECT_EQ(m_recorder.Take(), expected);
        EXPECT_EQ(result, text != nullptr ? kAnswer : 0);
    }

    MessageBoxRecorder m_recorder{kAnswer};
};

TEST_F(MessageBox, ErrorsAreShownAsTheyAreComposed) {
    CString text;
    const WCHAR* const null = nullptr;
    ExpectShown(_T("100% %1 %s"), AfxErrorMessageBox(_T("100% %1 %s"), kType, kHelpId));
    ExpectShown(null, AfxErrorMessageBox(null, kType, kHelpId));
    ExpectShown(_T("Out of memory."), AfxErrorMessageBox(kTextExceptionMemory, kType, kHelpId));

    ExpectShown(_T("7% of x"),
                AfxFormatErrorMessageBox(_T("%d%% of %s"), kType, kHelpId, 7, CString(_T("x"))));
    ExpectShown(_T("XML files larger than 512 bytes cannot be loaded."),
                AfxFormatErrorMessageBox(kTextXmlFileCauseTooLarge, kType, kHelpId, 512));

    ExpectShown(_T("%1 before 7"), AfxFormatStringErrorMessageBox(_T("%2 before %1!d!"), kType,
                                                                  kHelpId, 7, CString(_T("%1"))));
    ExpectShown(null, AfxFormatStringErrorMessageBox(_T("100%"), kType, kHelpId)); // refused
    ExpectShown(_T("An error has occurred while reading the file 'a.txt'.\r\n\r\nWhy."),
                AfxFormatStringErrorMessageBox(kTextErrorReadingFile, kType, kHelpId,
                                               CString(_T("a.txt")), _T("Why.")));

    ASSERT_TRUE(AfxGetSystemErrorText(ERROR_FILE_NOT_FOUND, text));
    ExpectShown(_T("A system error has occurred.\r\n\r\n") + text,
                AfxSystemErrorMessageBox(ERROR_FILE_NOT_FOUND, kType, kHelpId));

    EXPECT_FALSE(AfxHtmlHelpErrorMessageBox(MB_OK)); // HTML Help was not used here
    EXPECT_TRUE(m_recorder.Take().empty());
}

class OtherException : public CException {
public:
    OtherException() { ++s_alive; }
    ~OtherException() override { --s_alive; }
    BOOL GetErrorMessage(LPWSTR text, UINT maxChars, UINT*) override {
        EXPECT_EQ(maxChars, 256u);
        const std::basic_string<WCHAR> message(maxChars - 1, 'm');
        *std::copy(message.begin(), message.end(), text) = 0;
        return TRUE;
    }
    static inline int s_alive = 0;
};

class DerivedFileException : public CFileException {
    DECLARE_DYNAMIC(DerivedFileException)
public:
    using CFileException::CFileException;
};
IMPLEMENT_DYNAMIC(DerivedFileException, CFileException)

int Show(CException* exception, UINT formatId = kTextSystemError) {
    return AfxExceptionMessageBox(exception, formatId, kType, kHelpId);
}
int ShowIO(CException* exception, const WCHAR* fileName) {
    return AfxFileIOExceptionMessageBox(exception, fileName, kTextErrorSavingFile, kType, kHelpId);
}

TEST_F(MessageBox, AnExceptionIsShownByItsClass) {
    ExpectShown(
        _T("An error has occurred while writing the file 'a%1.txt'.\r\n\r\nThe disk is full."),
        Show(new CFileException(CFileException::diskFull, -1, _T("a%1.txt")),
             kTextErrorWritingFile));
    ExpectShown(_T("An error has occurred while reading the file 'b'.\r\n\r\n")
                _T("An unspecified error occurred."),
                Show(new DerivedFileException(22, -1, _T("b")), kTextErrorReadingFile));
    const auto expectCause = [&](const WCHAR* cause, CException* exception) {
        ExpectShown(_T("A system error has occurred.\r\n\r\n") + CString(cause), Show(exception));
    };
    expectCause(_T("Tried to read an object with a different version of the class."),
                new CArchiveException(CArchiveException::badSchema));
    expectCause(_T("A required resource was unavailable."), new CResourceException);
    expectCause(_T("An unsupported operation was attempted."), new CNotSupportedException);
    expectCause(_T("An unknown error has occurred."), new CUserException);
    expectCause(CString('m', 255), new OtherException);
    ExpectShown(nullptr, Show(new OtherException, kMissingId));
    ExpectShown(nullptr, Show(nullptr));
    EXPECT_EQ(OtherException::s_alive, 0);
}

TEST_F(MessageBox, AFileNameMayBeGivenWithAnyException) {
    ExpectShown(_T("An error has occurred while saving the file 'given.txt'.\r\n\r\n")
                _T("The file could not be located."),
                ShowIO(new CFileException(CFileException::fileNotFound, -1, _T("own.txt")),
                       _T("given.txt")));
    ExpectShown(_T("An error has occurred while saving the file 'c'.\r\n\r\nOut of memory."),
                ShowIO(new CMemoryException, _T("c")));
    ExpectShown(nullptr, ShowIO(new OtherException, nullptr));
    EXPECT_EQ(OtherException::s_alive, 0);

    OtherException kept;
    kept.m_bAutoDelete = FALSE;
    EXPECT_EQ(Show(&kept), kAnswer);
    EXPECT_EQ(ShowIO(&kept, nullptr), 0);
    EXPECT_EQ(OtherException::s_alive, 1);
}

TEST(ExceptionText, CausesAreTakenFromTheirList) {
    const WCHAR* const unspecified = _T("An unspecified error occurred.");
    const std::tuple<int, BOOL, BOOL, const WCHAR*, const WCHAR*> rows[] = {
        {7, TRUE, TRUE, _T("The current working directory cannot be removed."),
         _T("Tried to read an object with a different version of the class.")},
        {8, TRUE, FALSE, _T("There are no more directory entries."), _T("Unspecified error.")},
        {14, TRUE, FALSE, _T("The end of file was reached."), _T("Unspecified error.")},
        {-1, FALSE, FALSE, unspecified, _T("Unspecified error.")},
    };
    for (const auto& [cause, isFile, isArchive, file, archive] : rows) {
        SCOPED_TRACE(cause);
        CString text;
        EXPECT_EQ(AfxIsValidFileExceptionCause(cause), isFile);
        EXPECT_TRUE(AfxGetFileExceptionErrorMessage(cause, text));
        EXPECT_EQ(text, file);
        EXPECT_EQ(AfxIsValidArchiveExceptionCause(cause), isArchive);
        EXPECT_TRUE(AfxGetArchiveExceptionErrorMessage(cause, text));
        EXPECT_EQ(text, archive);
    }
}

TEST(ExceptionText, TheSystemsTextHasNoLineEnd) {
    CString text(_T("before"));
    // The last error is the one of the registry for a value that is too large.
    for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_NO_SYSTEM_RESOURCES}) {
        EXPECT_TRUE(AfxGetSystemErrorText(error, text)) << error;
        EXPECT_FALSE(text.IsEmpty());
        EXPECT_LT(text.FindOneOf(_T("\r\n")), 0);
    }
    EXPECT_FALSE(AfxGetSystemErrorText(kNoSystemError, text));
    EXPECT_EQ(text, _T(""));
}

} // namespace

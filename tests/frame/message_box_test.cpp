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
    ExpectShown(_T("7% of x"),
                AfxFormatErrorMessageBox(_T("%d%% of %s"), kType, kHelpId, 7, CString(_T("x"))));
    ExpectShown(_T("%1 before 7"), AfxFormatStringErrorMessageBox(_T("%2 before %1!d!"), kType,
                                                                  kHelpId, 7, CString(_T("%1"))));
    ExpectShown(null, AfxFormatStringErrorMessageBox(_T("100%"), kType, kHelpId)); // refused
    ExpectShown(_T("An error has occurred while reading the file 'a.txt'.\r\n\r\nWhy."),
                AfxFormatStringErrorMessageBox(kTextErrorReadingFile, kType, kHelpId,
                                               CString(_T("a.txt")), _T("Why.")));

    ASSERT_TRUE(AfxGetSystemErrorText(ERROR_FILE_NOT_FOUND, text));
    ExpectShown(_T("A system error has occurred.\r\n\r\n") + text,
                AfxSystemErrorMessageBox(ERROR_FILE_NOT_FOUND, kType, kHelpId));
}

class OtherException : public CException {
public:
    OtherException() { ++s_alive; }
    ~OtherException() override { --s_alive; }
    BOOL GetErrorMessage(LPWSTR text, UINT maxChars, UINT*) override {
        *std::fill_n(text, maxChars - 1, WCHAR('m')) = 0;
        return TRUE;
    }
    static inline int s_alive = 0;
};

int Show(CException* exception, UINT formatId = kTextSystemError) {
    return AfxExceptionMessageBox(exception, formatId, kType, kHelpId);
}
int ShowIO(CException* exception, const WCHAR* fileName) {
    return AfxFileIOExceptionMessageBox(exception, fileName, kTextErrorSavingFile, kType, kHelpId);
}

TEST_F(MessageBox, AnExceptionIsShownByItsClass) {
    ExpectShown(_T("An error has occurred while reading the file 'a%1'.\r\n\r\n")
                _T("An unspecified error occurred."),
                Show(new CFileException(22, -1, _T("a%1")), kTextErrorReadingFile));
    const CString intro(_T("A system error has occurred.\r\n\r\n"));
    ExpectShown(intro + _T("Tried to read an object with a different version of the class."),
                Show(new CArchiveException(CArchiveException::badSchema)));
    ExpectShown(intro + _T("An unknown error has occurred."), Show(new CUserException));
    ExpectShown(intro + CString('m', 255), Show(new OtherException));
    ExpectShown(nullptr, Show(new OtherException, kMissingId));
    ExpectShown(nullptr, Show(nullptr));
    // With another file name.
    ExpectShown(_T("An error has occurred while saving the file 'given.txt'.\r\n\r\n")
                _T("The file could not be located."),
                ShowIO(new CFileException(CFileException::fileNotFound, -1, _T("own.txt")),
                       _T("given.txt")));
    ExpectShown(nullptr, ShowIO(new OtherException, nullptr));
    EXPECT_EQ(OtherException::s_alive, 0);

    OtherException kept;
    kept.m_bAutoDelete = FALSE;
    EXPECT_EQ(Show(&kept), kAnswer);
    EXPECT_EQ(ShowIO(&kept, nullptr), 0);
    EXPECT_EQ(OtherException::s_alive, 1);
}

TEST(ExceptionText, CausesOutsideTheListAreUnspecified) {
    CString text;
    EXPECT_TRUE(AfxIsValidFileExceptionCause(14) && !AfxIsValidFileExceptionCause(-1));
    EXPECT_TRUE(AfxIsValidArchiveExceptionCause(7) && !AfxIsValidArchiveExceptionCause(8));
    EXPECT_TRUE(AfxGetFileExceptionErrorMessage(-1, text));
    EXPECT_EQ(text, _T("An unspecified error occurred."));
    EXPECT_TRUE(AfxGetArchiveExceptionErrorMessage(8, text));
    EXPECT_EQ(text, _T("Unspecified error."));
}

TEST(ExceptionText, TheSystemsTextHasNoLineEnd) {
    CString text(_T("before"));
    // The last error is the one of the registry for a value that is too large.
    for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_NO_SYSTEM_RESOURCES})
        EXPECT_TRUE(AfxGetSystemErrorText(error, text) && text.FindOneOf(_T("\r\n")) < 0) << error;
    EXPECT_FALSE(AfxGetSystemErrorText(kNoSystemError, text));
    EXPECT_EQ(text, _T(""));
}

} // namespace

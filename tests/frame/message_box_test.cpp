#include <quorvel/frame/exception_text.h>
#include <quorvel/frame/message_box.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "support/message_box_recorder.h"
#include "support/text.h"

#include <gtest/gtest.h>

#include <functional>

void PrintTo(const RecordedMessageBox& box, std::ostream* stream) {
    PrintTo(box.text, stream);
    *stream << ", type " << box.type << ", help " << box.helpId;
}

namespace {

using namespace quorvel;

constexpr UINT kMissingId = 60000;
constexpr UINT kType = MB_YESNO | MB_ICONSTOP;
constexpr UINT kHelpId = 4711;
constexpr int kAnswer = IDNO;

struct BoxCase {
    const char* label;
    std::function<int()> show;
    const WCHAR* text; // null: nothing is shown and the result is 0
};

void CheckBoxes(const std::vector<BoxCase>& rows) {
    MessageBoxRecorder recorder(kAnswer);
    for (const BoxCase& row : rows) {
        SCOPED_TRACE(row.label);
        std::vector<RecordedMessageBox> expected;
        if (row.text != nullptr)
            expected.push_back({row.text, kType, kHelpId});
        EXPECT_EQ(row.show(), row.text != nullptr ? kAnswer : 0);
        EXPECT_EQ(recorder.Take(), expected);
    }
}

TEST(MessageBox, ErrorsAreShownAsTheyAreComposed) {
    CString noSystemText;
    ASSERT_FALSE(AfxGetSystemErrorText(0x2fffffff, noSystemText));
    CString notFound;
    ASSERT_TRUE(AfxGetSystemErrorText(ERROR_FILE_NOT_FOUND, notFound));
    const CString systemError =
        CString(_T("A system error has occurred.\r\n\r\n")) + notFound.GetString();
    const WCHAR* const null = nullptr;
    CheckBoxes({
        {"text", [] { return AfxErrorMessageBox(_T("100% %1 %s"), kType, kHelpId); },
         _T("100% %1 %s")},
        {"empty text", [] { return AfxErrorMessageBox(_T(""), kType, kHelpId); }, _T("")},
        {"null text", [=] { return AfxErrorMessageBox(null, kType, kHelpId); }, nullptr},
        {"id", [] { return AfxErrorMessageBox(kTextExceptionMemory, kType, kHelpId); },
         _T("Out of memory.")},
        {"missing id", [] { return AfxErrorMessageBox(kMissingId, kType, kHelpId); }, nullptr},

        {"printf",
         [] { return AfxFormatErrorMessageBox(_T("%d%% of %s"), kType, kHelpId, 7, _T("x")); },
         _T("7% of x")},
        {"printf null", [=] { return AfxFormatErrorMessageBox(null, kType, kHelpId); }, nullptr},
        {"printf id",
         [] { return AfxFormatErrorMessageBox(kTextXmlFileCauseTooLarge, kType, kHelpId, 512); },
         _T("XML files larger than 512 bytes cannot be loaded.")},
        {"printf missing id", [] { return AfxFormatErrorMessageBox(kMissingId, kType, kHelpId); },
         nullptr},

        {"inserts",
         [] {
             return AfxFormatStringErrorMessageBox(_T("%2 before %1!d!"), kType, kHelpId, 7,
                                                   _T("%1"));
         },
         _T("%1 before 7")},
        {"inserts null", [=] { return AfxFormatStringErrorMessageBox(null, kType, kHelpId); },
         nullptr},
        {"refused inserts",
         [] { return AfxFormatStringErrorMessageBox(_T("100%"), kType, kHelpId); }, nullptr},
        {"inserts id",
         [] {
             return AfxFormatStringErrorMessageBox(kTextErrorReadingFile, kType, kHelpId,
                                                   _T("a.txt"), _T("Why."));
         },
         _T("An error has occurred while reading the file 'a.txt'.\r\n\r\nWhy.")},
        {"inserts missing id",
         [] { return AfxFormatStringErrorMessageBox(kMissingId, kType, kHelpId); }, nullptr},

        {"system error",
         [] { return AfxSystemErrorMessageBox(ERROR_FILE_NOT_FOUND, kType, kHelpId); },
         systemError},
        {"no system text", [] { return AfxSystemErrorMessageBox(0x2fffffff, kType, kHelpId); },
         nullptr},
    });
    MessageBoxRecorder recorder;
    EXPECT_FALSE(AfxHtmlHelpErrorMessageBox(MB_OK)); // nothing here has used HTML Help
    EXPECT_TRUE(recorder.Take().empty());
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

int Show(CException* exception, UINT formatId) {
    return AfxExceptionMessageBox(exception, formatId, kType, kHelpId);
}
int ShowIO(CException* exception, const WCHAR* fileName) {
    return AfxFileIOExceptionMessageBox(exception, fileName, kTextErrorSavingFile, kType, kHelpId);
}

TEST(MessageBox, AnExceptionIsShownByItsClass) {
    const std::basic_string<WCHAR> message(255, 'm');
    const CString other =
        CString(_T("An error has occurred while writing to an archive.\r\n\r\n")) + message.c_str();
    CheckBoxes({
        {"file",
         [] {
             return Show(new CFileException(CFileException::diskFull, -1, _T("a%1.txt")),
                         kTextErrorWritingFile);
         },
         _T("An error has occurred while writing the file 'a%1.txt'.\r\n\r\nThe disk is full.")},
        {"derived from file",
         [] { return Show(new DerivedFileException(22, -1, _T("b")), kTextErrorReadingFile); },
         _T("An error has occurred while reading the file 'b'.\r\n\r\n")
         _T("An unspecified error occurred.")},
        {"archive",
         [] {
             return Show(new CArchiveException(CArchiveException::badSchema),
                         kTextErrorWritingArchive);
         },
         _T("An error has occurred while writing to an archive.\r\n\r\n")
         _T("Tried to read an object with a different version of the class.")},
        {"archive, unknown cause",
         [] { return Show(new CArchiveException(8), kTextErrorReadingArchive); },
         _T("An error has occurred while reading from an archive.\r\n\r\nUnspecified error.")},
        {"resource", [] { return Show(new CResourceException, kTextSystemError); },
         _T("A system error has occurred.\r\n\r\nA required resource was unavailable.")},
        {"memory", [] { return Show(new CMemoryException, kTextSystemError); },
         _T("A system error has occurred.\r\n\r\nOut of memory.")},
        {"not supported", [] { return Show(new CNotSupportedException, kTextSystemError); },
         _T("A system error has occurred.\r\n\r\nAn unsupported operation was attempted.")},
        {"user", [] { return Show(new CUserException, kTextSystemError); },
         _T("A system error has occurred.\r\n\r\nAn unknown error has occurred.")},
        {"any other", [] { return Show(new OtherException, kTextErrorWritingArchive); }, other},
        {"missing format", [] { return Show(new OtherException, kMissingId); }, nullptr},
        {"null", [] { return Show(nullptr, kTextSystemError); }, nullptr},

        {"named file",
         [] {
             return ShowIO(new CFileException(CFileException::fileNotFound, -1, _T("own.txt")),
                           _T("given.txt"));
         },
         _T("An error has occurred while saving the file 'given.txt'.\r\n\r\n")
         _T("The file could not be located.")},
        {"named file, memory", [] { return ShowIO(new CMemoryException, _T("c")); },
         _T("An error has occurred while saving the file 'c'.\r\n\r\nOut of memory.")},
        {"named file, null name", [] { return ShowIO(new OtherException, nullptr); }, nullptr},
        {"named file, null", [] { return ShowIO(nullptr, _T("c")); }, nullptr},
    });
    EXPECT_EQ(OtherException::s_alive, 0);
}

TEST(MessageBox, AnExceptionThatIsNotMarkedIsLeftAlone) {
    MessageBoxRecorder recorder;
    OtherException kept;
    kept.m_bAutoDelete = FALSE;
    EXPECT_EQ(Show(&kept, kTextSystemError), IDOK);
    EXPECT_EQ(ShowIO(&kept, _T("c")), IDOK);
    EXPECT_EQ(ShowIO(&kept, nullptr), 0);
    EXPECT_EQ(OtherException::s_alive, 1);
}

TEST(ExceptionText, CausesAreTakenFromTheirList) {
    const struct {
        int cause;
        BOOL validFile;
        const WCHAR* file;
        BOOL validArchive;
        const WCHAR* archive;
    } rows[] = {
        {0, TRUE, _T("No error occurred."), TRUE, _T("No error occurred.")},
        {7, TRUE, _T("The current working directory cannot be removed."), TRUE,
         _T("Tried to read an object with a different version of the class.")},
        {8, TRUE, _T("There are no more directory entries."), FALSE, _T("Unspecified error.")},
        {14, TRUE, _T("The end of file was reached."), FALSE, _T("Unspecified error.")},
        {15, FALSE, _T("An unspecified error occurred."), FALSE, _T("Unspecified error.")},
        {-1, FALSE, _T("An unspecified error occurred."), FALSE, _T("Unspecified error.")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.cause);
        CString text;
        EXPECT_EQ(AfxIsValidFileExceptionCause(row.cause), row.validFile);
        EXPECT_TRUE(AfxGetFileExceptionErrorMessage(row.cause, text));
        EXPECT_EQ(text, CString(row.file));
        EXPECT_EQ(AfxIsValidArchiveExceptionCause(row.cause), row.validArchive);
        EXPECT_TRUE(AfxGetArchiveExceptionErrorMessage(row.cause, text));
        EXPECT_EQ(text, CString(row.archive));
    }
}

TEST(ExceptionText, TheSystemsTextHasNoLineEnd) {
    CString text(_T("before"));
    EXPECT_TRUE(AfxGetSystemErrorText(ERROR_ACCESS_DENIED, text));
    EXPECT_FALSE(text.IsEmpty());
    EXPECT_LT(text.FindOneOf(_T("\r\n")), 0);
    EXPECT_FALSE(AfxGetSystemErrorText(0x2fffffff, text));
    EXPECT_EQ(text, _T(""));
    text = _T("before");
    EXPECT_FALSE(AfxGetExceptionText(nullptr, text));
    EXPECT_EQ(text, _T(""));
}

} // namespace

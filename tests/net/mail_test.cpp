// The message that is passed to the mail program, its success rule, and early refusals.
#include <quorvel/net/mail.h>

#include "net/mail_message.h"
#include "support/message_box_recorder.h"
#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

TEST(MailMessage, HoldsEveryFieldAndNothingElse) {
    const TemporaryFolder folder;
    folder.Write(_T("figures.txt"), "1 2 3");
    const CString path = folder.Path(_T("figures.txt"));
    const CString body(_T('b'), 200000);
    quorvel::MailMessage message(
        {_T("Ann"), _T("ann@example.com"), _T("Subject"), body, path, _T("shown.txt")});
    const MapiMessage& mail = message.Get();
    EXPECT_STREQ(mail.lpszSubject, "Subject");
    EXPECT_STREQ(mail.lpszNoteText, std::string(200000, 'b').c_str());
    EXPECT_TRUE(mail.lpszMessageType == nullptr && mail.lpOriginator == nullptr);
    EXPECT_EQ(mail.ulReserved + mail.flFlags, 0u);
    EXPECT_EQ(mail.nRecipCount, 1u);
    const MapiRecipDesc& to = *mail.lpRecips;
    EXPECT_STREQ(to.lpszName, "Ann");
    EXPECT_STREQ(to.lpszAddress, "ann@example.com");
    EXPECT_TRUE(to.ulRecipClass == 1 && to.ulReserved + to.ulEIDSize == 0);
    ASSERT_EQ(mail.nFileCount, 1u);
    const MapiFileDesc& file = *mail.lpFiles;
    EXPECT_STREQ(file.lpszPathName, CStringA(path));
    EXPECT_STREQ(file.lpszFileName, "shown.txt");
    EXPECT_TRUE(file.ulReserved + file.flFlags == 0 && file.nPosition == 0xFFFFFFFFu);
}

TEST(MailMessage, AttachesOnlyAFileThatIsThere) {
    const TemporaryFolder folder;
    folder.Write(_T("a"), "");
    const CString file = folder.Path(_T("a")), none = folder.Path(_T("b")), self = folder.Path();
    const std::tuple<const WCHAR*, const WCHAR*, const char*> rows[] = {
        {file, _T("x"), "x"}, {file, nullptr, nullptr}, {file, _T(""), ""},
        {none, _T("x"), "-"}, {nullptr, _T("x"), "-"},  {_T(""), _T("x"), "-"},
        {self, _T("x"), "-"}};
    for (const auto& [path, name, attachedAs] : rows) {
        quorvel::MailMessage message({_T("n"), _T("a"), _T("s"), _T("b"), path, name});
        const MapiFileDesc* const files = message.Get().lpFiles;
        EXPECT_STREQ(files == nullptr ? "-" : files->lpszFileName, attachedAs);
        EXPECT_EQ(message.Get().nFileCount, files == nullptr ? 0u : 1u);
    }
}

TEST(MailMessage, AbortAndFailedLogonCountAsSent) {
    ExpectCases<bool>({CASE(quorvel::IsMailSent(0), true), CASE(quorvel::IsMailSent(1), true),
                       CASE(quorvel::IsMailSent(2), false), CASE(quorvel::IsMailSent(3), true),
                       CASE(quorvel::IsMailSent(4), false)});
}

TEST(Mail, IncompleteTextsAreRefusedWithoutABox) {
    MessageBoxRecorder app;
    for (const WCHAR* missing : {static_cast<const WCHAR*>(nullptr), _T("")}) {
        for (int i = 0; i < 4; ++i) {
            const WCHAR* texts[] = {_T("n"), _T("a@example.com"), _T("s"), _T("b")};
            texts[i] = missing;
            EXPECT_FALSE(AfxSendMessage2(texts[0], texts[1], texts[2], texts[3], nullptr, nullptr));
            EXPECT_FALSE(AfxSendMessage(texts[0], texts[1], texts[2], texts[3], nullptr, nullptr));
        }
    }
    EXPECT_TRUE(app.Take().empty());
}

} // namespace

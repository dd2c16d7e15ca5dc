// The message that is passed to the mail program, its success rule, and early refusals.
#include <quorvel/net/mail.h>

#include "net/mail_message.h"
#include "support/message_box_recorder.h"
#include "support/temporary_folder.h"
#include "support/test.h"

namespace {

std::string TextOr(const char* text) {
    return text != nullptr ? text : "null";
}

TEST(MailMessage, HoldsEveryFieldAndNothingElse) {
    const TemporaryFolder folder;
    folder.Write(_T("figures.txt"), "1 2 3");
    const CString path = folder.Path(_T("figures.txt"));
    const CString body(_T('b'), 200000);
    quorvel::MailMessage message(
        {_T("Ann"), _T("ann@example.com"), _T("Subject"), body, path, _T("shown.txt")});
    const MapiMessage& mail = message.Get();
    EXPECT_EQ(TextOr(mail.lpszSubject), "Subject");
    EXPECT_EQ(TextOr(mail.lpszNoteText), std::string(200000, 'b'));
    EXPECT_EQ(TextOr(mail.lpszMessageType) + TextOr(mail.lpszDateReceived) +
                  TextOr(mail.lpszConversationID),
              "nullnullnull");
    EXPECT_EQ(mail.ulReserved + mail.flFlags, 0u);
    EXPECT_EQ(mail.lpOriginator, nullptr);
    ASSERT_EQ(mail.nRecipCount, 1u);
    const MapiRecipDesc& to = *mail.lpRecips;
    EXPECT_EQ(TextOr(to.lpszName) + ' ' + TextOr(to.lpszAddress), "Ann ann@example.com");
    EXPECT_EQ(to.ulRecipClass, 1u);
    EXPECT_EQ(to.ulReserved + to.ulEIDSize, 0u);
    EXPECT_EQ(to.lpEntryID, nullptr);
    ASSERT_EQ(mail.nFileCount, 1u);
    const MapiFileDesc& file = *mail.lpFiles;
    EXPECT_EQ(TextOr(file.lpszPathName), CStringA(path).GetString());
    EXPECT_EQ(TextOr(file.lpszFileName), "shown.txt");
    EXPECT_EQ(file.ulReserved + file.flFlags, 0u);
    EXPECT_EQ(file.nPosition, 0xFFFFFFFFu);
    EXPECT_EQ(file.lpFileType, nullptr);
}

TEST(MailMessage, AttachesOnlyAFileThatIsThere) {
    const TemporaryFolder folder;
    folder.Write(_T("a"), "");
    const CString file = folder.Path(_T("a")), none = folder.Path(_T("b")), self = folder.Path();
    const struct {
        const WCHAR* path;
        const WCHAR* name;
        const char* attachedAs; // null: no attachment
    } rows[] = {{file, _T("x"), "x"},     {file, nullptr, "null"},     {file, _T(""), ""},
                {none, _T("x"), nullptr}, {nullptr, _T("x"), nullptr}, {_T(""), _T("x"), nullptr},
                {self, _T("x"), nullptr}};
    for (const auto& row : rows) {
        quorvel::MailMessage message({_T("n"), _T("a"), _T("s"), _T("b"), row.path, row.name});
        const MapiMessage& mail = message.Get();
        EXPECT_EQ(mail.nFileCount, row.attachedAs != nullptr ? 1u : 0u);
        EXPECT_EQ(mail.lpFiles != nullptr, row.attachedAs != nullptr);
        if (mail.lpFiles != nullptr) {
            EXPECT_EQ(TextOr(mail.lpFiles->lpszFileName), row.attachedAs);
        }
    }
}

TEST(MailMessage, AbortAndFailedLogonCountAsSent) {
    const struct {
        ULONG result;
        bool isSent;
    } rows[] = {{0, true},  {1, true},   {2, false},           {3, true},
                {4, false}, {26, false}, {ULONG{0} - 1, false}};
    for (const auto& row : rows)
        EXPECT_EQ(quorvel::IsMailSent(row.result), row.isSent) << row.result;
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

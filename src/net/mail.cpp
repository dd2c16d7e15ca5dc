#include <quorvel/net/mail.h>

#include <quorvel/frame/message_box.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "net/mail_hand_over.h"
#include "net/mail_message.h"

namespace {

using quorvel::MailResult;

MailResult Send(const quorvel::MailTexts& texts, bool logsOn) {
    try {
        quorvel::MailMessage message(texts);
        return quorvel::HandOverMail(message.Get(), logsOn);
    } catch (CMemoryException* exception) {
        exception->Delete();
        return MailResult::NotSent;
    }
}

void Report(MailResult result, bool logsOn) {
    struct Row {
        MailResult result;
        UINT textId;
        UINT frameworkTextId;
    };
    static constexpr Row kRows[] = {
        {MailResult::NotLoaded, quorvel::kTextMailLoadFailed,
         quorvel::kTextFrameworkMailLoadFailed},
        {MailResult::InvalidLibrary, quorvel::kTextMailInvalidLibrary,
         quorvel::kTextFrameworkMailInvalidLibrary},
        {MailResult::NotSent, quorvel::kTextMailSendFailed, quorvel::kTextFrameworkMailSendFailed},
    };
    for (const Row& row : kRows) {
        if (row.result != result)
            continue;
        if (!logsOn && quorvel::kHasFrameworkMailMessages)
            AfxMessageBox(row.frameworkTextId);
        else
            AfxErrorMessageBox(row.textId, MB_OK | MB_ICONSTOP, 0);
    }
}

BOOL SendAndReport(const quorvel::MailTexts& texts, bool logsOn) {
    if (!quorvel::IsComplete(texts))
        return FALSE;
    const MailResult result = Send(texts, logsOn);
    Report(result, logsOn);
    return result == MailResult::Sent;
}

} // namespace

BOOL AfxSendMessage2(const WCHAR* name, const WCHAR* address, const WCHAR* subject,
                     const WCHAR* body, const WCHAR* attachmentPath, const WCHAR* attachmentName) {
    return SendAndReport({name, address, subject, body, attachmentPath, attachmentName}, true);
}

BOOL AfxSendMessage(const WCHAR* name, const WCHAR* address, const WCHAR* subject,
                    const WCHAR* body, const WCHAR* attachmentPath, const WCHAR* attachmentName) {
    return SendAndReport({name, address, subject, body, attachmentPath, attachmentName}, false);
}

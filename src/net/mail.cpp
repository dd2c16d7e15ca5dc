#include <quorvel/net/mail.h>

#include <quorvel/frame/message_box.h>
#include <quorvel/framework/app.h>
#include <quorvel/framework/exceptions.h>
#include <quorvel/res/message_ids.h>

#include "net/submit_mail.h"

#include <exception>

namespace {

using quorvel::MailResult;

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
    try {
        return quorvel::SubmitMail(texts, logsOn, Report);
    } catch (CMemoryException* exception) {
        exception->Delete();
    } catch (const std::exception&) {
        // No memory for the standard library either.
    }
    Report(MailResult::NotSent, logsOn);
    return FALSE;
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

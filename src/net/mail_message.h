// One message in the form that Simple MAPI takes.
#pragma once

#include <quorvel/framework/string.h>

#include "platform/mapi.h"

namespace quorvel {

// The arguments of AfxSendMessage and AfxSendMessage2; any may be null.
struct MailTexts {
    const WCHAR* name;
    const WCHAR* address;
    const WCHAR* subject;
    const WCHAR* body;
    const WCHAR* attachmentPath;
    const WCHAR* attachmentName;
};

// Whether the name, the address, the subject and the body are present.
bool IsComplete(const MailTexts& texts);

// Whether a result of MAPISendMail is a success.
bool IsMailSent(ULONG result);

// Owns the texts and the records that point to them.
class MailMessage {
public:
    // The texts must be complete. There is an attachment when its path names a file. Throws
    // CMemoryException.
    explicit MailMessage(const MailTexts& texts);
    MailMessage(const MailMessage&) = delete;
    MailMessage& operator=(const MailMessage&) = delete;

    MapiMessage& Get() { return m_message; }

private:
    CStringA m_name, m_address, m_subject, m_body, m_attachmentPath, m_attachmentName;
    MapiRecipDesc m_recipient = {};
    MapiFileDesc m_file = {};
    MapiMessage m_message = {};
};

} // namespace quorvel

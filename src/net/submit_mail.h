// Passes mail to the system.
#pragma once

#include "net/mail_message.h"

namespace quorvel {

enum class MailResult { Sent, NotLoaded, InvalidLibrary, NotSent };

// Shows the user why the message was not passed on.
typedef void (*MailReport)(MailResult result, bool logsOn);

// Passes the message on and waits for the mail program. With `logsOn`, mail must be configured, and
// the function opens a session for it. It reports a failure while the session and the mail library
// are still open. Throws CMemoryException and std::bad_alloc.
bool SubmitMail(const MailTexts& texts, bool logsOn, MailReport report);

// Whether failures without logging on use the framework's messages instead of the library's.
extern const bool kHasFrameworkMailMessages;

} // namespace quorvel

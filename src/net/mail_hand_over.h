// Passes mail to the system.
#pragma once

#include "platform/mapi.h"

namespace quorvel {

enum class MailResult { Sent, NotLoaded, InvalidLibrary, NotSent };

// Passes the message on and waits for the mail program. With `logsOn`, mail must be configured, and
// the function opens a session for it. Shows no box.
MailResult HandOverMail(MapiMessage& message, bool logsOn);

// Whether failures without logging on use the framework's messages instead of the library's.
extern const bool kHasFrameworkMailMessages;

} // namespace quorvel

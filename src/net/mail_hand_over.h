// The system's part of sending mail.
#pragma once

#include "platform/mapi.h"

namespace quorvel {

enum class MailResult { Sent, NotLoaded, InvalidLibrary, NotSent };

// Hands the message over and waits until the mail program is done with it. With `logsOn` mail must
// be configured, and a session is opened for it. Shows no box.
MailResult HandOverMail(MapiMessage& message, bool logsOn);

// Whether failures without logging on have the framework's messages and not the library's.
extern const bool kHasFrameworkMailMessages;

} // namespace quorvel

// Writes a message as a mailto address, which every mail program accepts.
#pragma once

#include "platform/mapi.h"

#include <string>

namespace quorvel {

// Contains the recipient, the subject and the body. Each text is escaped, so that it cannot act as
// an option or another field. A line break in the body is kept; all other control characters become
// blanks.
std::string MailtoOf(const MapiMessage& message);

// The name of an attachment: the last part of `name`, or the last part of `path` when `name` has no
// usable one.
std::string AttachmentNameOf(const std::string& name, const std::string& path);

} // namespace quorvel

// A message as an address of the scheme mailto, which any mail program takes.
#pragma once

#include "platform/mapi.h"

#include <string>

namespace quorvel {

// Holds the recipient, the subject and the body. Every text is escaped, so that it is neither an
// option nor another field; a line break in the body is kept, elsewhere control characters become
// blanks.
std::string MailtoOf(const MapiMessage& message);

// The name that an attachment gets: the last part of the one that is given, or that of the path
// when nothing usable is given.
std::string AttachmentNameOf(const std::string& name, const std::string& path);

} // namespace quorvel

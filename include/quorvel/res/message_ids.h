// The ids of the catalogue texts, by name.
//
// A host passes them to the message boxes and to CString::LoadString, and a language library
// translates them. Ids are a published contract: they are never renumbered or reused.
#pragma once

#include <quorvel/platform/platform.h>

namespace quorvel {

enum MessageId : UINT {
#define QUORVEL_TEXT(id, name, text) name = id,
#include <quorvel/res/messages.def>
#undef QUORVEL_TEXT
};

} // namespace quorvel

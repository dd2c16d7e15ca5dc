// The Korean code page 1361 (KS X 1001, annex 3): a syllable is composed of the numbers of its
// letters, and the other characters are those of the main part of KS X 1001 in other places.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel {

// Whether the byte is the first of two.
bool IsJohabLead(BYTE byte);

// The syllable, single letter or character of private use of a code; 0 when it is not one of them.
WCHAR JohabUnit(BYTE lead, BYTE trail);

// The code of the same character in code page 949; 0 when it is not a code of that part.
WORD JohabTo949(BYTE lead, BYTE trail);

} // namespace quorvel

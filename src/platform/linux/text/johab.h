// The Korean code page 1361 (KS X 1001, annex 3). A syllable is composed of the numbers of its
// letters. The other characters are those of the main part of KS X 1001 at different codes.
#pragma once

#include <quorvel/platform/linux_types.h>

namespace quorvel {

// Whether the byte is the first of two.
bool IsJohabLead(BYTE byte);

// The syllable, single letter or private-use character of a code; 0 for other codes.
WCHAR JohabUnit(BYTE lead, BYTE trail);

// The code of the same character in code page 949; 0 for codes outside that part.
WORD JohabTo949(BYTE lead, BYTE trail);

} // namespace quorvel

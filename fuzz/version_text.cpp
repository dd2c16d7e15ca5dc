// Version numbers as text. What is read writes itself as a text that reads the same, separators at
// the ends change nothing, and a refusal leaves 0.0.0.0.
#include <quorvel/types/version_number.h>

#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const CString text(Widened(FuzzInput(data, size).Rest()).c_str());
    DWORD parts[4] = {7, 7, 7, 7};
    const BOOL read =
        CVersionNumber::ParseVersionNumberString(text, parts[0], parts[1], parts[2], parts[3]);
    const CVersionNumber number(parts[0], parts[1], parts[2], parts[3]);
    for (const DWORD part : parts)
        Require(part <= (read ? 0x7fffffffu : 0u));
    Require(CVersionNumber(text) == number);
    Require(CVersionNumber(number.GetText()) == number);
    Require(CVersionNumber(_T(" ,.") + text + _T(". ")) == number);
    return 0;
}

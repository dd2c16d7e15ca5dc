// Names of encodings, as 16-bit units. An alias has its preferred name's code page.
#include <quorvel/util/text/encoding_names.h>

#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CString name;
    for (FuzzInput input(data, size); size >= 2; size -= 2)
        name.AppendChar(static_cast<WCHAR>(input.Value<std::uint16_t>()));

    UINT codePage = 1;
    const BOOL known = AfxCharacterEncodingToCodePage(name, codePage);
    Require(known ? codePage > 1 : codePage == 0);
    CString preferred(_T("#"));
    if (AfxGetPreferredCharacterEncodingName(name, preferred)) {
        UINT preferredCodePage = 0;
        Require(AfxCharacterEncodingToCodePage(preferred, preferredCodePage));
        Require(known && preferredCodePage == codePage);
    }
    return 0;
}

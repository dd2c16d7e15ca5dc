// Makes the calls that the bytes describe directly on one document and through a session on
// another. Results, text, index and positions must agree.
#include "xml/session_script.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (*SessionScript::Run({data, size}) != 0)
        std::abort();
    return 0;
}

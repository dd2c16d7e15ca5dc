// Makes the calls that the bytes describe directly on one document and through a session on
// another. Results, text, index and positions must agree.
#include "xml/session_script.h"

#include "fuzz_input.h"

FUZZ_TARGET(input) {
    Require(*SessionScript::Run(input.Block()) == 0);
}

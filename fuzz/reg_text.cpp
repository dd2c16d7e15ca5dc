// .reg text as the settings example reads it: accepted text is written and read back the same.
#include "settings/reg_text.h"

#include "fuzz_input.h"

FUZZ_TARGET(input) {
    std::vector<RegKey> keys;
    try {
        keys = ParseRegText(DecodeRegFile(input.Bytes()));
    } catch (const RegTextFault& fault) {
        Require(fault.line > 0);
        return;
    }
    const Wide written = FormatRegText(keys);
    Require(DecodeRegFile(EncodeRegFile(written)) == written);
    Require(ParseRegText(written) == keys);
}

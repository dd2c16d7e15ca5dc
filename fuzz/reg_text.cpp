// .reg text as the settings example reads it: accepted text is written and read back the same.
#include "settings/reg_text.h"

#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<RegKey> keys;
    try {
        keys = ParseRegText(DecodeRegFile(std::string(data, data + size)));
    } catch (const RegTextFault& fault) {
        Require(fault.line > 0);
        return 0;
    }
    const Wide written = FormatRegText(keys);
    Require(DecodeRegFile(EncodeRegFile(written)) == written);
    Require(ParseRegText(written) == keys);
    return 0;
}

// The readers of accelerator tables and menus, with files from strangers.
#include "keyboard/resource_reader.h"

#include "fuzz_input.h"

using namespace quorvel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // On the heap, so that a sanitizer finds overruns.
    const std::vector<BYTE> bytes(data, data + size);
    std::vector<ACCEL> entries(1, ACCEL{0xee, 1, 2});
    const bool isTable = ReadAccelerators(bytes, entries);
    Require(isTable ? entries.size() <= size / 8 : entries.size() == 1 && entries[0].fVirt == 0xee);
    std::map<unsigned int, CString> labels;
    ReadMenuLabels(bytes, labels);
    std::size_t length = 0;
    for (const auto& [command, label] : labels) {
        Require(!label.IsEmpty());
        length += static_cast<std::size_t>(label.GetLength());
    }
    Require(length * sizeof(WCHAR) <= size);
    return 0;
}

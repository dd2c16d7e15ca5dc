// The readers of accelerator tables and menus, with files from strangers.
#include "keyboard/resource_reader.h"

#include "fuzz_input.h"

FUZZ_TARGET(input) {
    const std::vector<BYTE> bytes = input.Block();
    std::vector<ACCEL> entries(1, ACCEL{0xee, 1, 2});
    Require(quorvel::ReadAccelerators(bytes, entries)
                ? entries.size() <= bytes.size() / 8
                : entries.size() == 1 && entries[0].fVirt == 0xee);
    std::map<unsigned int, CString> labels;
    quorvel::ReadMenuLabels(bytes, labels);
    std::size_t length = 0;
    for (const auto& [command, label] : labels) {
        Require(!label.IsEmpty());
        length += static_cast<std::size_t>(label.GetLength());
    }
    Require(length * sizeof(WCHAR) <= bytes.size());
}

#include <quorvel/keyboard/keyboard_mapping_scheme.h>

#include "platform/win32.h"

HACCEL CKeyboardMappingScheme::CreateAcceleratorTableW() const {
    std::vector<ACCEL> entries(static_cast<std::size_t>(GetAcceleratorEntries()));
    const int count = static_cast<int>(entries.size());
    if (count == 0 || !GetAccelerators(entries.data(), count))
        return nullptr;
    return ::CreateAcceleratorTableW(entries.data(), count);
}

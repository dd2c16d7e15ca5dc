#include "controls/text_copies.h"

#include <cstring>

namespace quorvel {

bool CopyTexts(const CString* texts, ULONG count, WCHAR** copies, ComponentAllocator allocate) {
    for (ULONG made = 0; made < count; ++made) {
        const SIZE_T size = (static_cast<SIZE_T>(texts[made].GetLength()) + 1) * sizeof(WCHAR);
        copies[made] = static_cast<WCHAR*>(allocate(size));
        if (copies[made] == nullptr) {
            while (made-- > 0) {
                CoTaskMemFree(copies[made]);
                copies[made] = nullptr;
            }
            return false;
        }
        std::memcpy(copies[made], texts[made].GetString(), size);
    }
    return true;
}

} // namespace quorvel

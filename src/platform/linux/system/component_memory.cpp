#include <quorvel/platform/component_model.h>

#include <cstdlib>

namespace quorvel::win32 {

LPVOID CoTaskMemAlloc(SIZE_T size) {
    return std::malloc(size);
}

void CoTaskMemFree(LPVOID memory) {
    std::free(memory);
}

} // namespace quorvel::win32

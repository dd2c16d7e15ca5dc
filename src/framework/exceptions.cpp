#include <quorvel/framework/exceptions.h>

#include <cstdlib>

void AfxThrowMemoryException() {
    std::abort();
}

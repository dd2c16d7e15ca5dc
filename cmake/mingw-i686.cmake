# The 32-bit Windows target: the distribution's i686 mingw-w64 with POSIX threads (std::thread).
set(QUORVEL_MINGW_CPU i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
# Excess precision of the x87 changes fractions and dates. Callbacks may start with a stack that is
# aligned to 4 bytes only; aligned SSE stores would then fault.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")

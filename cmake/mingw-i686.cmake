# The 32-bit Windows target: the distribution's i686 mingw-w64 with POSIX threads (std::thread).
set(QUORVEL_MINGW_CPU i686)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
# x87 excess precision changes fractions and dates, and callbacks may arrive with a stack aligned
# to 4 bytes only, which aligned SSE spills do not survive.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
set(CMAKE_C_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")

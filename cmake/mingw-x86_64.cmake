# The 64-bit Windows target, used where 32-bit Wine cannot be installed.
set(QUORVEL_MINGW_CPU x86_64)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
list(PREPEND CMAKE_CROSSCOMPILING_EMULATOR env WINERUN_ARCH=win64)

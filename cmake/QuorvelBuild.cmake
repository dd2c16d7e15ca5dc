# Compiler, warnings, output folders and third-party packages for all targets of the tree.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS ON) # for __int64 literals and copies of va_list in both compilers
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# DLLs are in the folder of the programs, which the Windows loader searches first.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # A base folder, and no directory hash, so that a second clone uses the cache of the first.
  set(launcher ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
    ${CCACHE_PROGRAM})
  set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

# Tests use ${Python3_EXECUTABLE}, not the target: the emulator of a cross build would run the target, and
# loses the exit code of programs that are not for Windows.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

# Flags for our own code only, not for third-party sources in the tree.
add_library(quorvel_flags INTERFACE)
target_compile_options(quorvel_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
target_include_directories(quorvel_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(WIN32)
  enable_language(RC)
  target_compile_definitions(quorvel_flags INTERFACE UNICODE _UNICODE NOMINMAX STRICT
    WINVER=0x0601 _WIN32_WINNT=0x0601 _WIN32_IE=0x0700)
  add_link_options(-shared-libgcc) # exceptions cross the DLL boundary only with a shared libgcc
elseif(NOT QUORVEL_FUZZ) # clang leaves its sanitizer runtime to the program
  add_link_options(-Wl,-z,defs,-z,now)
endif()

if(QUORVEL_SANITIZE)
  add_compile_options(-fsanitize=${QUORVEL_SANITIZE} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QUORVEL_SANITIZE})
  if(QUORVEL_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
  endif()
endif()

# Boost.Regex is used as headers only. The cross compiler must only see the Boost folder, not the whole
# include directory of the host.
find_path(QUORVEL_BOOST_INCLUDE boost/regex.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
add_library(quorvel_boost INTERFACE)
if(CMAKE_CROSSCOMPILING)
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/hostinc)
  file(CREATE_LINK ${QUORVEL_BOOST_INCLUDE}/boost ${PROJECT_BINARY_DIR}/hostinc/boost SYMBOLIC)
  target_include_directories(quorvel_boost SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/hostinc)
endif()

# quorvel_mingw_library(NAME): an imported target quorvel_NAME of a library that is not packaged for
# the Windows builds. setup.sh has usually built it; otherwise it is built here.
function(quorvel_mingw_library name)
  execute_process(COMMAND ${PROJECT_SOURCE_DIR}/tools/mingw_library.sh ${name} ${QUORVEL_MINGW_CPU}
    OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  add_library(quorvel_${name} STATIC IMPORTED GLOBAL)
  set_target_properties(quorvel_${name} PROPERTIES
    IMPORTED_LOCATION ${folder}/lib/lib${name}.a
    INTERFACE_INCLUDE_DIRECTORIES ${folder}/include)
endfunction()

# expat checks XML texts.
if(WIN32)
  quorvel_mingw_library(expat)
  target_compile_definitions(quorvel_expat INTERFACE XML_STATIC)
else()
  find_package(EXPAT REQUIRED)
  add_library(quorvel_expat ALIAS EXPAT::EXPAT)
endif()

# zlib and the writer of zip archives. The Windows library contains both.
if(WIN32)
  set(ZLIB_USE_STATIC_LIBS ON)
  find_package(ZLIB REQUIRED)
  quorvel_mingw_library(minizip)
else()
  find_package(ZLIB REQUIRED)
  find_library(QUORVEL_MINIZIP minizip REQUIRED)
  add_library(quorvel_minizip INTERFACE)
  target_link_libraries(quorvel_minizip INTERFACE ${QUORVEL_MINIZIP})
endif()

# libsodium verifies signatures.
if(WIN32)
  quorvel_mingw_library(sodium)
  target_compile_definitions(quorvel_sodium INTERFACE SODIUM_STATIC)
else()
  find_library(QUORVEL_SODIUM sodium REQUIRED)
  add_library(quorvel_sodium INTERFACE)
  target_link_libraries(quorvel_sodium INTERFACE ${QUORVEL_SODIUM})
endif()

# The libraries to link. System packages are private to src/platform.
add_library(quorvel_system INTERFACE)
if(WIN32)
  target_link_libraries(quorvel_system INTERFACE
    comctl32 comdlg32 shlwapi shell32 ole32 oleaut32 uuid version advapi32 gdi32 imm32
    user32 uxtheme ws2_32)
else()
  # Their headers: both are loaded when they are first called.
  find_package(ICU REQUIRED COMPONENTS uc i18n)
  find_package(SQLite3 REQUIRED)
  find_package(Threads REQUIRED)
  target_include_directories(quorvel_system INTERFACE ${ICU_INCLUDE_DIRS} ${SQLite3_INCLUDE_DIRS})
  target_link_libraries(quorvel_system INTERFACE Threads::Threads ${CMAKE_DL_LIBS})
endif()
target_link_libraries(quorvel_system INTERFACE quorvel_expat quorvel_minizip quorvel_sodium ZLIB::ZLIB)

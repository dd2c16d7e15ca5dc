# Tests run with a fixed locale and time zone: natively with env, under Wine with the runner, which has
# variables for them. Tests do not use the user's registry; under Wine the prefix has its own.
set(QUORVEL_TEST_LOCALE C.UTF-8)
set(QUORVEL_TEST_TIME_ZONE Europe/Berlin)
function(quorvel_fix_environment target locale time_zone)
  # The other arguments are more variables, as NAME=value.
  if(WIN32)
    set(launcher env WINERUN_LOCALE=${locale} WINERUN_TZ=${time_zone} ${ARGN}
      ${CMAKE_CROSSCOMPILING_EMULATOR})
  else()
    set(launcher env LC_ALL=${locale} TZ=${time_zone}
      QUORVEL_REGISTRY=${PROJECT_BINARY_DIR}/tests-registry.db ${ARGN})
  endif()
  set_target_properties(${target} PROPERTIES CROSSCOMPILING_EMULATOR "${launcher}")
endfunction()

# quorvel_test(NAME SOURCES ... [INTERNAL] [SERIAL] [LOCALE name] [TIME_ZONE name] [LABEL name]
#              [ENVIRONMENT NAME=value])
#
# One test program. It links the shared library, as a host does; with INTERNAL it links the static one, to
# use names that are not exported. With SERIAL no other test runs at the same time: the programs of a Wine
# prefix share the foreground window and the clipboard.
function(quorvel_test name)
  cmake_parse_arguments(arg "INTERNAL;SERIAL" "LOCALE;TIME_ZONE;LABEL;ENVIRONMENT" "SOURCES" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  if(arg_INTERNAL)
    target_link_libraries(${name} PRIVATE quorvel_static quorvel_system)
  else()
    target_link_libraries(${name} PRIVATE quorvel)
  endif()
  target_link_libraries(${name} PRIVATE quorvel_flags quorvel_test_support quorvel_boost gtest)
  target_compile_options(${name} PRIVATE -O0) # what is optimised is the library; tests build faster
  set(alone ${arg_SERIAL})
  if(arg_LOCALE)
    set(alone TRUE) # Wine writes the locale of a program into the prefix that all of them share
  else()
    set(arg_LOCALE ${QUORVEL_TEST_LOCALE})
  endif()
  if(NOT arg_TIME_ZONE)
    set(arg_TIME_ZONE ${QUORVEL_TEST_TIME_ZONE})
  endif()
  if(NOT arg_LABEL)
    set(arg_LABEL unit)
  endif()
  quorvel_fix_environment(${name} ${arg_LOCALE} ${arg_TIME_ZONE} ${arg_ENVIRONMENT})
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120
    TEST_PREFIX "${name}." WORKING_DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
    PROPERTIES TIMEOUT 120 LABELS ${arg_LABEL} RUN_SERIAL ${alone})
endfunction()

# quorvel_test_samples(TARGET): the folder of the sample modules of tests/data/pe (QUORVEL_SAMPLES), and
# that of the modules that a program for this processor can run (QUORVEL_OWN_SAMPLES).
function(quorvel_test_samples target)
  set(samples ${PROJECT_SOURCE_DIR}/tests/data/pe)
  if(WIN32)
    set(samples Z:${samples}) # Wine's name of the root
  endif()
  set(own ${samples})
  if(QUORVEL_MINGW_CPU STREQUAL x86_64)
    string(APPEND own /x86_64)
  endif()
  target_compile_definitions(${target} PRIVATE "QUORVEL_SAMPLES=_T(\"${samples}\")"
    "QUORVEL_OWN_SAMPLES=_T(\"${own}\")")
endfunction()

# quorvel_test_golden(TARGET): the folder of the expected results (QUORVEL_GOLDEN).
function(quorvel_test_golden target)
  set(folder ${PROJECT_SOURCE_DIR}/tests/data/golden)
  if(WIN32)
    set(folder Z:${folder}) # Wine's name of the root
  endif()
  target_link_libraries(${target} PRIVATE ZLIB::ZLIB)
  target_compile_definitions(${target} PRIVATE "QUORVEL_GOLDEN=\"${folder}\"")
endfunction()

# quorvel_fuzz(NAME SOURCE [DICTIONARY file])
#
# A fuzz target. With the preset linux-fuzz it is a libFuzzer program. In every other build it runs on
# fuzz/corpus/NAME as an ordinary test, so that old findings are tested again on both systems.
function(quorvel_fuzz name source)
  add_executable(fuzz_${name} ${source})
  target_include_directories(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(fuzz_${name} PRIVATE quorvel_static quorvel_system quorvel_flags
    quorvel_boost)
  quorvel_fix_environment(fuzz_${name} ${QUORVEL_TEST_LOCALE} ${QUORVEL_TEST_TIME_ZONE})
  if(QUORVEL_FUZZ)
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  else()
    target_sources(fuzz_${name} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/replay.cpp)
    add_test(NAME fuzz_${name} COMMAND fuzz_${name} ${PROJECT_SOURCE_DIR}/fuzz/corpus/${name})
    set_tests_properties(fuzz_${name} PROPERTIES TIMEOUT 300 LABELS fuzz)
  endif()
endfunction()

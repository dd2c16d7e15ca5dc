# quorvel_component(FOLDER [SOURCES ...] [LINUX_SOURCES ...] [WINDOWS_SOURCES ...]
#                   [USES component ...])
#
# Declares one component of the library: compiles its sources once, adds them to the shared and the
# static library, and writes the components that it may use for the layer check. Sources are relative to
# the calling folder; FOLDER is relative to src/ and to include/quorvel/, and its last part is the
# component's name.
set_property(GLOBAL PROPERTY QUORVEL_COMPONENT_LINES "")
function(quorvel_component folder)
  get_filename_component(name ${folder} NAME)
  cmake_parse_arguments(arg "" "" "SOURCES;LINUX_SOURCES;WINDOWS_SOURCES;USES" ${ARGN})
  set(sources ${arg_SOURCES})
  if(WIN32)
    list(APPEND sources ${arg_WINDOWS_SOURCES})
  else()
    list(APPEND sources ${arg_LINUX_SOURCES})
  endif()
  string(JOIN " " uses ${arg_USES})
  set_property(GLOBAL APPEND PROPERTY QUORVEL_COMPONENT_LINES
    "component ${name} ${folder} uses ${uses}\n")
  if(NOT sources)
    return()
  endif()
  add_library(quorvel_objects_${name} OBJECT ${sources})
  target_link_libraries(quorvel_objects_${name} PRIVATE quorvel_flags quorvel_headers quorvel_system
    quorvel_boost)
  target_compile_definitions(quorvel_objects_${name} PRIVATE QUORVEL_BUILDING)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT WIN32)
    # The loader never unloads a library that has symbols unique to the process.
    target_compile_options(quorvel_objects_${name} PRIVATE -fno-gnu-unique)
  endif()
  set_property(GLOBAL APPEND PROPERTY QUORVEL_OBJECT_LIBRARIES quorvel_objects_${name})
endfunction()

# The mingw tools compile resources in every build: a language library has the same format on both
# systems, and the Linux library embeds the same image that the DLL contains.
if(WIN32)
  set(triple ${QUORVEL_MINGW_TRIPLE})
else()
  set(triple i686-w64-mingw32)
endif()
find_program(QUORVEL_WINDRES ${triple}-windres REQUIRED)
find_program(QUORVEL_RESOURCE_LD ${triple}-ld REQUIRED)
find_program(QUORVEL_RESOURCE_CPP ${triple}-cpp-posix NAMES ${triple}-cpp-posix ${triple}-cpp
  REQUIRED)

# quorvel_resource_dll(OUTPUT SCRIPT [DEPENDS ...]): a DLL with resources and without code.
function(quorvel_resource_dll output script)
  cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
  get_filename_component(name ${output} NAME_WE)
  get_filename_component(folder ${output} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})
  set(object ${CMAKE_CURRENT_BINARY_DIR}/${name}.res.o)
  add_custom_command(OUTPUT ${output}
    COMMAND ${QUORVEL_WINDRES} -c 65001 --preprocessor=${QUORVEL_RESOURCE_CPP}
      --preprocessor-arg=-xc --preprocessor-arg=-DRC_INVOKED
      -I ${PROJECT_SOURCE_DIR}/include -I ${PROJECT_SOURCE_DIR}/src
      -I ${PROJECT_BINARY_DIR}/include -i ${script} -o ${object}
    COMMAND ${QUORVEL_RESOURCE_LD} -shared --entry=0 --no-insert-timestamp -o ${output} ${object}
    DEPENDS ${script} ${arg_DEPENDS}
    COMMENT "Resource library ${name}" VERBATIM)
endfunction()

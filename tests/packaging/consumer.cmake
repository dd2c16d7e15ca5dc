# Installs the build, moves the install tree to another place, and builds and runs the consumer project
# with it: with the CMake package, and on Linux also with pkg-config.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}): ${ARGN}\n${output}")
  endif()
  message(STATUS "${output}")
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/staged)
file(RENAME ${WORK}/staged ${WORK}/moved)
file(GLOB_RECURSE package ${WORK}/moved/*/quorvelConfig.cmake)
cmake_path(GET package PARENT_PATH package)
set(arguments -S ${SOURCE} -B ${WORK}/build -G Ninja -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
  -DCMAKE_CXX_FLAGS=${FLAGS} -Dquorvel_DIR=${package})
if(TOOLCHAIN)
  list(APPEND arguments -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN})
else()
  list(APPEND arguments -DCMAKE_CXX_COMPILER=${COMPILER})
endif()
run(${CMAKE_COMMAND} ${arguments})
run(${CMAKE_COMMAND} --build ${WORK}/build)

if(TOOLCHAIN)
  file(GLOB dlls ${WORK}/moved/bin/*.dll)
  file(COPY ${dlls} DESTINATION ${WORK}/build)
  if(TOOLCHAIN MATCHES x86_64)
    set(ENV{WINERUN_ARCH} win64)
  endif()
  cmake_path(GET TOOLCHAIN PARENT_PATH cmake_folder)
  run(${cmake_folder}/../tools/winerun.sh ${WORK}/build/consumer.exe)
else()
  run(${WORK}/build/consumer)
  file(GLOB_RECURSE pc ${WORK}/moved/*/quorvel.pc)
  cmake_path(GET pc PARENT_PATH folder)
  run(env PKG_CONFIG_PATH=${folder} sh -c "${COMPILER} -std=c++20 ${FLAGS} \
    ${SOURCE}/main.cpp -o ${WORK}/build/with_pkg_config \
    $(pkg-config --cflags --libs quorvel) -Wl,-rpath,$(pkg-config --variable=libdir quorvel)")
  run(${WORK}/build/with_pkg_config)
endif()

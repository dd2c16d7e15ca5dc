# Moves an install tree to another place, and builds and runs the consumer project with it: with the
# CMake package, and on Linux also with pkg-config. The tree comes from the install rules or, with
# PACKAGES, from unpacked packages.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}): ${ARGN}\n${output}")
  endif()
  message(STATUS "${output}")
endfunction()

file(REMOVE_RECURSE ${WORK})
if(NOT PACKAGES)
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/staged)
  file(RENAME ${WORK}/staged ${WORK}/moved)
  set(tree ${WORK}/moved)
elseif(TOOLCHAIN)
  run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -B ${WORK})
  file(GLOB archive ${WORK}/quorvel-*.zip)
  file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${WORK}/unpacked)
  file(GLOB tree ${WORK}/unpacked/*)
  run(sh -c "cd ${tree} && ls bin/Quorvel.dll bin/libstdc++-6.dll bin/libgcc_s_*.dll \
    bin/libwinpthread-1.dll lib/libQuorvel.dll.a lib/quorvel/languages/Quorvel_DEU.dll \
    debug/Quorvel.dll.debug doc/README.md doc/CHANGELOG.md doc/THIRD_PARTY.md \
    doc/notices/gcc-*.txt doc/notices/mingw-w64-common.txt doc/notices/libz-*.txt \
    doc/notices/libminizip-dev.txt doc/notices/libexpat1-dev.txt doc/notices/libsodium-dev.txt")
  set(ENV{WINEPATH} "Z:/nowhere") # the run-time DLLs of the compiler are not to be found
else()
  run(${CMAKE_CPACK_COMMAND} --config ${BUILD}/CPackConfig.cmake -B ${WORK})
  # Both into one fresh root.
  file(GLOB library ${WORK}/libquorvel1_*.deb)
  file(GLOB development ${WORK}/libquorvel-dev_*.deb)
  file(MAKE_DIRECTORY ${WORK}/root)
  run(dpkg-deb -x ${library} ${WORK}/root)
  set(tree ${WORK}/root/usr)
  run(sh -c "cd ${tree} && ls lib/libquorvel.so.1 lib/quorvel/languages/Quorvel_DEU.dll && \
    cd share/doc/libquorvel1 && ls README.md CHANGELOG.md THIRD_PARTY.md")
  if(EXISTS ${tree}/include OR EXISTS ${tree}/lib/libquorvel.so)
    message(FATAL_ERROR "the library's package has files for development")
  endif()
  run(dpkg-deb -x ${development} ${WORK}/root)
  run(sh -c "dpkg-deb -f ${library} Depends | grep libicu | grep libsqlite3")
  run(sh -c "dpkg-deb -f ${development} Depends | grep 'libquorvel1 (= '")
endif()

file(GLOB_RECURSE package ${tree}/*/quorvelConfig.cmake)
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
  file(GLOB dlls ${tree}/bin/*.dll)
  file(COPY ${dlls} DESTINATION ${WORK}/build)
  if(TOOLCHAIN MATCHES x86_64)
    set(ENV{WINERUN_ARCH} win64)
  endif()
  cmake_path(GET TOOLCHAIN PARENT_PATH cmake_folder)
  run(${cmake_folder}/../tools/winerun.sh ${WORK}/build/consumer.exe)
else()
  run(${WORK}/build/consumer)
  file(GLOB_RECURSE pc ${tree}/*/quorvel.pc)
  cmake_path(GET pc PARENT_PATH folder)
  run(env PKG_CONFIG_PATH=${folder} sh -c "${COMPILER} -std=c++20 ${FLAGS} \
    ${SOURCE}/main.cpp -o ${WORK}/build/with_pkg_config \
    $(pkg-config --cflags --libs quorvel) -Wl,-rpath,$(pkg-config --variable=libdir quorvel)")
  run(${WORK}/build/with_pkg_config)
endif()

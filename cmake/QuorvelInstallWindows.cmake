# What a Windows program needs in addition to the DLL: the compiler's run-time DLLs, the notices of what the DLL
# contains, and zlib, whose header a public one includes. The debug symbols get a file of their own.
if(QUORVEL_MINGW_CPU STREQUAL i686)
  set(compiler_package i686)
  set(unwinder libgcc_s_dw2-1)
else()
  set(compiler_package x86-64)
  set(unwinder libgcc_s_seh-1)
endif()
foreach(name ${unwinder} libstdc++-6 libwinpthread-1)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}.dll
    OUTPUT_VARIABLE dll OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(NOT IS_ABSOLUTE ${dll})
    message(FATAL_ERROR "${CMAKE_CXX_COMPILER} has no ${name}.dll")
  endif()
  file(REAL_PATH ${dll} dll)
  install(PROGRAMS ${dll} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library)
  # Nine tenths of libstdc++-6.dll are symbols.
  install(CODE "execute_process(COMMAND ${CMAKE_STRIP} --strip-unneeded
    \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/${name}.dll COMMAND_ERROR_IS_FATAL ANY)"
    COMPONENT library)
endforeach()

# The notices of the packages that THIRD_PARTY.md names.
foreach(notice libexpat1-dev libminizip-dev libsodium-dev libz-mingw-w64-dev
    gcc-mingw-w64-${compiler_package}-posix-runtime mingw-w64-common)
  install(FILES /usr/share/doc/${notice}/copyright DESTINATION doc/notices RENAME ${notice}.txt
    COMPONENT library)
endforeach()

install(FILES ${ZLIB_INCLUDE_DIRS}/zlib.h ${ZLIB_INCLUDE_DIRS}/zconf.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zlib COMPONENT development)
install(FILES ${ZLIB_LIBRARIES} DESTINATION ${CMAKE_INSTALL_LIBDIR} RENAME libz.a
  COMPONENT development)

# A debugger finds the file by the name that the DLL keeps, in the DLL's folder or its own.
install(CODE "
  set(dll \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/Quorvel.dll)
  set(symbols \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/debug/Quorvel.dll.debug)
  file(MAKE_DIRECTORY \$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/debug)
  execute_process(COMMAND ${CMAKE_OBJCOPY} --only-keep-debug \${dll} \${symbols}
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_OBJCOPY} --strip-unneeded --add-gnu-debuglink=\${symbols} \${dll}
    COMMAND_ERROR_IS_FATAL ANY)
" COMPONENT library)

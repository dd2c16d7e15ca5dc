# Install rules, the CMake package and the pkg-config file. There are two components: `library` is for
# users of programs, `development` for their makers.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS quorvel quorvel_headers EXPORT quorvelTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
if(WIN32)
  set(other_system PATTERN "linux_*.h" EXCLUDE)
else()
  set(other_system PATTERN "win" EXCLUDE)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/quorvel TYPE INCLUDE COMPONENT development
  FILES_MATCHING PATTERN "*.h" PATTERN "*.def" ${other_system})
install(FILES ${QUORVEL_LANGUAGE_LIBRARIES} DESTINATION ${QUORVEL_LANGUAGE_DIR} COMPONENT library)
if(WIN32)
  set(doc_folder doc)
else()
  set(doc_folder share/doc/libquorvel${PROJECT_VERSION_MAJOR})
endif()
install(FILES README.md CHANGELOG.md THIRD_PARTY.md DESTINATION ${doc_folder} COMPONENT library)
if(WIN32)
  include(QuorvelInstallWindows)
endif()
install(EXPORT quorvelTargets NAMESPACE quorvel::
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/quorvel COMPONENT development)

configure_package_config_file(cmake/quorvelConfig.cmake.in
  ${PROJECT_BINARY_DIR}/quorvelConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/quorvel)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/quorvelConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/quorvelConfig.cmake
  ${PROJECT_BINARY_DIR}/quorvelConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/quorvel COMPONENT development)
# The pkg-config file derives its prefix from its own location, so an install tree can be moved.
file(RELATIVE_PATH QUORVEL_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" QUORVEL_PC_PREFIX "${QUORVEL_PC_PREFIX}")
configure_file(cmake/quorvel.pc.in ${PROJECT_BINARY_DIR}/quorvel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quorvel.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)

# install: headers, the shared library, a CMake package config for
# find_package(OxClassLib) and a pkg-config file.
include(CMakePackageConfigHelpers)

install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/OxClassLib
        FILES_MATCHING PATTERN "*.h")
install(TARGETS OxClassLib EXPORT OxClassLibTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT OxClassLibTargets NAMESPACE OxClassLib::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OxClassLib)
configure_package_config_file(cmake/OxClassLibConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/OxClassLibConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OxClassLib)
write_basic_package_version_file(
  ${CMAKE_CURRENT_BINARY_DIR}/OxClassLibConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/OxClassLibConfig.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/OxClassLibConfigVersion.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/OxClassLib)
configure_file(cmake/OxClassLib.pc.in ${CMAKE_CURRENT_BINARY_DIR}/OxClassLib.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/OxClassLib.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
if(OX_BUILD_TOOLS)
  install(TARGETS oxtool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

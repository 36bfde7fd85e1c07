# What an installation holds: the workbench, the native library with its headers, its CMake package
# and its pkg-config file, documents and samples.  CPack makes a Debian package of it.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATADIR}/doc/tarvordp)
set(_package LibTarvoRdpCI)
set(_headers ${CMAKE_INSTALL_INCLUDEDIR}/${_package})
set(_cmake_folder ${CMAKE_INSTALL_LIBDIR}/cmake/${_package})

# The names by which other projects, and this one's samples, link the library.
set_target_properties(tarvo_library PROPERTIES EXPORT_NAME ${_package} OUTPUT_NAME tarvordpci)
set_target_properties(tarvo_services PROPERTIES EXPORT_NAME services
  OUTPUT_NAME tarvordpci-services)

install(TARGETS tarvo_library tarvo_services EXPORT ${_package} INCLUDES DESTINATION ${_headers}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS tarvordp RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# A program includes "printer/clsUtilImp.h" and "services/all.h", as the project itself does.
set(_public_headers FILES_MATCHING PATTERN "*.h"
  PATTERN "com" EXCLUDE PATTERN "win32" EXCLUDE PATTERN "posix" EXCLUDE)
install(DIRECTORY src/ DESTINATION ${_headers} ${_public_headers})
install(DIRECTORY services DESTINATION ${_headers} ${_public_headers})
install(FILES ${PROJECT_BINARY_DIR}/src/generated/frame/version.h DESTINATION ${_headers}/frame)

install(EXPORT ${_package} NAMESPACE ${_package}:: DESTINATION ${_cmake_folder}
  FILE ${_package}Targets.cmake)
configure_package_config_file(cmake/${_package}Config.cmake.in
  ${PROJECT_BINARY_DIR}/${_package}Config.cmake INSTALL_DESTINATION ${_cmake_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/${_package}ConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/${_package}Config.cmake
  ${PROJECT_BINARY_DIR}/${_package}ConfigVersion.cmake DESTINATION ${_cmake_folder})
# An installation may be moved, or made under another prefix than was said when it was configured.
file(RELATIVE_PATH _up_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/tarvordpci.pc.in ${PROJECT_BINARY_DIR}/tarvordpci.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/tarvordpci.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES tools/tarvordp/tarvordp.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES tools/tarvordp/completion/tarvordp
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(DIRECTORY tools/tarvordp/profiles DESTINATION ${CMAKE_INSTALL_DATADIR}/tarvordp)
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs samples DESTINATION ${CMAKE_INSTALL_DOCDIR}
  PATTERN "__pycache__" EXCLUDE)

set(CPACK_PACKAGE_NAME tarvordp)
set(CPACK_PACKAGE_CONTACT "The LibTarvoRdpCI developers <tarvordp@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "reports on line printers from text templates")
set(CPACK_PACKAGE_DESCRIPTION
"The workbench prints reports from a template and a job file, shows printed bytes as pages, and
finds mistakes in templates before they are printed. The library does the same inside C++
programs, through CUPS or into a file.")
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS fonts-liberation)
# The static library needs these to be linked.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libcups2-dev, g++, cmake, pkg-config")
set(CPACK_STRIP_FILES ON)
include(CPack)

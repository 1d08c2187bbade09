# SPDX-License-Identifier: MIT
# What `cmake --install` puts in place (GNUInstallDirs layout, any prefix):
# the library, its public headers, its CMake package and pkg-config file, the
# varnock tool and its manual page, the Python module and the SQLite
# collation extension.
# Debian names the documentation folder after the package.
set(CMAKE_INSTALL_DOCDIR share/doc/varnock CACHE PATH "Documentation (LICENSE, README.md)")
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(VARNOCK_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Varnock)
set(VARNOCK_PYTHON_INSTALL_DIR lib/python3/dist-packages CACHE STRING
  "Where the Python module is installed, under the prefix (Debian's layout)")

install(TARGETS varnock EXPORT VarnockTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(EXPORT VarnockTargets NAMESPACE Varnock:: DESTINATION ${VARNOCK_CMAKE_DIR}
  COMPONENT development)
configure_package_config_file(cmake/VarnockConfig.cmake.in
  ${PROJECT_BINARY_DIR}/VarnockConfig.cmake INSTALL_DESTINATION ${VARNOCK_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VarnockConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VarnockConfig.cmake
  ${PROJECT_BINARY_DIR}/VarnockConfigVersion.cmake
  DESTINATION ${VARNOCK_CMAKE_DIR} COMPONENT development)

# What a static libvarnock.a needs at the program's link. Named as libraries
# rather than packages: unixODBC's odbc.pc asks for libltdl's development
# files, which a static link against the driver manager's shared library
# does not need.
set(VARNOCK_PC_LIBS_PRIVATE "-lsqlite3 -lodbc")
if(SYSTEMD_FOUND)
  string(APPEND VARNOCK_PC_LIBS_PRIVATE " -lsystemd")
endif()
string(APPEND VARNOCK_PC_LIBS_PRIVATE " -pthread")
file(RELATIVE_PATH VARNOCK_PC_PREFIX_FROM_PCDIR
  /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(cmake/varnock.pc.in ${PROJECT_BINARY_DIR}/varnock.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/varnock.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# The tool finds the library beside its own prefix, wherever that is.
set_target_properties(varnock_cli PROPERTIES
  INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
install(TARGETS varnock_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
install(FILES ${PROJECT_BINARY_DIR}/tools/varnock/varnock.1
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)

install(TARGETS varnock_sqlite_extension
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/varnock COMPONENT library)

if(VARNOCK_BUILD_PYTHON)
  install(TARGETS varnock_python LIBRARY DESTINATION ${VARNOCK_PYTHON_INSTALL_DIR}
    COMPONENT python)
  install(FILES python/varnock.pyi DESTINATION ${VARNOCK_PYTHON_INSTALL_DIR} COMPONENT python)
endif()

install(FILES LICENSE README.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT library)

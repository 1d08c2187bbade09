# SPDX-License-Identifier: MIT
# `cpack -G DEB` from a build configured for /usr (the "package" preset):
# one package, varnock, with the library, headers, CMake and pkg-config
# files, the tool and its manual page, and the Python module for Debian's
# python3. Library dependencies are found by dpkg-shlibdeps.
set(CPACK_PACKAGE_NAME varnock)
set(CPACK_PACKAGE_VENDOR "The Varnock developers")
set(CPACK_PACKAGE_CONTACT "The Varnock developers <varnock@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
  "record classes of the user register Tolvane_Register")
set(CPACK_PACKAGE_DESCRIPTION
  "Eleven record classes over the register's tables, each checking every value \
assigned to it and reaching the register through SQLite, ODBC (SQL Server, \
PostgreSQL) or the embedded default; with a late-bound object host, the varnock \
command-line tool and a Python module.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(VARNOCK_BUILD_PYTHON)
  # The module is built for one minor version of Python.
  string(REPLACE "." ";" python_parts "${VARNOCK_PYTHON_VERSION}")
  list(GET python_parts 0 python_major)
  list(GET python_parts 1 python_minor)
  math(EXPR python_next_minor "${python_minor} + 1")
  set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "python3 (>= ${VARNOCK_PYTHON_VERSION}), python3 (<< ${python_major}.${python_next_minor})")
endif()
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libsqliteodbc, odbc-postgresql, tdsodbc")
include(CPack)

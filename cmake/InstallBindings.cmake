# Where the extension for SQLite and the Python package go: components that only their own packages take.

# Not beside the libraries that programs link.
install(TARGETS sqlite LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/tallyfin99 COMPONENT sqlite3-tallyfin99 EXCLUDE_FROM_ALL)
tallyfin_package(sqlite3-tallyfin99 libs "works out United States paychecks of 1999 in SQLite
An extension for SQLite: table-valued functions that work out what is
withheld from United States paychecks in tax year 1999.")
# It calls SQLite through the table that SQLite hands over, so nothing links it.
set(CPACK_DEBIAN_SQLITE3-TALLYFIN99_PACKAGE_DEPENDS "libsqlite3-0 (>= 3.31)")

if(TARGET python)
  # The module is for one version of Python.
  execute_process(COMMAND /usr/bin/python3 -c "import sys; print(f'python3 (>= 3.{sys.version_info.minor}), python3 (<< 3.{sys.version_info.minor + 1})')"
    OUTPUT_VARIABLE interpreter OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(python lib/python3/dist-packages/tallyfin99)
  install(TARGETS python LIBRARY DESTINATION ${python} COMPONENT python3-tallyfin99 EXCLUDE_FROM_ALL)
  install(DIRECTORY src/python/tallyfin99/ DESTINATION ${python} COMPONENT python3-tallyfin99 EXCLUDE_FROM_ALL
    FILES_MATCHING PATTERN "*.py" PATTERN "*.pyi" PATTERN "py.typed")
  tallyfin_package(python3-tallyfin99 python "works out United States paychecks of 1999 in Python
A Python package that works out what is withheld from United States
paychecks in tax year 1999, for NumPy and pandas, and lazily for Dask." pybind11)
  set(CPACK_DEBIAN_PYTHON3-TALLYFIN99_PACKAGE_DEPENDS "${interpreter}, python3-numpy, python3-pandas")
  set(CPACK_DEBIAN_PYTHON3-TALLYFIN99_PACKAGE_SUGGESTS "python3-dask")
endif()

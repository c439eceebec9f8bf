# Where libtallyfin99 and what builds against it go: two components that only their own packages take.
include(CMakePackageConfigHelpers)

set(runtime COMPONENT libtallyfin99-1 EXCLUDE_FROM_ALL)
set(development COMPONENT libtallyfin99-dev EXCLUDE_FROM_ALL)
set(config ${CMAKE_INSTALL_LIBDIR}/cmake/tallyfin99)
set(made ${PROJECT_BINARY_DIR}/libtallyfin99)

install(TARGETS libtallyfin99 EXPORT tallyfin99
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} ${runtime}
  NAMELINK_COMPONENT libtallyfin99-dev
  PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} ${development})
install(EXPORT tallyfin99 NAMESPACE tallyfin99:: DESTINATION ${config} ${development})
file(WRITE ${made}/tallyfin99-config.cmake "include(\"\${CMAKE_CURRENT_LIST_DIR}/tallyfin99.cmake\")\n")
write_basic_package_version_file(${made}/tallyfin99-config-version.cmake COMPATIBILITY SameMajorVersion)
configure_file(src/library/c/tallyfin99.pc.in ${made}/tallyfin99.pc @ONLY)
install(FILES ${made}/tallyfin99-config.cmake ${made}/tallyfin99-config-version.cmake DESTINATION ${config}
  ${development})
install(FILES ${made}/tallyfin99.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig ${development})
install(FILES ${PROJECT_BINARY_DIR}/compressed/tallyfin99.3.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man3 ${development})

tallyfin_package(libtallyfin99-1 libs "works out United States paychecks of 1999 (C library)
A library for C and C++ that works out what is withheld from United
States paychecks in tax year 1999." json)
file(WRITE ${made}/shlibs "libtallyfin99 ${PROJECT_VERSION_MAJOR} libtallyfin99-1 (>= ${PROJECT_VERSION})\n")
file(WRITE ${made}/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBTALLYFIN99-1_PACKAGE_CONTROL_EXTRA ${made}/shlibs ${made}/triggers)
set(CPACK_DEBIAN_LIBTALLYFIN99-1_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
tallyfin_package(libtallyfin99-dev libdevel "works out United States paychecks of 1999 (development files)
The header, the files for pkg-config and CMake and the manual page of a
library for C and C++ that works out what is withheld from United States
paychecks in tax year 1999.")
set(CPACK_DEBIAN_LIBTALLYFIN99-DEV_PACKAGE_DEPENDS "libtallyfin99-1 (= ${PROJECT_VERSION})")

# Where everything goes, and the Debian package.
include(GNUInstallDirs)
include(cmake/BillOfMaterials.cmake)

install(TARGETS tallyfin99-script tallyfin99-batch RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TALLYFIN_DESKTOP)
  install(TARGETS tallyfin99 RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES packaging/tallyfin99.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
endif()
install(FILES help/Tallyfin.hlp help/W4.hlp DESTINATION ${CMAKE_INSTALL_DATADIR}/tallyfin99/help)
install(FILES packaging/tallyfin99.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo
  RENAME io.github.tallyfin.Tallyfin99.metainfo.xml)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES src/ui/qt/pictures/tallyfin99.svg DESTINATION ${icons}/scalable/apps)
foreach(side 48 128)
  install(FILES packaging/icons/tallyfin99-${side}.png DESTINATION ${icons}/${side}x${side}/apps RENAME tallyfin99.png)
endforeach()

# tallyfin_compress(FILE NAME): makes compressed/NAME.gz of FILE, the same bytes at each build.
function(tallyfin_compress file name)
  set(compressed ${PROJECT_BINARY_DIR}/compressed/${name}.gz)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${file})
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/compressed)
  execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/${file} OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
# tallyfin_install_compressed(FILE FOLDER NAME): installs FILE as NAME.gz.
function(tallyfin_install_compressed file folder name)
  tallyfin_compress(${file} ${name})
  install(FILES ${PROJECT_BINARY_DIR}/compressed/${name}.gz DESTINATION ${folder})
endfunction()

foreach(program tallyfin99 tallyfin99-script tallyfin99-batch)
  tallyfin_install_compressed(packaging/${program}.1 ${CMAKE_INSTALL_MANDIR}/man1 ${program}.1)
endforeach()
tallyfin_compress(packaging/tallyfin99.3 tallyfin99.3)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/tallyfin99)
tallyfin_install_compressed(packaging/changelog ${documents} changelog)
set(library_packages "")
# tallyfin_package(COMPONENT SECTION DESCRIPTION PARTS...): the package of a component of that name, with its copyright,
# changelog and bill of materials. Its DEPENDS and the like are set by the caller, under CPACK_DEBIAN_ and the name in capitals.
macro(tallyfin_package component section description)
  list(APPEND library_packages ${component})
  string(TOUPPER ${component} name)
  set(CPACK_DEBIAN_${name}_PACKAGE_NAME ${component})
  set(CPACK_DEBIAN_${name}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${name}_PACKAGE_DEPENDS "")
  set(CPACK_DEBIAN_${name}_PACKAGE_RECOMMENDS "")
  set(CPACK_COMPONENT_${name}_DESCRIPTION "${description}")
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${component} RENAME copyright COMPONENT ${component}
    EXCLUDE_FROM_ALL)
  tallyfin_bill_of_materials(${PROJECT_BINARY_DIR}/bills/${component}/bill.spdx.json ${component} ${PROJECT_VERSION} ${ARGN})
  install(FILES ${PROJECT_BINARY_DIR}/compressed/changelog.gz ${PROJECT_BINARY_DIR}/bills/${component}/bill.spdx.json
    packaging/third-party-notices DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${component} COMPONENT ${component} EXCLUDE_FROM_ALL)
endmacro()
include(cmake/InstallLibrary.cmake)
include(cmake/InstallBindings.cmake)
install(FILES LICENSE DESTINATION ${documents} RENAME copyright)
# The web app's folder has a bill of its own.
tallyfin_bill_of_materials(${PROJECT_BINARY_DIR}/bills/tallyfin99/bill.spdx.json tallyfin99 ${PROJECT_VERSION} json)
install(FILES packaging/README packaging/third-party-notices ${PROJECT_BINARY_DIR}/bills/tallyfin99/bill.spdx.json
  DESTINATION ${documents})

# The tour of the screens as a page for the browser.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/tour.md)
execute_process(COMMAND cmark ${PROJECT_SOURCE_DIR}/docs/tour.md OUTPUT_VARIABLE tour COMMAND_ERROR_IS_FATAL ANY)
configure_file(packaging/index.html.in ${PROJECT_BINARY_DIR}/index.html @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/index.html DESTINATION ${documents})
install(DIRECTORY docs/pictures DESTINATION ${documents})

# The page for a web server, where tools/web --build has made it.
install(DIRECTORY build/web DESTINATION ${CMAKE_INSTALL_DATADIR}/tallyfin99 OPTIONAL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tallyfin99)
set(CPACK_PACKAGE_VENDOR "The Tallyfin 99 authors")
set(CPACK_PACKAGE_CONTACT "The Tallyfin 99 authors <tallyfin99@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # it would stand before the own one of each package
set(CPACK_COMPONENT_UNSPECIFIED_DESCRIPTION "works out United States paycheck withholding of 1999
Tallyfin 99 works out what is withheld from one United States paycheck
in tax year 1999, and what remains: federal withholding by the percentage
method, FICA, the withholding of forty states and the District of
Columbia, a local tax and the net check. It brings the Form W-4
worksheets, a raise calculator, a worksheet for several checks, an
analysis and a printed report.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
# One package for each component: the programs, the C library, what builds against it, and the bindings.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Unspecified ${library_packages})
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME tallyfin99)
set(CPACK_STRIP_FILES ON)
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/FinishPackages.cmake)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ
    WORLD_EXECUTE)
include(CPack)

# Run by CPack behind its packages. CPack gives a package with a library scripts that call ldconfig; Debian's dpkg does that
# by the trigger that the package has, and wants no such scripts.
foreach(package ${CPACK_PACKAGE_FILES})
  if(NOT package MATCHES "libtallyfin99-[0-9]")
    continue()
  endif()
  set(folder ${package}.unpacked)
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${folder} COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE ${folder}/DEBIAN/postinst ${folder}/DEBIAN/postrm)
  execute_process(COMMAND dpkg-deb --root-owner-group --build ${folder} ${package} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${folder})
endforeach()

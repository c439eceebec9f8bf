# Run by CPack behind its packages: packs each again, so that the same files give the same bytes. All files get the time of the
# release, and the list of checksums an order. CPack also gives a package with a library scripts that call ldconfig; Debian's
# dpkg does that by the trigger that the package has, and wants no such scripts.
include(${CMAKE_CURRENT_LIST_DIR}/BillOfMaterials.cmake)

tallyfin_release_epoch(epoch)
foreach(package ${CPACK_PACKAGE_FILES})
  set(folder ${package}.unpacked)
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${folder} COMMAND_ERROR_IS_FATAL ANY)
  if(package MATCHES "libtallyfin99-[0-9]")
    file(REMOVE ${folder}/DEBIAN/postinst ${folder}/DEBIAN/postrm)
  endif()
  execute_process(COMMAND sort --key 2 --output ${folder}/DEBIAN/md5sums ${folder}/DEBIAN/md5sums COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND find ${folder} -exec touch --no-dereference --date @${epoch} {} + COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${epoch}
    dpkg-deb --root-owner-group --build ${folder} ${package} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${folder})
endforeach()

# Run by cpack on the tree that becomes a Debian package, in which it puts what only such a package has: the licence as
# copyright file, the changelog, and manual pages that are compressed, all of them the same in each run. Everybody may read
# it all, whatever the umask of who builds the package.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(debianFolder ${CMAKE_CURRENT_LIST_DIR}/../data/debian)
file(COPY ${debianFolder}/copyright ${debianFolder}/changelog DESTINATION ${share}/doc/sumlet)
file(GLOB pages ${share}/man/man1/*.1)
execute_process(COMMAND gzip -9 --no-name ${share}/doc/sumlet/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND chmod -R u=rwX,go=rX ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr COMMAND_ERROR_IS_FATAL ANY)

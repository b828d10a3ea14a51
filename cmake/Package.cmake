# What `cpack` makes of a build: a disk image on macOS, an archive elsewhere. The folder debian/ describes the Debian package.
set(CPACK_PACKAGE_NAME sumlet)
set(CPACK_PACKAGE_VENDOR "The Sumlet developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "calculator whose document is plain text")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(APPLE)
  set(CPACK_GENERATOR DragNDrop)
elseif(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ)
endif()

include(CPack)

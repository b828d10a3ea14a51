# What `cpack` makes of a build: a Debian package, a disk image on macOS, an archive on Windows.
set(CPACK_PACKAGE_NAME sumlet)
set(CPACK_PACKAGE_VENDOR "The Sumlet developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "calculator whose document is plain text")
set(CPACK_PACKAGE_DESCRIPTION [[
Type an equation, one step a line, and the result stands at the bottom of
the window a quarter of a second later. A line is an expression, an
assignment or a comment; the language knows powers, remainders, some twenty
functions and fractions.
.
Open equations come back at the next start, and templates keep those that
are needed again. The command sumlet-eval evaluates text files without a
window.]])
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(APPLE)
  set(CPACK_GENERATOR DragNDrop)
elseif(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianTree.cmake)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Sumlet developers <developers@sumlet.example>")
  set(CPACK_DEBIAN_PACKAGE_SECTION math)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  if(SUMLET_BUILD_GUI)
    set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${SUMLET_MAKER_SITE}/sumlet.html)
    set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)  # opens the web pages of the Help menu
    set(CPACK_DEBIAN_PACKAGE_SUGGESTS libplist-utils)  # converts older settings that are binary
  endif()
endif()

include(CPack)

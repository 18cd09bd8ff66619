# The Debian package of both programs and what comes with them: scripts/package builds it. Its maintainer scripts are
# none, so that nothing of a person's is touched when it comes or goes.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvel)
set(CPACK_PACKAGE_CONTACT "the Orvel authors <authors@orvel.invalid>" CACHE STRING "Who answers for the package")
set(CPACK_COMPONENTS_ALL program)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME orvel)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)

# Files that name others do so by the path that they will have, wherever they are put together.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/debian_documents.cmake)
set(CPACK_ORVEL_SOURCE ${CMAKE_SOURCE_DIR})

set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-inter)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-noto-cjk, fonts-noto-color-emoji, fonts-noto-core, libicu${ORVEL_ICU_VERSION}")
string(CONCAT CPACK_COMPONENT_PROGRAM_DESCRIPTION
  "Turns a small saved design, such as a number, a ring, a short list, a note or\n"
  "a countdown, into a card on the desktop, on Wayland and X11.\n"
  "\n"
  "The orvel command keeps the designs, draws them into pictures, and prints them\n"
  "as words for status bars.")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "${CPACK_COMPONENT_PROGRAM_DESCRIPTION}")
string(TOLOWER "${PROJECT_DESCRIPTION}" CPACK_PACKAGE_DESCRIPTION_SUMMARY)

include(CPack)

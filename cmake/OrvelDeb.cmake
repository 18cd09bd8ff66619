# The Debian packages: one of the command, the card's program and what comes with them, and one of the designer, which
# most people want and a server doesn't. scripts/package builds them. Their maintainer scripts are none, so that nothing of
# a person's is touched when they come or go.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvel)
set(CPACK_PACKAGE_CONTACT "the Orvel authors <authors@orvel.invalid>" CACHE STRING "Who answers for the package")
set(CPACK_COMPONENTS_ALL program designer)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME orvel)
set(CPACK_DEBIAN_DESIGNER_PACKAGE_NAME orvel-designer)
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
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS fonts-inter)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS
  "orvel-designer, fonts-noto-cjk, fonts-noto-color-emoji, fonts-noto-core, libicu${ORVEL_ICU_VERSION}")
# The first lines are the summaries.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
string(CONCAT CPACK_COMPONENT_PROGRAM_DESCRIPTION
  "small designed cards on the desktop\n"
  "Turns small saved designs, such as a number to follow or the days left until\n"
  "a date, into cards on the desktop, on Wayland and X11.\n"
  "\n"
  "The orvel command keeps the designs, draws them into pictures, and prints them\n"
  "as words for status bars.")
# They share formats and the renderer's interface.
set(CPACK_DEBIAN_DESIGNER_PACKAGE_DEPENDS "orvel (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DESIGNER_PACKAGE_RECOMMENDS xdg-utils)
string(CONCAT CPACK_COMPONENT_DESIGNER_DESCRIPTION
  "designer of Orvel's cards, a page in the browser\n"
  "Shows each change of a design as the desktop will draw the card, with a launcher\n"
  "entry and the orvel command's design.\n"
  "\n"
  "It is served to this machine alone, and asks nothing of any network.")

include(CPack)

# The packages: one of the command, the card's program and what comes with them, and one of the designer, which most
# people want and a server doesn't. scripts/package builds them. What they run when they are installed is nothing, so that
# nothing of a person's is touched when they come or go.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvel)
set(CPACK_PACKAGE_VENDOR "the Orvel authors")
set(CPACK_PACKAGE_CONTACT "the Orvel authors <authors@orvel.invalid>" CACHE STRING "Who answers for the package")
set(CPACK_COMPONENTS_ALL program designer)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)

# Files that name others do so by the path that they will have, wherever they are put together.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/package_documents.cmake)
set(CPACK_ORVEL_SOURCE ${CMAKE_SOURCE_DIR})
set(CPACK_ORVEL_STRIP ${CMAKE_STRIP})

set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(orvel_program_summary "small designed cards on the desktop")
string(CONCAT orvel_program_description
  "Turns small saved designs, such as a number to follow or the days left until\n"
  "a date, into cards on the desktop, on Wayland and X11.\n"
  "\n"
  "The orvel command keeps the designs, draws them into pictures, and prints them\n"
  "as words for status bars.")
set(orvel_designer_summary "designer of Orvel's cards, a page in the browser")
string(CONCAT orvel_designer_description
  "Shows each change of a design as the desktop will draw the card, with a\n"
  "launcher entry and the orvel command's design.\n"
  "\n"
  "It is served to this machine alone, and asks nothing of any network.")

# Debian's. The first line of a description is the summary.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
if(CMAKE_CROSSCOMPILING AND CMAKE_SYSTEM_PROCESSOR STREQUAL "aarch64")
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE arm64)
endif()
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION "${orvel_program_summary}\n${orvel_program_description}")
set(CPACK_COMPONENT_DESIGNER_DESCRIPTION "${orvel_designer_summary}\n${orvel_designer_description}")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME orvel)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS fonts-inter)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS
  "orvel-designer, fonts-noto-cjk, fonts-noto-color-emoji, fonts-noto-core, libicu${ORVEL_ICU_VERSION}")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS "curl, git, python3")  # for some of the feeds' templates
set(CPACK_DEBIAN_DESIGNER_PACKAGE_NAME orvel-designer)
# They share formats and the renderer's interface.
set(CPACK_DEBIAN_DESIGNER_PACKAGE_DEPENDS "orvel (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DESIGNER_PACKAGE_RECOMMENDS xdg-utils)

# RPM's, with Fedora's names of the fonts. rpmbuild finds the libraries, by their own names.
set(CPACK_RPM_COMPONENT_INSTALL ON)
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_LICENSE MIT)
set(CPACK_RPM_PACKAGE_GROUP "User Interface/Desktops")
set(CPACK_RPM_PROGRAM_PACKAGE_NAME orvel)
set(CPACK_RPM_PROGRAM_PACKAGE_SUMMARY "Small designed cards on the desktop")
set(CPACK_RPM_PROGRAM_PACKAGE_DESCRIPTION "${orvel_program_description}")
set(CPACK_RPM_PROGRAM_PACKAGE_REQUIRES rsms-inter-fonts)
set(CPACK_RPM_PROGRAM_PACKAGE_RECOMMENDS
  "orvel-designer, google-noto-sans-fonts, google-noto-sans-cjk-fonts, google-noto-color-emoji-fonts, libicu")
set(CPACK_RPM_PROGRAM_PACKAGE_SUGGESTS "curl, git-core, python3")
set(CPACK_RPM_DESIGNER_PACKAGE_NAME orvel-designer)
set(CPACK_RPM_DESIGNER_PACKAGE_SUMMARY "Designer of Orvel's cards, a page in the browser")
set(CPACK_RPM_DESIGNER_PACKAGE_DESCRIPTION "${orvel_designer_description}")
set(CPACK_RPM_DESIGNER_PACKAGE_REQUIRES "orvel = ${PROJECT_VERSION}")
set(CPACK_RPM_DESIGNER_PACKAGE_RECOMMENDS xdg-utils)
# Folders that other packages own. The templates are for people to copy, and each names what it needs.
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
  /usr/share/applications /usr/share/metainfo /usr/share/bash-completion /usr/share/bash-completion/completions
  /usr/share/fish /usr/share/fish/vendor_completions.d /usr/share/zsh /usr/share/zsh/vendor-completions
  /usr/share/icons /usr/share/icons/hicolor /usr/share/systemd /usr/share/systemd/user /usr/share/locale
  /usr/share/man /usr/share/man/man1 /usr/share/man/man5 /usr/libexec)
set(CPACK_RPM_SPEC_MORE_DEFINE
  "%global __requires_exclude_from ^/usr/share/orvel/feeds/.*$\n%global _build_id_links none\n%global packager ${CPACK_PACKAGE_CONTACT}")
foreach(language IN LISTS ORVEL_LANGUAGES)
  list(APPEND CPACK_RPM_PROGRAM_USER_FILELIST "%lang(${language}) /usr/share/locale/${language}/LC_MESSAGES/orvel.mo")
endforeach()
string(TIMESTAMP orvel_date "%a %b %d %Y" UTC)
set(CPACK_RPM_CHANGELOG_FILE ${CMAKE_BINARY_DIR}/rpm_changelog)
file(WRITE ${CPACK_RPM_CHANGELOG_FILE}
  "* ${orvel_date} ${CPACK_PACKAGE_CONTACT} - ${PROJECT_VERSION}-1\n- CHANGELOG.md of the sources lists what is new.\n")

include(CPack)

# The documents, installed beside each other as they lie here, so that their links lead somewhere.

install(FILES LICENSE README.md CONTRIBUTING.md TYPE DOC)
install(DIRECTORY docs TYPE DOC FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.svg")
install(FILES docs/orvel-widget.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${ORVEL_ICON_PACKAGES}/framework7-icons/LICENSE TYPE DOC RENAME LICENSE.framework7-icons)
install(FILES ${ORVEL_ICON_PACKAGES}/@phosphor-icons/web/LICENSE TYPE DOC RENAME LICENSE.phosphor-icons)

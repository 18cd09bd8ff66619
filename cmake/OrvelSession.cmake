# What starts the cards and their feeds with a session: systemd user units, an autostart entry, and the script that the
# entry runs. None does anything before a person turns it on. The entry is a model that `orvel autostart on` copies.

install(PROGRAMS session/start-card DESTINATION libexec/orvel)

# The files name programs by full path, which is known when they are installed. systemd looks for users' units in
# "share" below /usr, /usr/local and ~/.local alike; in "lib" it wouldn't find those of ~/.local.
install(CODE "include(\"${CMAKE_SOURCE_DIR}/packaging/entry_words.cmake\")")
install(CODE "set(orvel_session \"${CMAKE_SOURCE_DIR}/session\")\nset(orvel_made \"${CMAKE_BINARY_DIR}/session\")")
install(CODE [[
  set(orvel ${CMAKE_INSTALL_PREFIX}/bin/orvel)
  string(REPLACE "%" "%%" orvel_for_unit "${orvel}")
  orvel_entry_text(orvel_for_try_exec "${orvel}")
  orvel_entry_word(start_for_exec "${CMAKE_INSTALL_PREFIX}/libexec/orvel/start-card")
  foreach(unit orvel-feeds orvel-widget)
    configure_file("${orvel_session}/${unit}.service.in" "${orvel_made}/${unit}.service" @ONLY)
    file(INSTALL "${orvel_made}/${unit}.service" DESTINATION "${CMAKE_INSTALL_PREFIX}/share/systemd/user")
  endforeach()
  file(INSTALL "${orvel_session}/orvel-feeds.path" DESTINATION "${CMAKE_INSTALL_PREFIX}/share/systemd/user")
  configure_file("${orvel_session}/orvel-widget.desktop.in" "${orvel_made}/orvel-widget.desktop" @ONLY)
  file(INSTALL "${orvel_made}/orvel-widget.desktop" DESTINATION "${CMAKE_INSTALL_PREFIX}/share/orvel")
]])

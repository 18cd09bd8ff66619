# The manual page and the shells' completions, made from the command's own description by a program of this build.

orvel_floor(outline
  SOURCES
    tools/bash_completion.cpp
    tools/command_outline.cpp
    tools/fish_completion.cpp
    tools/manual_page.cpp
    tools/zsh_completion.cpp
  FLOORS foundation
  PRIVATE CLI11::CLI11)

add_executable(orvel_documentation tools/documentation_main.cpp)
target_link_libraries(orvel_documentation PRIVATE orvel_tools orvel_outline CLI11::CLI11)
orvel_compile_options(orvel_documentation)

set(documentation ${CMAKE_BINARY_DIR}/documentation)
set(documents ${documentation}/orvel.1 ${documentation}/orvel.bash ${documentation}/_orvel ${documentation}/orvel.fish)
add_custom_command(
  OUTPUT ${documents}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${documentation}
  COMMAND orvel_documentation ${documentation}
  DEPENDS orvel_documentation
  COMMENT "Writing the manual page and the completions"
  VERBATIM)
add_custom_target(documentation ALL DEPENDS ${documents})

# Where the shells look without being told, under /usr.
install(FILES ${documentation}/orvel.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${documentation}/orvel.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME orvel)
install(FILES ${documentation}/_orvel DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${documentation}/orvel.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)
install(FILES docs/orvel-widget.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

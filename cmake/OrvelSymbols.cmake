# The symbols' icon fonts, which come from npm packages, and the tables of their names become part of the programs.

set(ORVEL_ICON_PACKAGES ${CMAKE_SOURCE_DIR}/node_modules CACHE PATH "Where scripts/setup installs the icon fonts")

function(orvel_embed_symbols target)
  set(first ${ORVEL_ICON_PACKAGES}/framework7-icons/fonts)
  set(second ${ORVEL_ICON_PACKAGES}/@phosphor-icons/web/src)
  set(names ${CMAKE_SOURCE_DIR}/platform/symbols/symbol_names)
  set(codes ${CMAKE_CURRENT_BINARY_DIR}/symbol_codes.txt)
  set(script ${CMAKE_SOURCE_DIR}/cmake/icon_codes.cmake)
  set(style_sheet ${second}/regular/style.css)
  set(files
    FIRST_FONT ${first}/Framework7Icons-Regular.ttf
    SECOND_FONT ${second}/regular/Phosphor.ttf
    SECOND_FONT_FILLED ${second}/fill/Phosphor-Fill.ttf
    SECOND_CODES ${codes}
    RESPELLED ${names}/respelled.txt
    SECOND_SET ${names}/second_set.txt
    DRAWN ${names}/drawn.txt
    COMPOSED ${names}/composed.txt
    SYNONYMS ${names}/synonyms.txt
    ENCLOSABLE ${names}/enclosable.txt)

  add_custom_command(
    OUTPUT ${codes}
    COMMAND ${CMAKE_COMMAND} -D STYLE_SHEET=${style_sheet} -D OUTPUT=${codes} -P ${script}
    DEPENDS ${style_sheet} ${script}
    VERBATIM)
  while(files)
    list(POP_FRONT files name file)
    if(NOT EXISTS ${file} AND NOT file STREQUAL codes)
      message(FATAL_ERROR "${file} is missing; scripts/setup installs it")
    endif()
    list(APPEND definitions "ORVEL_${name}=\"${file}\"")
    list(APPEND depends ${file})
  endwhile()
  set(assembly ${CMAKE_SOURCE_DIR}/platform/symbols/symbol_data.S)
  target_sources(${target} PRIVATE ${assembly} ${codes})
  set_source_files_properties(${assembly} PROPERTIES
    COMPILE_DEFINITIONS "${definitions}"
    OBJECT_DEPENDS "${depends}")
endfunction()

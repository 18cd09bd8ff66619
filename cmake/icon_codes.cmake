# Lists the icons of a font with their code points, sorted lines such as "acorn eb9a", from its style sheet:
#   cmake -D STYLE_SHEET=... -D OUTPUT=... -P icon_codes.cmake
file(READ ${STYLE_SHEET} style_sheet)
string(REGEX MATCHALL "\\.ph-[a-z0-9-]+:before {[^}]*content: \"[^\"]*" rules "${style_sheet}")
list(LENGTH rules count)
if(count LESS 1000)
  message(FATAL_ERROR "${STYLE_SHEET}: only ${count} icons found; has its form changed?")
endif()
list(TRANSFORM rules REPLACE "\\.ph-([a-z0-9-]+):before.*content: \".([0-9a-f]+)" "\\1 \\2\n")
list(SORT rules)
list(JOIN rules "" lines)
file(WRITE ${OUTPUT} "${lines}")

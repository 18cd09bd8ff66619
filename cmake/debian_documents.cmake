# Gives the installed documents the form that Debian asks for: one file of all licences, the rest compressed. Run by
# CPack before it closes the package.
find_program(GZIP gzip REQUIRED)

file(GLOB_RECURSE licences ${CPACK_TEMPORARY_DIRECTORY}/*/LICENSE*)
list(SORT licences)
list(GET licences 0 own)
cmake_path(GET own PARENT_PATH documents)
set(copyright "Orvel, and the icon fonts that are part of its programs, each with its licence.\n")
foreach(licence IN LISTS licences)
  cmake_path(GET licence EXTENSION LAST_ONLY font)
  string(REPLACE "." "" font "${font}")
  if(NOT font)
    set(font orvel)
  endif()
  file(READ ${licence} text)
  string(APPEND copyright "\n--- ${font}\n\n${text}")
endforeach()
file(REMOVE ${licences})
file(WRITE ${documents}/copyright "${copyright}")

# The newest section of the changelog, in Debian's form.
file(READ ${CPACK_ORVEL_SOURCE}/CHANGELOG.md changes)
string(REGEX REPLACE "^# [^\n]*\n+## [^\n]*\n+" "" changes "${changes}")
string(REGEX REPLACE "\n## .*" "" changes "${changes}")
string(REGEX REPLACE "\n+$" "" changes "${changes}")
string(REPLACE "\n  " "\n    " changes "${changes}")
string(REPLACE "\n- " "\n  * " changes "\n${changes}")
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${documents}/changelog
  "orvel (${CPACK_PACKAGE_VERSION}) stable; urgency=low\n${changes}\n\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")

file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*.1 ${CPACK_TEMPORARY_DIRECTORY}/*.5)
file(CHMOD ${documents}/copyright ${documents}/changelog PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
execute_process(COMMAND ${GZIP} -9n ${documents}/changelog ${pages} COMMAND_ERROR_IS_FATAL ANY)

# The designer's package has the same two.
set(others ${CPACK_TEMPORARY_DIRECTORY}/designer/usr/share/doc/orvel-designer)
file(COPY ${documents}/copyright ${documents}/changelog.gz DESTINATION ${others})

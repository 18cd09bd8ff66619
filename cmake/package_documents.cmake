# Gives the files of a package the form that distributions ask for: manual pages compressed, programs without what only
# tells of their compiler, and for Debian one file of all licences and a changelog. Run by CPack before it closes the
# packages.
find_program(GZIP gzip REQUIRED)
find_program(AWK awk REQUIRED)

file(GLOB_RECURSE programs ${CPACK_TEMPORARY_DIRECTORY}/*/usr/bin/*
  ${CPACK_TEMPORARY_DIRECTORY}/*/usr/libexec/orvel/orvel-* ${CPACK_TEMPORARY_DIRECTORY}/*/orvel-renderer.so)
execute_process(COMMAND ${CPACK_ORVEL_STRIP} --remove-section=.comment ${programs} COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*.1 ${CPACK_TEMPORARY_DIRECTORY}/*.5)
execute_process(COMMAND ${GZIP} -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)

if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

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

execute_process(
  COMMAND ${AWK} -f ${CPACK_ORVEL_SOURCE}/cmake/debian_changelog.awk ${CPACK_ORVEL_SOURCE}/CHANGELOG.md
  OUTPUT_VARIABLE changes COMMAND_ERROR_IS_FATAL ANY)
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
file(WRITE ${documents}/changelog
  "orvel (${CPACK_PACKAGE_VERSION}) stable; urgency=low\n\n${changes}\n -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
file(CHMOD ${documents}/copyright ${documents}/changelog PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
execute_process(COMMAND ${GZIP} -9n ${documents}/changelog COMMAND_ERROR_IS_FATAL ANY)

# The designer's package has the same two.
set(others ${CPACK_TEMPORARY_DIRECTORY}/designer/usr/share/doc/orvel-designer)
file(COPY ${documents}/copyright ${documents}/changelog.gz DESTINATION ${others})

# What lintian mistakes, with the reasons.
foreach(package program designer)
  set(name orvel)
  if(package STREQUAL "designer")
    set(name orvel-designer)
  endif()
  file(COPY ${CPACK_ORVEL_SOURCE}/packaging/lintian/${name}
    DESTINATION ${CPACK_TEMPORARY_DIRECTORY}/${package}/usr/share/lintian/overrides
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
    DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
endforeach()

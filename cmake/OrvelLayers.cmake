# How this project's libraries are built: one static library for each folder of the product, named after the folder.

# Headers of a layer that is installed lie here, by the same paths.
set(ORVEL_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/orvel)

function(orvel_compile_options target)
  target_compile_options(${target} PRIVATE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 warns of overlapping copies inside std::string's own operator+ (its bug 105651).
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
  endif()
  if(ORVEL_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Werror>)
  endif()
  if(ORVEL_SANITIZE)
    target_compile_options(${target} PRIVATE
      $<$<COMPILE_LANGUAGE:CXX>:-fsanitize=${ORVEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer>)
    target_link_options(${target} PUBLIC -fsanitize=${ORVEL_SANITIZE})
  endif()
endfunction()

# The folder of the list that calls this, as a static library orvel_NAME. USES names the layers whose headers it
# includes, each by its name here; scripts/check-includes holds the sources to that line. PRIVATE are libraries that
# only its source files see.
function(orvel_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;USES;PRIVATE" ${ARGN})
  add_library(orvel_${name} STATIC ${LAYER_SOURCES})
  target_include_directories(orvel_${name} PUBLIC
    $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}> $<INSTALL_INTERFACE:${ORVEL_HEADERS}>)
  target_compile_features(orvel_${name} PUBLIC cxx_std_20)
  list(TRANSFORM LAYER_USES PREPEND orvel_)
  target_link_libraries(orvel_${name} PUBLIC ${LAYER_USES} PRIVATE ${LAYER_PRIVATE})
  orvel_compile_options(orvel_${name})
endfunction()

# Writes what the targets below a folder link as lines "FOLDER: TARGET ...", for scripts/check-includes.
function(orvel_write_layers file)
  set(lines "")
  set(folders ${CMAKE_SOURCE_DIR})
  while(folders)
    list(POP_FRONT folders folder)
    get_property(below DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    list(APPEND folders ${below})
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    file(RELATIVE_PATH place ${CMAKE_SOURCE_DIR} ${folder})
    foreach(target IN LISTS targets)
      get_target_property(type ${target} TYPE)
      if(type MATCHES "LIBRARY|EXECUTABLE")
        get_target_property(links ${target} LINK_LIBRARIES)
        list(FILTER links INCLUDE REGEX "^orvel_")
        list(JOIN links " " links)
        string(APPEND lines "${place} ${target}: ${links}\n")
      endif()
    endforeach()
  endwhile()
  file(WRITE ${file} "${lines}")
endfunction()

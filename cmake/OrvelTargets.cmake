# How this project's libraries are built.

# Headers of a floor that is installed lie here, by the same paths.
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

# One floor of the house: a static library orvel_NAME. FLOORS are those it stands on; PRIVATE are libraries that only
# its source files see.
function(orvel_floor name)
  cmake_parse_arguments(FLOOR "" "" "SOURCES;FLOORS;PRIVATE" ${ARGN})
  add_library(orvel_${name} STATIC ${FLOOR_SOURCES})
  target_include_directories(orvel_${name} PUBLIC
    $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}> $<INSTALL_INTERFACE:${ORVEL_HEADERS}>)
  target_compile_features(orvel_${name} PUBLIC cxx_std_20)
  list(TRANSFORM FLOOR_FLOORS PREPEND orvel_)
  target_link_libraries(orvel_${name} PUBLIC ${FLOOR_FLOORS} PRIVATE ${FLOOR_PRIVATE})
  orvel_compile_options(orvel_${name})
endfunction()

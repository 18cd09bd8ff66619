# What a release is hardened with: addresses that differ with each start, tables of the linker that can't be written,
# checked copies, guarded stacks, and jumps that only land where the compiler meant them to. The other builds have their
# own checks, which some of these would hide.

include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT ORVEL_SANITIZE)
  set(fortify 2)
  if((CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
     OR (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 9))
    set(fortify 3)
  endif()
  # Some distributions' compilers define it by themselves.
  add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${fortify} -fstack-protector-strong -fstack-clash-protection)
  add_link_options(LINKER:-z,relro,-z,now,-z,noexecstack)

  if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i.86)$")
    add_compile_options(-fcf-protection)
  elseif(CMAKE_SYSTEM_PROCESSOR MATCHES "^(aarch64|arm64)$")
    add_compile_options(-mbranch-protection=standard)
  endif()
endif()

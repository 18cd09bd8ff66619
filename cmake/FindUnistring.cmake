# Finds GNU libunistring, which has no package file of its own: Unistring::Unistring. Installed with Orvel's package,
# whose static libraries need it.

find_path(Unistring_INCLUDE_DIR unistr.h)
find_library(Unistring_LIBRARY unistring)
mark_as_advanced(Unistring_INCLUDE_DIR Unistring_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Unistring REQUIRED_VARS Unistring_LIBRARY Unistring_INCLUDE_DIR)

if(Unistring_FOUND AND NOT TARGET Unistring::Unistring)
  add_library(Unistring::Unistring UNKNOWN IMPORTED)
  set_target_properties(Unistring::Unistring PROPERTIES
    IMPORTED_LOCATION ${Unistring_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${Unistring_INCLUDE_DIR})
endif()

# Adds the client code of Wayland interfaces to a target, made by wayland-scanner from their descriptions.

pkg_check_modules(WAYLAND REQUIRED IMPORTED_TARGET wayland-client wayland-cursor)
pkg_get_variable(WAYLAND_SCANNER wayland-scanner wayland_scanner)
pkg_get_variable(WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)

function(orvel_wayland_interfaces target)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/wayland)
  file(MAKE_DIRECTORY ${folder})
  foreach(description IN LISTS ARGN)
    get_filename_component(name ${description} NAME_WE)
    foreach(kind client-header private-code)
      if(kind STREQUAL "private-code")
        set(made ${folder}/${name}.c)
      else()
        set(made ${folder}/${name}.h)
      endif()
      add_custom_command(
        OUTPUT ${made}
        COMMAND ${WAYLAND_SCANNER} ${kind} ${description} ${made}
        DEPENDS ${description})
      target_sources(${target} PRIVATE ${made})
    endforeach()
  endforeach()
  target_include_directories(${target} SYSTEM PRIVATE ${folder})
  target_link_libraries(${target} PRIVATE PkgConfig::WAYLAND)
endfunction()

# The renderer as a module that programs load when they draw. They find it by their run path: beside themselves where
# they are built, and in a folder of this project's own where they are installed.

set(ORVEL_MODULES ${CMAKE_INSTALL_LIBDIR}/orvel)
set(CMAKE_BUILD_RPATH $ORIGIN $ORIGIN/..)
set(CMAKE_INSTALL_RPATH $ORIGIN/../${ORVEL_MODULES})

# The floors are part of programs and of the module alike. Nothing of theirs is visible but the module's one function.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

function(orvel_renderer_module)
  add_library(orvel-renderer MODULE platform/render/module.cpp)
  set_target_properties(orvel-renderer PROPERTIES PREFIX "" INSTALL_RPATH "")
  target_link_libraries(orvel-renderer PRIVATE orvel_render)
  orvel_compile_options(orvel-renderer)
endfunction()

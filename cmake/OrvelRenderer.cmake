# The renderer as a module that programs load when they draw: from beside themselves where they are built, and from a
# folder of this project's own where they are installed. They know both by themselves, so no program or library has a
# run path.

set(ORVEL_MODULES ${CMAKE_INSTALL_LIBDIR}/orvel)
set(CMAKE_SKIP_RPATH ON)

# The layers are part of programs and of the module alike. Nothing of theirs is visible but the module's one function.
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

# For programs that are built in another folder than the module and draw.
function(orvel_renderer_beside)
  file(CREATE_LINK ${CMAKE_BINARY_DIR}/orvel-renderer.so ${CMAKE_CURRENT_BINARY_DIR}/orvel-renderer.so SYMBOLIC)
endfunction()

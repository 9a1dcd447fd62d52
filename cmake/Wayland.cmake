# vexmoor_wayland_protocols(<target> <name>=<file>...)
# Adds generated protocol code to a target, with headers named "<name>-client-protocol.h". Relative
# files are those of the package wayland-protocols.
pkg_check_modules(Wayland REQUIRED IMPORTED_TARGET wayland-client wayland-cursor)
pkg_get_variable(WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)
find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)

function(vexmoor_wayland_protocols target)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/protocols)
  file(MAKE_DIRECTORY ${folder})
  foreach(protocol IN LISTS ARGN)
    string(REGEX MATCH "^([^=]*)=(.*)$" _ ${protocol})
    set(name ${CMAKE_MATCH_1})
    set(file ${CMAKE_MATCH_2})
    if(NOT IS_ABSOLUTE ${file})
      set(file ${WAYLAND_PROTOCOLS}/${file})
    endif()
    set(header ${folder}/${name}-client-protocol.h)
    set(code ${folder}/${name}-protocol.c)
    add_custom_command(OUTPUT ${header}
      COMMAND ${WAYLAND_SCANNER} client-header ${file} ${header} DEPENDS ${file} VERBATIM)
    add_custom_command(OUTPUT ${code}
      COMMAND ${WAYLAND_SCANNER} private-code ${file} ${code} DEPENDS ${file} VERBATIM)
    target_sources(${target} PRIVATE ${header} ${code})
    set_source_files_properties(${header} ${code} PROPERTIES SKIP_AUTOMOC ON)
  endforeach()
  target_include_directories(${target} SYSTEM PUBLIC ${folder})
  target_link_libraries(${target} PUBLIC PkgConfig::Wayland)
endfunction()

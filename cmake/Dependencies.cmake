find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)
pkg_check_modules(Canberra REQUIRED IMPORTED_TARGET libcanberra)
pkg_check_modules(Systemd REQUIRED libsystemd) # only its header: the library is loaded at run time
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets DBus)
# Qt 6.4's moc parses <chrono> only with this definition.
set(CMAKE_AUTOMOC_MOC_OPTIONS --include QtCore/qglobal.h)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-shape xcb-xfixes)
pkg_check_modules(XKB REQUIRED IMPORTED_TARGET xcb xcb-xfixes xcb-xinput xcb-xkb xcb-xtest
                  xkbcommon xkbcommon-x11)
if(VEXMOOR_TESTS)
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()

# Static linking of SQLite and libuuid saves a command a third of its start-up time. Distributors
# who prefer shared libraries set VEXMOOR_STATIC to OFF.
pkg_check_modules(SQLITE REQUIRED sqlite3)
pkg_check_modules(UUID REQUIRED uuid)
if(VEXMOOR_STATIC)
  find_library(SQLITE_ARCHIVE libsqlite3.a HINTS ${SQLITE_LIBRARY_DIRS})
  find_library(UUID_ARCHIVE libuuid.a HINTS ${UUID_LIBRARY_DIRS})
  if(NOT SQLITE_ARCHIVE OR NOT UUID_ARCHIVE)
    message(FATAL_ERROR "libsqlite3.a or libuuid.a is missing: install them, or link the shared "
                        "libraries by -D VEXMOOR_STATIC=OFF")
  endif()
  set(SQLITE_LINK_LIBRARIES ${SQLITE_ARCHIVE} Threads::Threads ${CMAKE_DL_LIBS} m)
  set(UUID_LINK_LIBRARIES ${UUID_ARCHIVE})
endif()
add_library(vexmoor_uuid INTERFACE)
target_include_directories(vexmoor_uuid SYSTEM INTERFACE ${UUID_INCLUDE_DIRS})
target_link_libraries(vexmoor_uuid INTERFACE ${UUID_LINK_LIBRARIES})
add_library(vexmoor_sqlite INTERFACE)
target_include_directories(vexmoor_sqlite SYSTEM INTERFACE ${SQLITE_INCLUDE_DIRS})
target_link_libraries(vexmoor_sqlite INTERFACE ${SQLITE_LINK_LIBRARIES})

foreach(tool msgfilter msgfmt msgmerge msgen xgettext)
  string(TOUPPER ${tool} variable)
  find_program(${variable} ${tool} REQUIRED)
endforeach()

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)
pkg_check_modules(Canberra REQUIRED IMPORTED_TARGET libcanberra)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets DBus)
# Qt 6.4's moc can read <chrono> only after this.
set(CMAKE_AUTOMOC_MOC_OPTIONS --include QtCore/qglobal.h)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb xcb-shape xcb-xfixes)
pkg_check_modules(XKB REQUIRED IMPORTED_TARGET xcb xcb-xfixes xcb-xinput xcb-xkb xcb-xtest
                  xkbcommon xkbcommon-x11)
if(VEXMOOR_TESTS)
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()

# SQLite and libuuid are linked statically: loading shared ones costs a command a third of its
# start-up time.
find_path(UUID_INCLUDE_DIR uuid.h PATH_SUFFIXES uuid REQUIRED)
find_library(UUID_LIBRARY NAMES libuuid.a uuid REQUIRED)
add_library(vexmoor_uuid INTERFACE)
target_include_directories(vexmoor_uuid SYSTEM INTERFACE ${UUID_INCLUDE_DIR})
target_link_libraries(vexmoor_uuid INTERFACE ${UUID_LIBRARY})

find_path(SQLITE_INCLUDE_DIR sqlite3.h REQUIRED)
find_library(SQLITE_LIBRARY NAMES libsqlite3.a sqlite3 REQUIRED)
add_library(vexmoor_sqlite INTERFACE)
target_include_directories(vexmoor_sqlite SYSTEM INTERFACE ${SQLITE_INCLUDE_DIR})
target_link_libraries(vexmoor_sqlite INTERFACE ${SQLITE_LIBRARY} Threads::Threads ${CMAKE_DL_LIBS} m)

foreach(tool msgfmt msgmerge msgen xgettext)
  string(TOUPPER ${tool} variable)
  find_program(${variable} ${tool} REQUIRED)
endforeach()

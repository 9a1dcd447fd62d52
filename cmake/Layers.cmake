# A layer is a folder of src/ and a static library. Its headers are included as "folder/Header.h"
# and are visible only to layers that link it: each layer has its own include root (a link to its
# folder in the build tree), so that an upward include does not compile.

# vexmoor_layer(<name> [SOURCES <file>...] [LINKS <target>...])
# Without SOURCES, uses every .cpp directly in the folder.
function(vexmoor_layer name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  if(NOT ARG_SOURCES)
    file(GLOB ARG_SOURCES CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  endif()
  set(root ${PROJECT_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${root})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
  add_library(vexmoor_${name} STATIC ${ARG_SOURCES})
  target_include_directories(vexmoor_${name} PUBLIC ${root})
  target_link_libraries(vexmoor_${name} PUBLIC ${ARG_LINKS})
  vexmoor_check_headers(${name})
endfunction()

# `header-check` compiles each header on its own.
if(NOT TARGET header-check)
  add_custom_target(header-check)
endif()
function(vexmoor_check_headers name)
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  set(units)
  foreach(header IN LISTS headers)
    set(unit ${PROJECT_BINARY_DIR}/header-check/${name}/${header}.cpp)
    if(NOT EXISTS ${unit})
      file(WRITE ${unit} "#include \"${name}/${header}\"\n")
    endif()
    list(APPEND units ${unit})
  endforeach()
  if(units)
    add_library(headers_${name} OBJECT EXCLUDE_FROM_ALL ${units})
    target_link_libraries(headers_${name} PRIVATE vexmoor_${name})
    add_dependencies(header-check headers_${name})
  endif()
endfunction()

# vexmoor_test(<name> SOURCES <file>... LINKS <target>... [PROPERTIES <ctest properties>...])
function(vexmoor_test name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PROPERTIES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES} ${PROJECT_SOURCE_DIR}/tests/support/EnglishEnvironment.cpp)
  target_link_libraries(${name} PRIVATE ${ARG_LINKS} vexmoor_test_support GTest::gmock GTest::gtest_main)
  set(suppressions)
  if(VEXMOOR_SANITIZE MATCHES thread)
    set(suppressions ENVIRONMENT_MODIFICATION
        TSAN_OPTIONS=set:suppressions=${PROJECT_SOURCE_DIR}/tests/support/tsan.supp)
  endif()
  gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
                       PROPERTIES SKIP_REGULAR_EXPRESSION "\\[  SKIPPED \\]" TIMEOUT 300
                                  ${suppressions} ${ARG_PROPERTIES})
endfunction()

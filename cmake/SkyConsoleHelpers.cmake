# Helpers shared by every target of the tree.

# sky_add_subdirectories(DIR...)
# Adds each folder below the current source folder; a listed folder without
# a CMakeLists.txt stops the configuration instead of leaving a part of the
# tree out of the build unnoticed.
function(sky_add_subdirectories)
  foreach(dir ${ARGN})
    if(NOT EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt)
      message(FATAL_ERROR "${CMAKE_CURRENT_SOURCE_DIR}/${dir}/CMakeLists.txt is missing")
    endif()
    add_subdirectory(${dir})
  endforeach()
endfunction()

# sky_add_library(NAME SOURCES... [PUBLIC_LINKS ...] [PRIVATE_LINKS ...])
# A static platform library with its own folder as include root and an alias
# Sky::NAME. Static keeps the exported surface of the UI library the only
# shared object a packager has to care about.
function(sky_add_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC_LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  add_library(Sky::${name} ALIAS ${name})
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
endfunction()

# sky_add_test(NAME SOURCES... LINKS ... [LABELS unit|integration] [XVFB] [TIMEOUT s])
# One QTest executable; the runner script gives every test its own HOME and
# XDG folders and the offscreen platform (or Xvfb when XVFB is given).
function(sky_add_test name)
  cmake_parse_arguments(ARG "XVFB" "TIMEOUT" "SOURCES;LINKS;LABELS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE Qt5::Test ${ARG_LINKS})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  if(NOT ARG_LABELS)
    set(ARG_LABELS unit)
  endif()
  set(mode offscreen)
  if(ARG_XVFB)
    set(mode xvfb)
  endif()
  add_test(NAME ${name}
           COMMAND ${CMAKE_SOURCE_DIR}/tests/support/run-isolated.sh ${mode} $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}"
                       ENVIRONMENT "SKYCONSOLE_BIN_DIR=${CMAKE_BINARY_DIR}/bin")
endfunction()

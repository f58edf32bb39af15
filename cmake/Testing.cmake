# GoogleTest from its sources, so that it is built by the same compiler as what it tests.
include(GoogleTest)

if(BUILD_TESTING)
  set(KZ_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "GoogleTest's source folder")
  set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(${KZ_GOOGLETEST_DIR} ${CMAKE_BINARY_DIR}/third_party/googletest EXCLUDE_FROM_ALL)
endif()

# kz_add_test_program(NAME SOURCES... LABEL label LIBRARIES libs...)
# Builds a GoogleTest program and registers each of its tests as a process of its own: much of the
# state under test is process-wide.
function(kz_add_test_program name)
  cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "SOURCES;LIBRARIES;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  kz_strict(${name})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gmock_main)
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 60)
  endif()
  gtest_discover_tests(${name}
    TEST_PREFIX "${ARG_LABEL}."
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS ${ARG_LABEL} TIMEOUT ${ARG_TIMEOUT} ENVIRONMENT "${ARG_ENVIRONMENT}")
endfunction()

# kz_add_unit_test(NAME SOURCES... LIBRARIES libs...): a test program under the label "unit", or
# "sanitize" in the native build, where the same tests run under the sanitizers.
function(kz_add_unit_test name)
  if(WIN32)
    set(label unit)
  else()
    set(label sanitize)
  endif()
  kz_add_test_program(${name} LABEL ${label} ${ARGN})
endfunction()

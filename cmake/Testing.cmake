# GoogleTest from its sources, so that it is built by the same compiler as what it tests.
include(GoogleTest)

if(BUILD_TESTING)
  set(KZ_GOOGLETEST_DIR /usr/src/googletest CACHE PATH "GoogleTest's source folder")
  set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  add_subdirectory(${KZ_GOOGLETEST_DIR} ${CMAKE_BINARY_DIR}/third_party/googletest EXCLUDE_FROM_ALL)
endif()

# kz_add_test_program(NAME SOURCES... LABEL label LIBRARIES libs... [ENVIRONMENT name=value]
#                     [TIMEOUT seconds] [ONE_PROCESS [APART suites...]])
# Builds a GoogleTest program and registers each of its tests as a process of its own, since much of
# the state under test is process-wide. ONE_PROCESS is for programs whose tests leave nothing behind:
# they run in a single process, but for the test suites (patterns allowed) that APART names.
function(kz_add_test_program name)
  cmake_parse_arguments(ARG "ONE_PROCESS" "LABEL;TIMEOUT" "SOURCES;LIBRARIES;ENVIRONMENT;APART" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  kz_strict(${name})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES} GTest::gmock_main)
  if(MINGW)
    # Compiling the tests takes longer than running them; optimised code would double that.
    target_compile_options(${name} PRIVATE -O0 -g1)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 60)
  endif()
  set(properties LABELS ${ARG_LABEL} TIMEOUT ${ARG_TIMEOUT})
  if(ARG_ENVIRONMENT)
    list(APPEND properties ENVIRONMENT ${ARG_ENVIRONMENT})
  endif()

  set(apart *)
  if(ARG_ONE_PROCESS)
    list(TRANSFORM ARG_APART APPEND .*)
    list(JOIN ARG_APART : apart)
    add_test(NAME ${ARG_LABEL}.${name} COMMAND ${name} --gtest_brief=1 --gtest_filter=-${apart})
    set_tests_properties(${ARG_LABEL}.${name} PROPERTIES ${properties})
  endif()
  if(apart)
    gtest_discover_tests(${name}
      TEST_PREFIX "${ARG_LABEL}."
      TEST_FILTER ${apart}
      DISCOVERY_MODE PRE_TEST
      DISCOVERY_TIMEOUT 60
      PROPERTIES ${properties})
  endif()
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

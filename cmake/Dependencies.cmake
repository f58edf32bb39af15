# Third-party code, each behind one target.

# JSON for the sample host's files, the tests and the benchmarks. Header-only.
find_path(KZ_JSON_INCLUDE nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
# Copied apart, because the system's include folder as such must not reach a cross compiler.
set(KZ_JSON_LINKS ${CMAKE_BINARY_DIR}/third_party/json)
file(MAKE_DIRECTORY ${KZ_JSON_LINKS})
if(CMAKE_HOST_WIN32)
  file(COPY ${KZ_JSON_INCLUDE}/nlohmann DESTINATION ${KZ_JSON_LINKS})
else()
  file(CREATE_LINK ${KZ_JSON_INCLUDE}/nlohmann ${KZ_JSON_LINKS}/nlohmann SYMBOLIC)
endif()
add_library(kz_json INTERFACE)
target_include_directories(kz_json SYSTEM INTERFACE ${KZ_JSON_LINKS})
add_library(kz::json ALIAS kz_json)

# Python for the build's own steps and for the tests. Debian's own is the one that has Debian's packages
# (pip, pytest); another one may stand before it on the path.
if(NOT CMAKE_HOST_WIN32)
  find_program(KZ_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
endif()

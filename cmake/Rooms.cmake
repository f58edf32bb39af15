# kz_add_room(NAME SOURCES... LIBRARIES below...): a room of the product as a static library.
# Sources include their headers as "room/file.h".
function(kz_add_room name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  kz_strict(${name})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/..)
  target_link_libraries(${name} PUBLIC ${ARG_LIBRARIES})
endfunction()

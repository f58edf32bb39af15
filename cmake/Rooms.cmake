# kz_add_room(NAME SOURCES... LIBRARIES below...): a room of the product, which is its folder, as a
# static library. Sources include its headers as "room/file.h".
#
# A room is seen by what links it and by nothing else: its include path is a folder of its own with a
# header for each of the room's, which includes that one. An include upwards, or of a room that is not
# linked, therefore finds no file. (The compiler looks beside the including file as well, so a room's
# own headers could be had by a shorter name; tests/scripts/test_includes.py keeps that from happening.)
function(kz_add_room name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  kz_strict(${name})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  kz_show_room(${name} PUBLIC)
  target_link_libraries(${name} PUBLIC ${ARG_LIBRARIES})
endfunction()

# kz_show_room(TARGET SCOPE): TARGET sees the headers of the room in the current folder.
function(kz_show_room target scope)
  cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME room)
  set(view ${CMAKE_BINARY_DIR}/rooms/${room})
  file(GLOB headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} *.h)
  file(GLOB shown RELATIVE ${view}/${room} ${view}/${room}/*.h)
  foreach(header IN LISTS shown)
    if(NOT header IN_LIST headers)
      file(REMOVE ${view}/${room}/${header})
    endif()
  endforeach()
  foreach(header IN LISTS headers)
    # Written only when it changes, so that nothing is compiled anew.
    file(CONFIGURE OUTPUT ${view}/${room}/${header}
         CONTENT "#include \"${CMAKE_CURRENT_SOURCE_DIR}/${header}\"\n")
  endforeach()
  target_include_directories(${target} ${scope} ${view})
endfunction()

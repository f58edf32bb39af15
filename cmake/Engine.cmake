# The browser engine, as scripts/lib/engine.py has unpacked it.
#   KZ_ENGINE_DIR          where it lies
#   KZ_ENGINE_HEADER_PY    CEF's C API, for the generator of its declarations
#   KZ_ENGINE_CEF_VERSION  what the engine calls itself
#   KZ_ENGINE_API_HASH     what its cef_api_hash(0) returns
#   kz_engine_files        target: everything that libcef needs at run time lies in bin/
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/engine.pin pin_lines REGEX "^[A-Z]")
foreach(line IN LISTS pin_lines)
  string(REGEX MATCH "^([A-Z0-9_]+)=(.*)$" line "${line}")
  set(KZ_${CMAKE_MATCH_1} "${CMAKE_MATCH_2}")
endforeach()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${CMAKE_CURRENT_LIST_DIR}/engine.pin)

set(KZ_ENGINE_DIR "" CACHE PATH "The unpacked engine (empty: the one in build/engine that the pin names)")
if(NOT KZ_ENGINE_DIR)
  # Not in the cache, so that it follows the pin.
  string(SUBSTRING ${KZ_ENGINE_SHA256} 0 8 sum_start)
  set(KZ_ENGINE_DIR ${CMAKE_SOURCE_DIR}/build/engine/${KZ_ENGINE_VERSION}-${sum_start})
endif()
set(KZ_ENGINE_HEADER_PY ${KZ_ENGINE_DIR}/header.py)
foreach(needed ${KZ_ENGINE_DIR}/runtime/libcef.dll ${KZ_ENGINE_HEADER_PY})
  if(NOT EXISTS ${needed})
    message(FATAL_ERROR "The browser engine is missing: there is no ${needed}.\n"
                        "Run scripts/lib/engine.py, which fetches it, and configure again "
                        "(scripts/test.sh and scripts/demo.sh do both).")
  endif()
endforeach()

# kz_lay_out_engine(TARGET FOLDER): a target that puts everything that libcef needs at run time into
# FOLDER. Further arguments go to add_custom_target.
function(kz_lay_out_engine target folder)
  file(GLOB_RECURSE engine_files RELATIVE ${KZ_ENGINE_DIR}/runtime ${KZ_ENGINE_DIR}/runtime/*)
  set(laid_out ${engine_files})
  list(TRANSFORM laid_out PREPEND ${folder}/)
  set(unpacked ${engine_files})
  list(TRANSFORM unpacked PREPEND ${KZ_ENGINE_DIR}/runtime/)
  string(REGEX REPLACE "^kz_" "" list ${target})
  add_custom_command(
    OUTPUT ${laid_out}
    COMMAND ${CMAKE_COMMAND} -DFROM=${KZ_ENGINE_DIR}/runtime -DTO=${folder}
            -DLIST=${CMAKE_BINARY_DIR}/${list}.txt
            -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/lay_out_engine.cmake
    # Not the script too: a link is as old as the unpacked file, which is older than the script.
    DEPENDS ${unpacked}
    COMMENT "Laying out the browser engine ${KZ_ENGINE_VERSION} in ${folder}"
    VERBATIM)
  add_custom_target(${target} ${ARGN} DEPENDS ${laid_out})
endfunction()
kz_lay_out_engine(kz_engine_files ${CMAKE_BINARY_DIR}/bin ALL)

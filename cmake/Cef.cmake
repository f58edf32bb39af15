# Chooses what stands behind CEF's headers. Either way the same two targets come out:
#   cef::base  headers, strings, values, parsing, tasks: all that needs no running engine
#   cef::cef   cef::base and the engine
# With CEF_ROOT they are a CEF 123 binary distribution; without it, cef/ over the engine's C API.
set(CEF_ROOT "" CACHE PATH "A CEF 123 binary distribution for 64-bit Windows (empty: the engine that engine.pin names)")

if(CEF_ROOT)
  foreach(needed include/cef_app.h include/cef_version.h libcef_dll Release/libcef.lib)
    if(NOT EXISTS ${CEF_ROOT}/${needed})
      message(FATAL_ERROR "CEF_ROOT=${CEF_ROOT} has no ${needed}: is it a CEF binary distribution?")
    endif()
  endforeach()
  file(STRINGS ${CEF_ROOT}/include/cef_version.h major REGEX "^#define CHROME_VERSION_MAJOR ")
  if(NOT major MATCHES " 123$")
    message(WARNING "CEF_ROOT=${CEF_ROOT} is not CEF 123, which this project is written for")
  endif()

  # The distribution's own CMake files assume MSVC, its wrapper sources do not.
  file(GLOB_RECURSE wrapper_sources CONFIGURE_DEPENDS ${CEF_ROOT}/libcef_dll/*.cc)
  # For macOS, where the framework is loaded by hand.
  list(FILTER wrapper_sources EXCLUDE REGEX "/libcef_dll_dylib\\.cc$")
  add_library(kz_cef_distribution STATIC ${wrapper_sources})
  target_include_directories(kz_cef_distribution PRIVATE ${CEF_ROOT})
  # A vendor's headers are system headers: our warnings are not for them.
  target_include_directories(kz_cef_distribution SYSTEM INTERFACE ${CEF_ROOT})
  target_compile_definitions(kz_cef_distribution
    PRIVATE WRAPPING_CEF_SHARED
    PUBLIC UNICODE _UNICODE NOMINMAX USING_CEF_SHARED=1)
  if(NOT MSVC)
    target_compile_options(kz_cef_distribution PRIVATE -w)
  endif()
  target_link_libraries(kz_cef_distribution PUBLIC ${CEF_ROOT}/Release/libcef.lib)
  add_library(cef::base ALIAS kz_cef_distribution)
  add_library(cef::cef ALIAS kz_cef_distribution)
endif()

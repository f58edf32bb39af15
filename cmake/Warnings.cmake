# kz_strict(TARGET): the warning policy of this project's own code.
function(kz_strict target)
  if(MSVC)
    target_compile_options(${target} PRIVATE /W4 /WX /permissive- /utf-8)
  else()
    target_compile_options(${target} PRIVATE
      -Wall -Wextra -Wpedantic -Werror -Wshadow -Woverloaded-virtual
      -Wcast-qual -Wunused -Wnull-dereference
      # Automation and CEF callbacks have fixed parameter lists; the unused ones are left unnamed,
      # and GetProcAddress needs a cast that only this warning minds.
      -Wno-cast-function-type)
  endif()
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN
                                                 WINVER=0x0A00 _WIN32_WINNT=0x0A00)
  endif()
endfunction()

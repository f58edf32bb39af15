# kz_add_type_library(TARGET IDL): compiles IDL to <name>.tlb and <name>.h. TARGET carries the
# folder of both as an include path; link it to include the header.
if(MSVC)
  find_program(KZ_MIDL midl REQUIRED)
else()
  find_program(KZ_WIDL x86_64-w64-mingw32-widl REQUIRED)
  set(KZ_WIDL_INCLUDE /usr/include/wine/wine/windows CACHE PATH "Where widl finds oaidl.idl")
  set(KZ_WIDL_LIBRARY /usr/lib/x86_64-linux-gnu/wine/x86_64-windows CACHE PATH "Where widl finds stdole2.tlb")
endif()

function(kz_add_type_library target idl)
  cmake_path(GET idl STEM name)
  set(out ${CMAKE_BINARY_DIR}/typelib)
  set(source ${CMAKE_CURRENT_SOURCE_DIR}/${idl})
  file(MAKE_DIRECTORY ${out})
  if(MSVC)
    add_custom_command(
      OUTPUT ${out}/${name}.tlb ${out}/${name}.h
      COMMAND ${KZ_MIDL} /nologo /env x64 /W1 /char signed /out ${out} /h ${name}.h /iid ${name}_i.c
              /tlb ${name}.tlb ${source}
      DEPENDS ${source} VERBATIM)
  else()
    set(widl ${KZ_WIDL} --win64 -I ${KZ_WIDL_INCLUDE} -L ${KZ_WIDL_LIBRARY})
    add_custom_command(
      OUTPUT ${out}/${name}.tlb ${out}/${name}.h
      COMMAND ${widl} -t -o ${out}/${name}.tlb ${source}
      COMMAND ${widl} -h -o ${out}/${name}.h ${source}
      DEPENDS ${source} VERBATIM)
  endif()
  add_custom_target(${target}_files DEPENDS ${out}/${name}.tlb ${out}/${name}.h)
  add_library(${target} INTERFACE)
  target_include_directories(${target} SYSTEM INTERFACE ${out})
  add_dependencies(${target} ${target}_files)
endfunction()

# 64-bit Windows from Linux: MinGW-w64 with POSIX threads, the C++ runtime linked in.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(KZ_TRIPLE x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${KZ_TRIPLE}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KZ_TRIPLE}-g++-posix)
set(CMAKE_RC_COMPILER ${KZ_TRIPLE}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${KZ_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# No DLL of the toolchain may stand beside the product.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")

# What is built runs under Wine, quietly.
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/run-wine)

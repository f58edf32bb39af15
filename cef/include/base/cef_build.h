// include/base/cef_build.h of CEF 123, as far as it is used here:
// the macros that name platform and compiler.
#pragma once

// The platform macros that CEF code asks for. 64-bit Windows only.

#if !defined(_WIN64)
#error CEF is used on 64-bit Windows only.
#endif

#define OS_WIN 1
#define ARCH_CPU_X86_FAMILY 1
#define ARCH_CPU_X86_64 1
#define ARCH_CPU_64_BITS 1
#define ARCH_CPU_LITTLE_ENDIAN 1
#define WCHAR_T_IS_16_BIT 1
#define WCHAR_T_IS_UTF16 1

#if defined(_MSC_VER) && !defined(__clang__)
#define COMPILER_MSVC 1
#else
#define COMPILER_GCC 1
#endif

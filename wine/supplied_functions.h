// The list of all functions that the engine gets from the layer instead of from Wine.
#pragma once

#include <windows.h>

namespace kz::wine {

struct SuppliedFunction {
  const char* name;
  // Null: the engine is told that Windows has no such function. Only for those that the engine asks
  // for by GetProcAddress and can do without.
  FARPROC function;
};

// Returns null for a function that is left to Wine.
const SuppliedFunction* FindSuppliedFunction(const char* name);

// For ReplaceImports.
FARPROC SuppliedImport(const char* name);

}  // namespace kz::wine

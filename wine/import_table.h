// Replaces what a loaded module imports. A module calls each function of another through a slot of
// its import table, which the loader has filled; another function's address in that slot is all
// that it takes, and no code is changed.
#pragma once

#include <windows.h>

namespace kz::wine {

// Returns the function that is to stand for the import of that name, null for one that stays.
using ReplacementLookup = FARPROC (*)(const char* name);

// Asks for a replacement of every function that `module` imports by name, whichever DLL it comes
// from. Imports by number and delay-loaded ones stay: the latter are looked up by GetProcAddress.
// Returns how many slots were written. Call it with the loader's lock held, or while nothing else
// loads or unloads modules.
int ReplaceImports(HMODULE module, ReplacementLookup lookup);

}  // namespace kz::wine

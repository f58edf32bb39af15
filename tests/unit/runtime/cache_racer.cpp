// One of several processes that want a cache directory at the same time. `cache_racer GO BASE`
// waits for the event named GO, claims a directory beginning at BASE and prints it, or nothing. It
// stays until its standard input ends, and leaves its lock behind.
#include <windows.h>

#include <cstdio>
#include <exception>
#include <iostream>

#include "runtime/cache_directory.h"
#include "utils/handles.h"
#include "utils/kzcefwrapperutils.h"

int wmain(int count, wchar_t** arguments) {
  if (count != 3) {
    return 2;
  }
  const kzcef::UniqueHandle go(OpenEventW(SYNCHRONIZE, FALSE, arguments[1]));
  if (!go) {
    return 2;
  }
  std::cout << "ready" << std::endl;
  WaitForSingleObject(go.get(), INFINITE);
  try {
    kzcef::ChooseCacheDirectory(kzcef::WideToUtf8(arguments[2]));
    std::cout << kzcef::ChosenCacheDirectory() << std::endl;
  } catch (const std::exception& error) {
    std::cout << "error: " << error.what() << std::endl;
  }
  while (std::getchar() != EOF) {
  }
  return 0;
}

// A process for other processes to meet. `process_probe COMMAND PATH` does one thing, prints one
// line and then stays until its standard input ends:
//   lock PATH   claims PATH as a lock file; prints 1 or 0
//   own PATH    the same, then prints whether it knows the lock as its own
//   write PATH  begins to write PATH and does not finish; prints 1 or 0
#include <windows.h>

#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>

#include "utils/handles.h"
#include "utils/kzcefwrapperutils.h"
#include "utils/lock_file.h"

int wmain(int count, wchar_t** arguments) {
  if (count != 3) {
    return 2;
  }
  const std::wstring_view command = arguments[1];
  const std::string path = kzcef::WideToUtf8(arguments[2]);
  kzcef::UniqueHandle unfinished;
  bool answer = false;
  if (command == L"lock") {
    answer = kzcef::WriteLockFile(path);
  } else if (command == L"own") {
    answer = kzcef::WriteLockFile(path) &&
             kzcef::IsOwnLock(kzcef::ReadLockFile(path).value_or(kzcef::LockRecord()));
  } else if (command == L"write") {
    unfinished = kzcef::FileHandle(CreateFileW(arguments[2], GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                               FILE_ATTRIBUTE_NORMAL, nullptr));
    answer = unfinished != nullptr;
  } else {
    return 2;
  }
  std::cout << answer << std::endl;
  while (std::getchar() != EOF) {
  }
  return 0;
}

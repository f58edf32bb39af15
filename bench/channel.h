// What passes between the program that compares two sides and the process of one side: a question
// and its answer, in memory that they share.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "waiting.h"

namespace kzbench {

enum class Task : int {
  // The time of loading the page, in seconds.
  kLoad,
  // Loads small pages, `count` of them.
  kNavigate,
  // Opens and closes browsers, `count` of them.
  kOpenAndClose,
  // The process's memory in bytes.
  kMemory,
  // Has the hub library add a header to every request from now on.
  kAddHubHeader,
  // Puts `count` cookies into the engine's store.
  kFillCookieStore,
  // The times of reading all cookies by the server, and of visiting them without it, in seconds;
  // there must be `count` of them.
  kReadCookies,
  kVisitCookies,
  // The process is to end.
  kEnd,
};

// All zeros in the beginning.
struct Exchange {
  // The process that asks; a side ends with it.
  DWORD asking_process;
  Task task;
  int count;
  double result;
  // Why the task failed; empty when it did not.
  char failure[256];
};

// Both ends make one with the same name. Throws std::runtime_error when that fails.
class Channel {
 public:
  explicit Channel(const std::wstring& name);
  ~Channel();
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;

  Exchange& exchange() const { return *exchange_; }
  HANDLE asked() const { return asked_.get(); }
  HANDLE answered() const { return answered_.get(); }

 private:
  const UniqueHandle mapping_;
  Exchange* const exchange_;
  const UniqueHandle asked_;
  const UniqueHandle answered_;
};

}  // namespace kzbench

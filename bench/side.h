// One side of a comparison, the server or CEF alone, in a process of its own: a process has one
// engine.
#pragma once

#include <string>

#include "channel.h"
#include "loaders.h"
#include "waiting.h"

namespace kzbench {

// A copy of this program with a loader. Throws std::runtime_error when it fails.
class Side {
 public:
  // Returns when the first page is loaded.
  explicit Side(const LoaderOptions& options);
  // Waits for the process's end.
  ~Side();
  Side(const Side&) = delete;
  Side& operator=(const Side&) = delete;

  // Returns what the task is to tell, measured in the process; 0 for a task that tells nothing.
  double Ask(Task task, int count = 1);

 private:
  Side(const LoaderOptions& options, const std::wstring& name);

  // Outlives the process.
  const ScratchFolder cache_;
  Channel channel_;
  UniqueHandle process_;
};

// The process of a Side, which has told it its `channel`. Returns the exit status.
int ServeSide(const LoaderOptions& options, const std::wstring& channel);

}  // namespace kzbench

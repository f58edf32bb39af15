#pragma once

#include <chrono>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "devtools/byte_stream.h"
#include "devtools/win_handle.h"

namespace cefedition {

/// The browser process and the supervisor beside it.
///
/// The browser is a program of the Unix host on which Wine runs, and Wine gives neither its process
/// id nor a handle that could end it. It is therefore started by a supervisor, a few lines of Perl
/// (part of every Debian system), which connects back to this process twice: one connection becomes
/// the browser's DevTools pipe, the other one reports the browser's end and takes the order to end
/// it. Should this process die, both connections break and the supervisor ends the browser with all
/// its children.
class EngineProcess {
 public:
  struct Launch {
    /// The browser executable, as a Unix path.
    std::string program;
    /// Its arguments, the program not included.
    std::vector<std::string> arguments;
    /// A Unix path to which the browser's diagnostics are appended; empty drops them.
    std::string output;
  };

  /// Starts the browser and waits for both connections. Null after `timeout` or when it cannot be
  /// started; `error` then says why.
  static std::unique_ptr<EngineProcess> Start(const Launch& launch,
                                              std::chrono::milliseconds timeout,
                                              std::string& error);

  /// Ends the browser if it still runs, and waits a moment for that.
  ~EngineProcess();
  EngineProcess(const EngineProcess&) = delete;
  EngineProcess& operator=(const EngineProcess&) = delete;

  /// The browser's DevTools pipe: messages in JSON, each ended by a zero byte. To be taken once.
  ByteStream TakePipe();

  /// The browser's process id on the Unix side.
  int unix_pid() const { return unix_pid_; }

  /// Waits until the browser and all its children have ended.
  bool WaitForEnd(std::chrono::milliseconds timeout);

  /// Why it ended, in words; empty while it runs.
  std::string EndReason() const;

  /// Ends the browser and all its children at once.
  void Kill();

 private:
  EngineProcess(ByteStream control, ByteStream pipe, int unix_pid);
  void WatchControl();

  ByteStream control_;
  ByteStream pipe_;
  int unix_pid_;
  UniqueHandle ended_;
  mutable std::mutex lock_;
  std::string end_reason_;
  std::thread watcher_;
};

}  // namespace cefedition

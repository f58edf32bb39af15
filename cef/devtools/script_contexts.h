#pragma once

#include <map>
#include <string>

#include "devtools/protocol_connection.h"

namespace cefedition {

/// The script contexts of one page: each frame has one for its own scripts, and more for scripts
/// that are kept apart from these. One thread.
class ScriptContexts {
 public:
  struct Context {
    std::string frame_id;
    /// For `Runtime.evaluate`; never used again for another context.
    std::string unique_id;
  };

  /// Any event of the page.
  void OnEvent(const ProtocolEvent& event);

  /// By the protocol's number, which counts anew in every process of the page. Null when there is
  /// none.
  const Context* Find(int number) const;

 private:
  std::map<int, Context> contexts_;
};

}  // namespace cefedition

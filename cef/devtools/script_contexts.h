#pragma once

#include <map>
#include <string>
#include <vector>

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
    /// The name of the world of scripts that it belongs to; empty for that of the frame's own.
    std::string world;
  };

  /// Any event of the page.
  void OnEvent(const ProtocolEvent& event);

  /// By the protocol's number, which counts anew in every process of the page. Null when there is
  /// none.
  const Context* Find(int number) const;

  /// All contexts of a world, one a frame.
  std::vector<Context> InWorld(const std::string& world) const;

 private:
  std::map<int, Context> contexts_;
};

}  // namespace cefedition

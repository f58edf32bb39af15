#include "devtools/script_contexts.h"

#include "devtools/json_fields.h"

namespace cefedition {

void ScriptContexts::OnEvent(const ProtocolEvent& event) {
  if (event.method == "Runtime.executionContextCreated") {
    const Json& context = Field(event.params, "context");
    contexts_[IntField(context, "id")] = {TextField(Field(context, "auxData"), "frameId"),
                                          TextField(context, "uniqueId"),
                                          TextField(context, "name")};
  } else if (event.method == "Runtime.executionContextDestroyed") {
    contexts_.erase(IntField(event.params, "executionContextId"));
  } else if (event.method == "Runtime.executionContextsCleared") {
    contexts_.clear();
  }
}

const ScriptContexts::Context* ScriptContexts::Find(int number) const {
  const auto found = contexts_.find(number);
  return found != contexts_.end() ? &found->second : nullptr;
}

std::vector<ScriptContexts::Context> ScriptContexts::InWorld(const std::string& world) const {
  std::vector<Context> found;
  for (const auto& [number, context] : contexts_) {
    if (context.world == world) {
      found.push_back(context);
    }
  }
  return found;
}

}  // namespace cefedition

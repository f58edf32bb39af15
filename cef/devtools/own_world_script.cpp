#include "devtools/own_world_script.h"

namespace cefedition {

std::vector<std::pair<std::string, Json>> OwnWorldScript(const char* world,
                                                         const char* binding,
                                                         const char* script,
                                                         InOpenDocuments in_open_documents) {
  Json installation = {{"source", script}, {"worldName", world}};
  if (in_open_documents == InOpenDocuments::kAtOnce) {
    installation["runImmediately"] = true;
  }
  return {{"Runtime.addBinding", {{"name", binding}, {"executionContextName", world}}},
          {"Page.addScriptToEvaluateOnNewDocument", std::move(installation)}};
}

}  // namespace cefedition

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "devtools/protocol_connection.h"

namespace cefedition {

/// When a script that is installed begins in a document that is there already.
enum class InOpenDocuments { kNever, kAtOnce };

/// The commands, as method and parameters, that install `script` in every frame of a page: in the
/// world `world`, unseen by the page, with the function `binding` by which it reports.
std::vector<std::pair<std::string, Json>> OwnWorldScript(const char* world,
                                                         const char* binding,
                                                         const char* script,
                                                         InOpenDocuments in_open_documents);

}  // namespace cefedition

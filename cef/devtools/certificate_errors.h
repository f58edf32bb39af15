#pragma once

#include <string>
#include <utility>
#include <vector>

#include "devtools/protocol_connection.h"

namespace cefedition {

class BrowserCore;

// Servers whose certificates do not hold. A connection waits for the client's word; without one it
// is refused. UI thread.

/// The commands with which a page asks about such certificates; none for a client that has no
/// handler to ask.
std::vector<std::pair<std::string, Json>> CertificateErrorCommands(const BrowserCore& core);

/// `Security.certificateError`.
void OnCertificateErrorEvent(BrowserCore& core, const Json& params);

}  // namespace cefedition

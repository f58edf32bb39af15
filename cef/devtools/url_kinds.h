#pragma once

#include <string>

namespace cefedition {

/// Whether the browser announces the requests of navigations to `url`, so that they can be held.
bool IsInterceptable(const std::string& url);

/// Whether another program is the only one that can make something of `url` ("mailto:", "tel:" and
/// the like). A scheme of one letter is none: the operating system would take it for a drive.
bool IsForOtherPrograms(const std::string& url);

}  // namespace cefedition

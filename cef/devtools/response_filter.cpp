#include "devtools/response_filter.h"

#include <algorithm>
#include <vector>

namespace cefedition {
namespace {

// As much as CEF hands to a filter at once.
constexpr size_t kChunk = size_t{64} * 1024;

}  // namespace

std::optional<std::string> FilterBody(CefResponseFilter& filter, std::string body) {
  std::string filtered;
  std::vector<char> out(kChunk);
  size_t taken = 0;
  for (;;) {
    const size_t offered = std::min(body.size() - taken, kChunk);
    size_t read = 0;
    size_t written = 0;
    const CefResponseFilter::FilterStatus status =
        filter.Filter(offered > 0 ? body.data() + taken : nullptr, offered, read, out.data(),
                      out.size(), written);
    if (status == RESPONSE_FILTER_ERROR || read > offered || written > out.size()) {
      return std::nullopt;
    }
    taken += read;
    filtered.append(out.data(), written);
    const bool all_taken = taken == body.size();
    if (all_taken && (status == RESPONSE_FILTER_DONE || (offered == 0 && written == 0))) {
      return filtered;
    }
    if (!all_taken && read == 0 && written == 0) {
      return std::nullopt;
    }
  }
}

}  // namespace cefedition

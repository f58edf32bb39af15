// A stand-in for the hub installation's library: it answers what the test has planned, from memory
// of its own, and counts what comes back.
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "hub_plan.h"

namespace {

kzhub::Plan plan;

// What was handed out and has not come back.
std::unique_ptr<std::string> given_url;
std::vector<std::unique_ptr<std::string>> given_lines;
std::vector<const char*> given_pointers;

}  // namespace

extern "C" {

kzhub::Plan* hubPlan() {
  return &plan;
}

void transformUrlForHub(const char** url, const char*** headers, int* count, unsigned char* flag) {
  ++plan.calls;
  std::strncpy(plan.asked, *url, sizeof plan.asked - 1);
  if (plan.url) {
    given_url = std::make_unique<std::string>(plan.url);
    ++plan.urls_given;
    *url = given_url->c_str();
  }
  if (plan.headers) {
    for (int i = 0; i < plan.header_count; ++i) {
      given_lines.push_back(plan.headers[i] ? std::make_unique<std::string>(plan.headers[i])
                                            : nullptr);
      given_pointers.push_back(given_lines.back() ? given_lines.back()->c_str() : nullptr);
    }
    ++plan.headers_given;
    *headers = given_pointers.data();
  }
  *count = plan.header_count;
  *flag = plan.flag;
}

void deleteUrl(const char** url) {
  // Called for the caller's own text too, when the plan gave none.
  if (given_url && *url == given_url->c_str()) {
    given_url.reset();
    ++plan.urls_back;
  }
}

void deleteHeaders(const char*** headers, int count) {
  if (!given_pointers.empty() && *headers == given_pointers.data() &&
      count == static_cast<int>(given_pointers.size())) {
    given_pointers.clear();
    given_lines.clear();
    ++plan.headers_back;
  }
}
}

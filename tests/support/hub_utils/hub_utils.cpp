// A double of the hub installation's library: it returns what the test has planned, from memory of
// its own, and counts what is given back.
//
// A test in another process plans through the environment: KZ_HUB_REPLACE ("from>to") changes URLs
// that contain "from", KZ_HUB_HEADERS has the header lines, separated by "|", and KZ_HUB_COUNTS
// names a file for the counts at the end: URLs given and back, arrays of headers given and back.
#include <cstdio>
#include <cstdlib>
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

void NoteDeletion(char which) {
  const size_t length = std::strlen(plan.deletions);
  if (length + 1 < sizeof plan.deletions) {
    plan.deletions[length] = which;
  }
}

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value ? value : "";
}

// What the environment wants done, kept for the plan's pointers.
struct Wishes {
  Wishes() : replace(Environment("KZ_HUB_REPLACE")), headers(Environment("KZ_HUB_HEADERS")) {
    for (char* line = std::strtok(headers.data(), "|"); line; line = std::strtok(nullptr, "|")) {
      lines.push_back(line);
    }
  }
  ~Wishes() {
    if (const std::string file = Environment("KZ_HUB_COUNTS"); !file.empty()) {
      if (std::FILE* const counts = std::fopen(file.c_str(), "w")) {
        std::fprintf(counts, "%d %d %d %d\n", plan.urls_given, plan.urls_back, plan.headers_given,
                     plan.headers_back);
        std::fclose(counts);
      }
    }
  }
  Wishes(const Wishes&) = delete;
  Wishes& operator=(const Wishes&) = delete;

  void Plan(const std::string& asked) {
    const size_t middle = replace.find('>');
    if (middle != std::string::npos) {
      const std::string from = replace.substr(0, middle);
      const size_t at = asked.find(from);
      plan.url = nullptr;
      if (at != std::string::npos) {
        url = asked;
        url.replace(at, from.size(), replace, middle + 1);
        plan.url = url.c_str();
      }
    }
    if (!lines.empty()) {
      plan.headers = lines.data();
      plan.header_count = static_cast<int>(lines.size());
    }
  }

  const std::string replace;
  std::string headers;
  std::vector<const char*> lines;
  std::string url;
} wishes;

}  // namespace

extern "C" {

kzhub::Plan* hubPlan() {
  return &plan;
}

void transformUrlForHub(const char** url, const char*** headers, int* count, unsigned char* flag) {
  ++plan.calls;
  wishes.Plan(*url);
  std::strncpy(plan.asked, *url, sizeof plan.asked - 1);
  if (plan.url) {
    given_url = std::make_unique<std::string>(plan.url);
    ++plan.urls_given;
    *url = given_url->c_str();
  }
  if (plan.clears_pointer) {
    *url = nullptr;
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
  NoteDeletion('u');
  // Called for the caller's own text too, when the plan gave none.
  if (given_url && *url == given_url->c_str()) {
    given_url.reset();
    ++plan.urls_back;
  }
}

void deleteHeaders(const char*** headers, int count) {
  NoteDeletion('h');
  if (!given_pointers.empty() && *headers == given_pointers.data() &&
      count == static_cast<int>(given_pointers.size())) {
    given_pointers.clear();
    given_lines.clear();
    ++plan.headers_back;
  }
}
}

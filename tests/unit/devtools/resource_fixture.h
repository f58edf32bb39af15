#pragma once

#include <string>
#include <vector>

#include "engine_fixture.h"
#include "recording_resources.h"

namespace cefedition {

/// Real requests with a client that hears of every one.
class ResourceTest : public EngineTest {
 protected:
  ResourceTest() : resources_(new RecordingResources(&log_)) { client_->resources = resources_; }

  /// Starts with a page that requests nothing, and forgets about its events.
  void StartWithPage(const std::string& body = "page") {
    server_.Add("/page", body);
    ASSERT_TRUE(StartEngine());
    CreateBrowser(client_, server_.Url("/page"));
    ASSERT_TRUE(log_.WaitFor("idle"));
    ASSERT_TRUE(WaitForAny("complete /page"));
    log_.Clear();
  }

  /// Waits for an event that may have come already.
  bool WaitForAny(const std::string& text) {
    return log_.WaitUntil([&] { return !log_.Only({text}).empty(); });
  }

  /// What the page's fetch() brings: status, final path and text; or the error.
  std::string Fetch(const std::string& path, const std::string& options = "{}") {
    static int count = 0;
    const std::string mark = "fetched " + std::to_string(++count) + " ";
    Run("fetch('" + path + "', " + options + ").then(r => r.text().then(t => console.log('" + mark +
        "' + r.status + ' ' + new URL(r.url).pathname + ' ' + t + '|')),"
        " e => console.log('" +
        mark + "' + e.name + '|'))");
    EXPECT_TRUE(WaitForAny("console 2 [" + mark)) << path;
    const std::vector<std::string> found = log_.Only({"console 2 [" + mark});
    if (found.empty()) {
      return {};
    }
    const size_t start = found.front().find(mark) + mark.size();
    return found.front().substr(start, found.front().rfind("|]") - start);
  }

  std::vector<std::string> CompletionsOf(const std::string& path) const {
    return log_.Only({"complete " + path + " "});
  }

  const CefRefPtr<RecordingResources> resources_;
};

}  // namespace cefedition

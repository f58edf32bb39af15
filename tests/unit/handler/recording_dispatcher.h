// A dispatcher that writes down what it is asked for.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "handler/host_thread_dispatcher.h"

namespace kzcef::testing {

class RecordingDispatcher final : public HostThreadDispatcher {
 public:
  struct Posted {
    Identifier identifier = 0;
    const kzCefClientHandler* handler = nullptr;
  };

  // What it returns.
  bool pending = false;
  Identifier next_identifier = 1;
  // Called inside ProcessRequest.
  std::function<void()> during_process;
  // Off for tests whose threads all use one dispatcher.
  bool keeps_records = true;

  // The operations in order, and what they were given.
  std::vector<std::string> calls;
  std::vector<std::string> keys;
  std::vector<std::unique_ptr<ParkedRequest>> requests;
  std::vector<Posted> posted;
  std::vector<Identifier> processed;

  bool HasPendingWork() override {
    calls.emplace_back("HasPendingWork");
    return pending;
  }
  Identifier ParkRequest(const std::string& key, std::unique_ptr<ParkedRequest> request) override {
    calls.emplace_back("ParkRequest");
    keys.push_back(key);
    requests.push_back(std::move(request));
    return next_identifier;
  }
  void PostToMainWindow(Identifier identifier, const kzCefClientHandler* handler) override {
    calls.emplace_back("PostToMainWindow");
    posted.push_back({identifier, handler});
  }
  void ProcessRequest(Identifier identifier) override {
    if (keeps_records) {
      processed.push_back(identifier);
    }
    if (during_process) {
      during_process();
    }
  }

 private:
  IMPLEMENT_REFCOUNTING(RecordingDispatcher);
};

}  // namespace kzcef::testing

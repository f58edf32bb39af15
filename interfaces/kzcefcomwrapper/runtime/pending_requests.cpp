// The tables of parked requests: by identifier, and in groups by key. No lock is held while the
// user is asked, so requests may join, be finished and be ended meanwhile.

#include "runtime/pending_requests.h"

#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "handler/posted_message.h"
#include "runtime/main_window.h"
#include "utils/never_destroyed.h"

namespace kzcef {
namespace {

// In the order in which they came; the first is the one that has an identifier. Shared with whoever
// is asking about it.
using Group = std::vector<std::shared_ptr<ParkedRequest>>;
using Identifier = HostThreadDispatcher::Identifier;

struct Pending {
  std::string key;
  // Its question is being put to the user.
  bool in_progress = false;
};

struct Tables {
  std::mutex mutex;
  Identifier next_identifier = 1;
  std::map<Identifier, Pending> pending;
  std::map<std::string, Group> groups;
  // The engine is about to end, for the life of the process.
  bool closed = false;
};

Tables& TheTables() {
  static const NeverDestroyed<Tables> tables;
  return *tables;
}

// The request to ask, which now counts as in progress; null when there is nothing to ask.
std::shared_ptr<ParkedRequest> Begin(Identifier identifier) {
  Tables& tables = TheTables();
  const std::lock_guard lock(tables.mutex);
  const auto found = tables.pending.find(identifier);
  // A host that forwards its message twice comes here again from inside the dialog's own loop.
  if (found == tables.pending.end() || found->second.in_progress) {
    return nullptr;
  }
  found->second.in_progress = true;
  return tables.groups.at(found->second.key).front();
}

// Empty when all requests were ended meanwhile.
Group TakeGroup(Identifier identifier) {
  Tables& tables = TheTables();
  const std::lock_guard lock(tables.mutex);
  const auto found = tables.pending.find(identifier);
  if (found == tables.pending.end()) {
    return {};
  }
  const auto members = tables.groups.find(found->second.key);
  Group group = std::move(members->second);
  tables.groups.erase(members);
  tables.pending.erase(found);
  return group;
}

}  // namespace

bool PendingRequests::HasPendingWork() {
  Tables& tables = TheTables();
  const std::lock_guard lock(tables.mutex);
  return !tables.pending.empty();
}

HostThreadDispatcher::Identifier PendingRequests::ParkRequest(
    const std::string& key,
    std::unique_ptr<ParkedRequest> request) {
  Tables& tables = TheTables();
  const std::lock_guard lock(tables.mutex);
  if (tables.closed) {
    return 0;
  }
  if (const auto group = tables.groups.find(key); group != tables.groups.end()) {
    group->second.push_back(std::move(request));
    return 0;
  }
  Group group;
  group.push_back(std::move(request));
  const Identifier identifier = tables.next_identifier;
  const auto pending = tables.pending.emplace(identifier, Pending{key}).first;
  try {
    tables.groups.emplace(key, std::move(group));
  } catch (...) {
    tables.pending.erase(pending);
    throw;
  }
  ++tables.next_identifier;
  return identifier;
}

void PendingRequests::PostToMainWindow(Identifier identifier, const kzCefClientHandler* handler) {
  if (const HWND window = FindMainWindow()) {
    PostMessageW(window, kHostThreadMessage, identifier, reinterpret_cast<LPARAM>(handler));
  }
}

void PendingRequests::ProcessRequest(Identifier identifier) {
  std::shared_ptr<ParkedRequest> first = Begin(identifier);
  if (!first) {
    return;
  }
  const std::optional<int> choice = first->Ask(FindMainWindow());
  // From here on it is the group's, and freed in its turn.
  first = nullptr;
  const Group group = TakeGroup(identifier);
  if (!choice) {
    return;
  }
  for (const std::shared_ptr<ParkedRequest>& request : group) {
    request->Answer(*choice);
  }
}

void EndPendingRequests() noexcept {
  constexpr int kNone = -1;
  std::map<std::string, Group> groups;
  Tables& tables = TheTables();
  {
    const std::lock_guard lock(tables.mutex);
    tables.closed = true;
    tables.pending.clear();
    groups.swap(tables.groups);
  }
  for (const auto& [key, group] : groups) {
    for (const std::shared_ptr<ParkedRequest>& request : group) {
      request->Answer(kNone);
    }
  }
}

}  // namespace kzcef

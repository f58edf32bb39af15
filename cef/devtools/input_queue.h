#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "devtools/view/input_command.h"
#include "devtools/view/key_press.h"

namespace cefedition {

class BrowserCore;

/// What the user or the host does in a page, on its way there, in order. The client is asked about
/// each key first. A key waits until the page has taken what came before it, because only then is
/// it known whether it goes to a field that one can write in: the click or the Tab before it may
/// still be moving the focus. A page that does not answer delays its keys by a bounded time. UI
/// thread.
class InputQueue {
 public:
  explicit InputQueue(BrowserCore& core);
  ~InputQueue();
  InputQueue(const InputQueue&) = delete;
  InputQueue& operator=(const InputQueue&) = delete;

  void Add(const InputCommand& command);
  void AddKey(const KeyPress& key);

 private:
  struct Entry {
    InputCommand command;
    /// Empty for what is no key.
    std::optional<KeyPress> key;
  };

  void SendWaiting();
  /// Whether the client has to be asked about the first entry.
  bool IsAskedAbout(const Entry& entry);
  void SendNow(const Entry& entry);
  void OnTaken(const Entry& entry, int generation);
  /// Finds out where the first entry's key would go, then asks the client.
  void StartAsking();
  void AskPage();
  void AskClient(bool editable);
  void ReportLeaving(const KeyPress& tab);
  /// Runs `task` unless the browser is gone by then.
  std::function<void()> Guarded(std::function<void(InputQueue&)> task);

  BrowserCore& core_;
  std::deque<Entry> waiting_;
  /// The client is being asked about an entry, or is about to be.
  bool asking_ = false;
  /// The page has yet to say where the first entry's key would go. Questions are counted, so that
  /// late answers can be told.
  bool awaits_page_ = false;
  int question_ = 0;
  /// What the page has been sent and not yet taken. A page that has been given up counts anew.
  int untaken_ = 0;
  int generation_ = 0;
  bool page_silent_ = false;
  /// As the page said last.
  bool editable_ = false;
  /// The client has consumed a key press, and with it all that follows from it.
  bool consumed_ = false;
};

}  // namespace cefedition

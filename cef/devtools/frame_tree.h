#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "devtools/edition_frame.h"

namespace cefedition {

class BrowserCore;

/// The frames of one browser, by the protocol's ids. Changed on the UI thread, read on any.
class FrameTree {
 public:
  explicit FrameTree(std::weak_ptr<BrowserCore> core);

  /// The main frame exists from the start; its id is known once the page is.
  CefRefPtr<EditionFrame> main() const;
  void SetMainId(const std::string& id);
  bool IsMain(const std::string& id) const;

  /// Null for an id that is not known.
  CefRefPtr<EditionFrame> Find(const std::string& id) const;
  CefRefPtr<EditionFrame> FindByName(const std::string& name) const;
  std::vector<CefRefPtr<EditionFrame>> All() const;

  /// The frame with this id, which is made if it is new. An id that is new and has no parent is
  /// the main frame's next one: the browser may give it another when it changes processes.
  CefRefPtr<EditionFrame> Touch(const std::string& id, const std::string& parent_id);

  /// Removes a sub-frame and what is below it; the main frame stays.
  void Remove(const std::string& id);
  /// Removes what is below a frame, which has a new document. Returns what was removed.
  std::vector<std::string> RemoveBelow(const std::string& id);

  /// The browser is closed: all frames become invalid and let go of it.
  void Clear();

 private:
  void RemoveBelowLocked(const std::string& id, std::vector<std::string>& removed);

  const std::weak_ptr<BrowserCore> core_;
  mutable std::mutex lock_;
  CefRefPtr<EditionFrame> main_;
  std::map<std::string, CefRefPtr<EditionFrame>> frames_;
};

}  // namespace cefedition

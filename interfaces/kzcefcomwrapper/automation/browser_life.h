// Tells whether a browser object of this library still exists, for those who hold no reference to
// it.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>
#include <mutex>
#include <vector>

namespace kzcef {

class CKZCEFComBrowser;

// Shared by a browser object, which ends it, and by the registry and its walks, which may outlive
// the object and call it from the engine's threads. Any thread.
class BrowserLife {
 public:
  explicit BrowserLife(CKZCEFComBrowser* browser) : browser_(browser) {}
  BrowserLife(const BrowserLife&) = delete;
  BrowserLife& operator=(const BrowserLife&) = delete;

  // Calls `use(browser)` while the object cannot go away. Returns false when it was gone already.
  // The object's last reference may be given back inside. Keep it short: the thread that releases
  // the object waits.
  template <typename Use>
  bool With(Use&& use) {
    const std::scoped_lock lock(section_);
    if (!browser_) {
      return false;
    }
    use(*browser_);
    return true;
  }

  // Runs `change`, which changes what `With` sees; calls of `With` wait meanwhile.
  template <typename Change>
  void While(Change&& change) {
    const std::scoped_lock lock(section_);
    change();
  }

  // When this returns, nobody uses the object any more.
  void End() {
    const std::scoped_lock lock(section_);
    browser_ = nullptr;
  }

 private:
  // Recursive, as giving back the last reference inside With ends the object on the same thread.
  // The system's own, which costs a walk far less than std::recursive_mutex of the toolchain.
  class Section {
   public:
    Section() { InitializeCriticalSection(&section_); }
    ~Section() { DeleteCriticalSection(&section_); }
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;
    void lock() { EnterCriticalSection(&section_); }
    void unlock() { LeaveCriticalSection(&section_); }

   private:
    CRITICAL_SECTION section_;
  };

  Section section_;
  CKZCEFComBrowser* browser_;
};

}  // namespace kzcef

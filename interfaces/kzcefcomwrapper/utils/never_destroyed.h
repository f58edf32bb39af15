// How the library keeps its process-wide objects.
//
// The rule: no process-wide object that holds a lock, a COM object or an object of the engine's is
// destroyed by the library's static destructors. They run while the process ends, often without
// ExitCef: by then the system has ended the engine's threads wherever they stood, with the locks
// that they held, and has detached the engine's library. Whoever waited for such a lock, or gave
// back what those threads would have to free, would keep the process from ending. What such objects
// hold goes with the process.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

namespace kzcef {

// Makes a T where it stands and never destroys it. For objects of static lifetime.
template <typename T>
class NeverDestroyed {
 public:
  template <typename... Arguments>
  explicit NeverDestroyed(Arguments&&... arguments)
      : object_(::new (static_cast<void*>(storage_)) T(std::forward<Arguments>(arguments)...)) {}
  NeverDestroyed(const NeverDestroyed&) = delete;
  NeverDestroyed& operator=(const NeverDestroyed&) = delete;

  T& operator*() const { return *object_; }
  T* operator->() const { return object_; }

 private:
  alignas(T) std::byte storage_[sizeof(T)];
  T* const object_;
};

}  // namespace kzcef

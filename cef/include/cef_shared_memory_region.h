#pragma once

#include "include/cef_base.h"

// Memory shared between processes.
class CefSharedMemoryRegion : public virtual CefBaseRefCounted {
 public:
  virtual bool IsValid() = 0;
  virtual size_t Size() = 0;
  virtual void* Memory() = 0;
};

// The handler table's COM reference on a host handler.
#pragma once

#include <unknwn.h>

namespace kzcef {

// Takes over one reference to `handler` and releases it in the end.
class HandlerReference {
 public:
  explicit HandlerReference(IUnknown* handler) noexcept : handler_(handler) {}
  ~HandlerReference() { handler_->Release(); }
  HandlerReference(const HandlerReference&) = delete;
  HandlerReference& operator=(const HandlerReference&) = delete;

 private:
  IUnknown* const handler_;
};

}  // namespace kzcef

#pragma once

#include "values.h"

namespace cefedition {

// What every value object has in common: it refers to a node of a tree. |Interface| is
// CefBinaryValue, CefListValue or CefDictionaryValue.
template <class Interface>
class ReferringValue : public Interface {
 public:
  explicit ReferringValue(ValueReference reference) : reference_(std::move(reference)) {}

  ValueNode::Ptr Node() const { return reference_.Get(); }
  ValueNode::Ptr Take(const ValueNode* new_parent) { return reference_.Take(new_parent); }

  bool IsValid() override {
    const std::lock_guard lock(ValueLock());
    return reference_.IsValid();
  }
  bool IsOwned() override {
    const std::lock_guard lock(ValueLock());
    return reference_.IsOwned();
  }
  bool IsSame(CefRefPtr<Interface> that) override {
    const std::lock_guard lock(ValueLock());
    return Node() && Node() == NodeOf(that.get());
  }
  bool IsEqual(CefRefPtr<Interface> that) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    const ValueNode::Ptr other = NodeOf(that.get());
    return node && other && node->Equals(*other);
  }

 protected:
  ValueReference reference_;
};

}  // namespace cefedition

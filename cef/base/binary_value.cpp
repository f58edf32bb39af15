#include <algorithm>

#include "referring_value.h"

namespace cefedition {
namespace {

class BinaryValue final : public ReferringValue<CefBinaryValue> {
 public:
  using ReferringValue::ReferringValue;

  CefRefPtr<CefBinaryValue> Copy() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? OwnBinary(node->Copy()) : nullptr;
  }
  const void* GetRawData() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? node->binary_value.data() : nullptr;
  }
  size_t GetSize() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? node->binary_value.size() : 0;
  }
  size_t GetData(void* buffer, size_t buffer_size, size_t data_offset) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    if (!node || !buffer || data_offset >= node->binary_value.size()) {
      return 0;
    }
    const size_t size = std::min(buffer_size, node->binary_value.size() - data_offset);
    std::copy_n(node->binary_value.data() + data_offset, size, static_cast<uint8_t*>(buffer));
    return size;
  }

 private:
  IMPLEMENT_REFCOUNTING(BinaryValue);
};

}  // namespace

CefRefPtr<CefBinaryValue> OwnBinary(ValueNode::Ptr root) {
  return new BinaryValue(ValueReference::Own(std::move(root)));
}

CefRefPtr<CefBinaryValue> ReferToBinary(const ValueNode::Ptr& node) {
  if (!node || node->type != VTYPE_BINARY) {
    return nullptr;
  }
  return new BinaryValue(ValueReference::Refer(node));
}

ValueNode::Ptr NodeOf(CefBinaryValue* value) {
  const auto* binary = dynamic_cast<BinaryValue*>(value);
  return binary ? binary->Node() : nullptr;
}

ValueNode::Ptr TakeNode(CefBinaryValue* value, const ValueNode* new_parent) {
  auto* const binary = dynamic_cast<BinaryValue*>(value);
  return binary ? binary->Take(new_parent) : nullptr;
}

}  // namespace cefedition

CefRefPtr<CefBinaryValue> CefBinaryValue::Create(const void* data, size_t data_size) {
  if (!data || data_size == 0) {
    return nullptr;
  }
  return cefedition::OwnBinary(cefedition::ValueNode::MakeBinary(data, data_size));
}

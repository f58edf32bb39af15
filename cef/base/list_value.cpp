#include "container_value.h"

namespace cefedition {
namespace {

class ListValue final : public ContainerValue<CefListValue, size_t> {
 public:
  using ContainerValue::ContainerValue;

  CefRefPtr<CefListValue> Copy() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? OwnList(node->Copy()) : nullptr;
  }
  bool SetSize(size_t size) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = reference_.GetWritable();
    if (!node || size > ValueNode::kMaxListSize) {
      return false;
    }
    node->Resize(size);
    return true;
  }
  size_t GetSize() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? node->items.size() : 0;
  }
  bool Remove(size_t index) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = reference_.GetWritable();
    if (!node || index >= node->items.size()) {
      return false;
    }
    node->RemoveItem(index);
    return true;
  }

  void ForbidChanges() {
    const std::lock_guard lock(ValueLock());
    if (const ValueNode::Ptr node = Node()) {
      node->read_only = true;
    }
  }

 private:
  ValueNode::Ptr Find(const ValueNode& node, size_t index) const override {
    return index < node.items.size() ? node.items[index] : nullptr;
  }
  bool Accepts(size_t index) const override { return index < ValueNode::kMaxListSize; }
  void Store(ValueNode* node, size_t index, ValueNode::Ptr child) override {
    node->SetItem(index, std::move(child));
  }

  IMPLEMENT_REFCOUNTING(ListValue);
};

}  // namespace

CefRefPtr<CefListValue> OwnList(ValueNode::Ptr root) {
  return new ListValue(ValueReference::Own(std::move(root)));
}

CefRefPtr<CefListValue> ReferToList(const ValueNode::Ptr& node) {
  if (!node || node->type != VTYPE_LIST) {
    return nullptr;
  }
  return new ListValue(ValueReference::Refer(node));
}

ValueNode::Ptr NodeOf(CefListValue* value) {
  const auto* list = dynamic_cast<ListValue*>(value);
  return list ? list->Node() : nullptr;
}

ValueNode::Ptr TakeNode(CefListValue* value, const ValueNode* new_parent) {
  auto* const list = dynamic_cast<ListValue*>(value);
  return list ? list->Take(new_parent) : nullptr;
}

void MakeReadOnly(CefListValue* value) {
  if (auto* const list = dynamic_cast<ListValue*>(value)) {
    list->ForbidChanges();
  }
}

}  // namespace cefedition

CefRefPtr<CefListValue> CefListValue::Create() {
  return cefedition::OwnList(cefedition::ValueNode::Make(VTYPE_LIST));
}

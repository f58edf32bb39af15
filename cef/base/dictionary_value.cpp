#include "container_value.h"

namespace cefedition {
namespace {

class DictionaryValue final : public ContainerValue<CefDictionaryValue, const CefString&> {
 public:
  using ContainerValue::ContainerValue;

  CefRefPtr<CefDictionaryValue> Copy(bool exclude_empty_children) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? OwnDictionary(node->Copy(exclude_empty_children)) : nullptr;
  }
  size_t GetSize() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? node->entries.size() : 0;
  }
  bool HasKey(const CefString& key) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node && node->entries.contains(key);
  }
  bool GetKeys(KeyList& keys) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    if (!node) {
      return false;
    }
    for (const auto& entry : node->entries) {
      keys.push_back(entry.first);
    }
    return true;
  }
  bool Remove(const CefString& key) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = reference_.GetWritable();
    if (!node || !node->entries.contains(key)) {
      return false;
    }
    node->RemoveEntry(key);
    return true;
  }

 private:
  ValueNode::Ptr Find(const ValueNode& node, const CefString& key) const override {
    const auto found = node.entries.find(key);
    return found == node.entries.end() ? nullptr : found->second;
  }
  bool Accepts(const CefString& key) const override { return !key.empty(); }
  void Store(ValueNode* node, const CefString& key, ValueNode::Ptr child) override {
    node->SetEntry(key, std::move(child));
  }

  IMPLEMENT_REFCOUNTING(DictionaryValue);
};

}  // namespace

CefRefPtr<CefDictionaryValue> OwnDictionary(ValueNode::Ptr root) {
  return new DictionaryValue(ValueReference::Own(std::move(root)));
}

CefRefPtr<CefDictionaryValue> ReferToDictionary(const ValueNode::Ptr& node) {
  if (!node || node->type != VTYPE_DICTIONARY) {
    return nullptr;
  }
  return new DictionaryValue(ValueReference::Refer(node));
}

ValueNode::Ptr NodeOf(CefDictionaryValue* value) {
  const auto* dictionary = dynamic_cast<DictionaryValue*>(value);
  return dictionary ? dictionary->Node() : nullptr;
}

ValueNode::Ptr TakeNode(CefDictionaryValue* value, const ValueNode* new_parent) {
  auto* const dictionary = dynamic_cast<DictionaryValue*>(value);
  return dictionary ? dictionary->Take(new_parent) : nullptr;
}

}  // namespace cefedition

CefRefPtr<CefDictionaryValue> CefDictionaryValue::Create() {
  return cefedition::OwnDictionary(cefedition::ValueNode::Make(VTYPE_DICTIONARY));
}

#pragma once

#include "referring_value.h"

namespace cefedition {

// What lists and dictionaries have in common: |Interface| is CefListValue or CefDictionaryValue,
// |Key| the type of its keys. The derived class finds and stores nodes.
template <class Interface, typename Key>
class ContainerValue : public ReferringValue<Interface> {
 public:
  using ReferringValue<Interface>::ReferringValue;
  using ReferringValue<Interface>::Node;

  bool IsReadOnly() override {
    const std::lock_guard lock(ValueLock());
    return reference_.IsReadOnly();
  }

  bool Clear() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = reference_.GetWritable();
    if (node) {
      node->Clear();
    }
    return node != nullptr;
  }

  CefValueType GetType(Key key) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr found = FindNode(key);
    return found ? found->type : VTYPE_INVALID;
  }
  bool GetBool(Key key) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr found = FindNode(key);
    return found && found->GetBool();
  }
  int GetInt(Key key) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr found = FindNode(key);
    return found ? found->GetInt() : 0;
  }
  double GetDouble(Key key) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr found = FindNode(key);
    return found ? found->GetDouble() : 0;
  }
  CefString GetString(Key key) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr found = FindNode(key);
    return found ? found->GetString() : CefString();
  }
  CefRefPtr<CefValue> GetValue(Key key) override {
    const std::lock_guard lock(ValueLock());
    return ReferToValue(FindNode(key));
  }
  CefRefPtr<CefBinaryValue> GetBinary(Key key) override {
    const std::lock_guard lock(ValueLock());
    return ReferToBinary(FindNode(key));
  }
  CefRefPtr<CefDictionaryValue> GetDictionary(Key key) override {
    const std::lock_guard lock(ValueLock());
    return ReferToDictionary(FindNode(key));
  }
  CefRefPtr<CefListValue> GetList(Key key) override {
    const std::lock_guard lock(ValueLock());
    return ReferToList(FindNode(key));
  }

  bool SetNull(Key key) override { return Set(key, ValueNode::Make(VTYPE_NULL)); }
  bool SetBool(Key key, bool value) override { return Set(key, ValueNode::MakeBool(value)); }
  bool SetInt(Key key, int value) override { return Set(key, ValueNode::MakeInt(value)); }
  bool SetDouble(Key key, double value) override { return Set(key, ValueNode::MakeDouble(value)); }
  bool SetString(Key key, const CefString& value) override {
    return Set(key, ValueNode::MakeString(value));
  }
  bool SetValue(Key key, CefRefPtr<CefValue> value) override { return SetTaken(key, value.get()); }
  bool SetBinary(Key key, CefRefPtr<CefBinaryValue> value) override {
    return SetTaken(key, value.get());
  }
  bool SetDictionary(Key key, CefRefPtr<CefDictionaryValue> value) override {
    return SetTaken(key, value.get());
  }
  bool SetList(Key key, CefRefPtr<CefListValue> value) override {
    return SetTaken(key, value.get());
  }

 protected:
  virtual ValueNode::Ptr Find(const ValueNode& node, Key key) const = 0;
  // False when the key is impossible.
  virtual bool Accepts(Key key) const = 0;
  virtual void Store(ValueNode* node, Key key, ValueNode::Ptr child) = 0;

  using ReferringValue<Interface>::reference_;

 private:
  ValueNode::Ptr FindNode(Key key) const {
    const ValueNode::Ptr node = Node();
    return node ? Find(*node, key) : nullptr;
  }

  bool Set(Key key, ValueNode::Ptr child) {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = reference_.GetWritable();
    if (!node || !Accepts(key)) {
      return false;
    }
    Store(node.get(), key, std::move(child));
    return true;
  }

  template <class Value>
  bool SetTaken(Key key, Value* value) {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = reference_.GetWritable();
    if (!node || !Accepts(key)) {
      return false;
    }
    ValueNode::Ptr child = TakeNode(value, node.get());
    return child && Set(key, std::move(child));
  }
};

}  // namespace cefedition

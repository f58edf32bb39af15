#include <utility>

#include "values.h"

namespace cefedition {
namespace {

// Holds a simple value itself and refers to an object for a complex one.
class Value final : public CefValue {
 public:
  Value() = default;
  explicit Value(ValueNode::Ptr simple) : simple_(std::move(simple)) {}
  explicit Value(CefRefPtr<CefBinaryValue> value) : binary_(std::move(value)) {}
  explicit Value(CefRefPtr<CefDictionaryValue> value) : dictionary_(std::move(value)) {}
  explicit Value(CefRefPtr<CefListValue> value) : list_(std::move(value)) {}

  ValueNode::Ptr Node() const {
    if (binary_) {
      return NodeOf(binary_.get());
    }
    if (dictionary_) {
      return NodeOf(dictionary_.get());
    }
    if (list_) {
      return NodeOf(list_.get());
    }
    return simple_;
  }

  ValueNode::Ptr Take(const ValueNode* new_parent) {
    if (simple_) {
      return simple_->Copy();
    }
    ValueNode::Ptr node;
    if (binary_ && (node = TakeNode(binary_.get(), new_parent))) {
      binary_ = ReferToBinary(node);
    } else if (dictionary_ && (node = TakeNode(dictionary_.get(), new_parent))) {
      dictionary_ = ReferToDictionary(node);
    } else if (list_ && (node = TakeNode(list_.get(), new_parent))) {
      list_ = ReferToList(node);
    }
    return node;
  }

  bool IsValid() override {
    const std::lock_guard lock(ValueLock());
    return Node() != nullptr;
  }
  bool IsOwned() override {
    const std::lock_guard lock(ValueLock());
    return (binary_ && binary_->IsOwned()) || (dictionary_ && dictionary_->IsOwned()) ||
           (list_ && list_->IsOwned());
  }
  bool IsReadOnly() override {
    const std::lock_guard lock(ValueLock());
    // Bytes can never be changed.
    return binary_ || (dictionary_ && dictionary_->IsReadOnly()) || (list_ && list_->IsReadOnly());
  }
  bool IsSame(CefRefPtr<CefValue> that) override {
    const std::lock_guard lock(ValueLock());
    return Node() && Node() == NodeOf(that.get());
  }
  bool IsEqual(CefRefPtr<CefValue> that) override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    const ValueNode::Ptr other = NodeOf(that.get());
    return node && other && node->Equals(*other);
  }
  CefRefPtr<CefValue> Copy() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? OwnValue(node->Copy()) : nullptr;
  }
  CefValueType GetType() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? node->type : VTYPE_INVALID;
  }

  bool GetBool() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node && node->GetBool();
  }
  int GetInt() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? node->GetInt() : 0;
  }
  double GetDouble() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? node->GetDouble() : 0;
  }
  CefString GetString() override {
    const std::lock_guard lock(ValueLock());
    const ValueNode::Ptr node = Node();
    return node ? node->GetString() : CefString();
  }
  CefRefPtr<CefBinaryValue> GetBinary() override {
    const std::lock_guard lock(ValueLock());
    return binary_;
  }
  CefRefPtr<CefDictionaryValue> GetDictionary() override {
    const std::lock_guard lock(ValueLock());
    return dictionary_;
  }
  CefRefPtr<CefListValue> GetList() override {
    const std::lock_guard lock(ValueLock());
    return list_;
  }

  bool SetNull() override { return Hold(ValueNode::Make(VTYPE_NULL), nullptr, nullptr, nullptr); }
  bool SetBool(bool value) override {
    return Hold(ValueNode::MakeBool(value), nullptr, nullptr, nullptr);
  }
  bool SetInt(int value) override {
    return Hold(ValueNode::MakeInt(value), nullptr, nullptr, nullptr);
  }
  bool SetDouble(double value) override {
    return Hold(ValueNode::MakeDouble(value), nullptr, nullptr, nullptr);
  }
  bool SetString(const CefString& value) override {
    return Hold(ValueNode::MakeString(value), nullptr, nullptr, nullptr);
  }
  bool SetBinary(CefRefPtr<CefBinaryValue> value) override {
    return value && Hold(nullptr, value, nullptr, nullptr);
  }
  bool SetDictionary(CefRefPtr<CefDictionaryValue> value) override {
    return value && Hold(nullptr, nullptr, value, nullptr);
  }
  bool SetList(CefRefPtr<CefListValue> value) override {
    return value && Hold(nullptr, nullptr, nullptr, value);
  }

 private:
  bool Hold(ValueNode::Ptr simple,
            CefRefPtr<CefBinaryValue> binary,
            CefRefPtr<CefDictionaryValue> dictionary,
            CefRefPtr<CefListValue> list) {
    const std::lock_guard lock(ValueLock());
    simple_ = std::move(simple);
    binary_ = std::move(binary);
    dictionary_ = std::move(dictionary);
    list_ = std::move(list);
    return true;
  }

  // Exactly one of the four is set.
  ValueNode::Ptr simple_;
  CefRefPtr<CefBinaryValue> binary_;
  CefRefPtr<CefDictionaryValue> dictionary_;
  CefRefPtr<CefListValue> list_;

  IMPLEMENT_REFCOUNTING(Value);
};

}  // namespace

CefRefPtr<CefValue> OwnValue(ValueNode::Ptr root) {
  switch (root->type) {
    case VTYPE_BINARY:
      return new Value(OwnBinary(std::move(root)));
    case VTYPE_DICTIONARY:
      return new Value(OwnDictionary(std::move(root)));
    case VTYPE_LIST:
      return new Value(OwnList(std::move(root)));
    default:
      return new Value(std::move(root));
  }
}

CefRefPtr<CefValue> ReferToValue(const ValueNode::Ptr& node) {
  if (!node) {
    return nullptr;
  }
  switch (node->type) {
    case VTYPE_BINARY:
      return new Value(ReferToBinary(node));
    case VTYPE_DICTIONARY:
      return new Value(ReferToDictionary(node));
    case VTYPE_LIST:
      return new Value(ReferToList(node));
    default:
      return new Value(node->Copy());
  }
}

ValueNode::Ptr NodeOf(CefValue* value) {
  const auto* known = dynamic_cast<Value*>(value);
  return known ? known->Node() : nullptr;
}

ValueNode::Ptr TakeNode(CefValue* value, const ValueNode* new_parent) {
  auto* const known = dynamic_cast<Value*>(value);
  return known ? known->Take(new_parent) : nullptr;
}

}  // namespace cefedition

CefRefPtr<CefValue> CefValue::Create() {
  return cefedition::OwnValue(cefedition::ValueNode::Make(VTYPE_NULL));
}

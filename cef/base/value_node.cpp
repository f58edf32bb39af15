#include "value_node.h"

#include <algorithm>

namespace cefedition {

std::recursive_mutex& ValueLock() {
  static std::recursive_mutex lock;
  return lock;
}

// Another thread may be looking at a node below this one.
ValueNode::~ValueNode() {
  const std::lock_guard lock(ValueLock());
  Clear();
}

ValueNode::Ptr ValueNode::Make(CefValueType type) {
  auto node = std::make_shared<ValueNode>();
  node->type = type;
  return node;
}

ValueNode::Ptr ValueNode::MakeBool(bool value) {
  Ptr node = Make(VTYPE_BOOL);
  node->bool_value = value;
  return node;
}

ValueNode::Ptr ValueNode::MakeInt(int value) {
  Ptr node = Make(VTYPE_INT);
  node->int_value = value;
  return node;
}

ValueNode::Ptr ValueNode::MakeDouble(double value) {
  Ptr node = Make(VTYPE_DOUBLE);
  node->double_value = value;
  return node;
}

ValueNode::Ptr ValueNode::MakeString(const CefString& value) {
  Ptr node = Make(VTYPE_STRING);
  node->string_value = value;
  return node;
}

ValueNode::Ptr ValueNode::MakeBinary(const void* data, size_t size) {
  Ptr node = Make(VTYPE_BINARY);
  const auto* bytes = static_cast<const uint8_t*>(data);
  node->binary_value.assign(bytes, bytes + size);
  return node;
}

ValueNode::Ptr ValueNode::Copy(bool exclude_empty_children) const {
  Ptr copy = Make(type);
  copy->bool_value = bool_value;
  copy->int_value = int_value;
  copy->double_value = double_value;
  copy->string_value = string_value;
  copy->binary_value = binary_value;
  for (const auto& [key, child] : entries) {
    Ptr child_copy = child->Copy(exclude_empty_children);
    if (!exclude_empty_children || !child_copy->IsEmptyContainer()) {
      copy->SetEntry(key, std::move(child_copy));
    }
  }
  for (const Ptr& child : items) {
    Ptr child_copy = child->Copy(exclude_empty_children);
    if (!exclude_empty_children || !child_copy->IsEmptyContainer()) {
      copy->SetItem(copy->items.size(), std::move(child_copy));
    }
  }
  return copy;
}

bool ValueNode::Equals(const ValueNode& other) const {
  const auto same = [](const Ptr& a, const Ptr& b) { return a->Equals(*b); };
  return type == other.type && bool_value == other.bool_value && int_value == other.int_value &&
         double_value == other.double_value && string_value == other.string_value &&
         binary_value == other.binary_value &&
         std::equal(items.begin(), items.end(), other.items.begin(), other.items.end(), same) &&
         std::equal(entries.begin(), entries.end(), other.entries.begin(), other.entries.end(),
                    [](const auto& a, const auto& b) {
                      return a.first == b.first && a.second->Equals(*b.second);
                    });
}

bool ValueNode::IsEmptyContainer() const {
  return (type == VTYPE_LIST && items.empty()) || (type == VTYPE_DICTIONARY && entries.empty());
}

bool ValueNode::IsInside(const ValueNode* node) const {
  for (const ValueNode* above = this; above; above = above->parent) {
    if (above == node) {
      return true;
    }
  }
  return false;
}

bool ValueNode::GetBool() const {
  return type == VTYPE_BOOL && bool_value;
}

int ValueNode::GetInt() const {
  return type == VTYPE_INT ? int_value : 0;
}

double ValueNode::GetDouble() const {
  return type == VTYPE_INT ? int_value : double_value;
}

CefString ValueNode::GetString() const {
  return string_value;
}

void ValueNode::SetEntry(const CefString& key, Ptr child) {
  RemoveEntry(key);
  child->parent = this;
  entries[key] = std::move(child);
}

void ValueNode::SetItem(size_t index, Ptr child) {
  if (index >= items.size()) {
    Resize(index + 1);
  }
  items[index]->parent = nullptr;
  child->parent = this;
  items[index] = std::move(child);
}

void ValueNode::RemoveEntry(const CefString& key) {
  const auto found = entries.find(key);
  if (found != entries.end()) {
    found->second->parent = nullptr;
    entries.erase(found);
  }
}

void ValueNode::RemoveItem(size_t index) {
  items[index]->parent = nullptr;
  items.erase(items.begin() + static_cast<ptrdiff_t>(index));
}

void ValueNode::Resize(size_t size) {
  while (items.size() > size) {
    RemoveItem(items.size() - 1);
  }
  while (items.size() < size) {
    items.push_back(Make(VTYPE_NULL));
    items.back()->parent = this;
  }
}

void ValueNode::Clear() {
  for (const auto& entry : entries) {
    entry.second->parent = nullptr;
  }
  entries.clear();
  Resize(0);
}

bool ValueNode::IsReadOnly() const {
  const ValueNode* root = this;
  while (root->parent) {
    root = root->parent;
  }
  return root->read_only;
}

ValueReference ValueReference::Own(ValueNode::Ptr root) {
  ValueReference reference;
  reference.owned_ = std::move(root);
  return reference;
}

ValueReference ValueReference::Refer(const ValueNode::Ptr& node) {
  ValueReference reference;
  reference.referred_ = node;
  return reference;
}

ValueNode::Ptr ValueReference::Get() const {
  if (owned_) {
    return owned_;
  }
  // A node outlives its tree while somebody holds it; it is then no part of anything.
  ValueNode::Ptr node = referred_.lock();
  return node && node->parent ? node : nullptr;
}

ValueNode::Ptr ValueReference::GetWritable() const {
  ValueNode::Ptr node = Get();
  return node && !node->IsReadOnly() ? node : nullptr;
}

bool ValueReference::IsOwned() const {
  return !owned_ && Get();
}

bool ValueReference::IsReadOnly() const {
  const ValueNode::Ptr node = Get();
  return !node || node->IsReadOnly();
}

ValueNode::Ptr ValueReference::Take(const ValueNode* new_parent) {
  ValueNode::Ptr node = Get();
  // A tree cannot be hung below itself, and a read-only one stays with whoever made it so.
  if (owned_ && !owned_->read_only && !new_parent->IsInside(owned_.get())) {
    owned_ = nullptr;
    return node;
  }
  return node ? node->Copy() : nullptr;
}

}  // namespace cefedition

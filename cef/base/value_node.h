#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "include/cef_values.h"

namespace cefedition {

// The data behind the value classes: a tree of nodes. A root belongs to the object that made it;
// every other node belongs to the list or dictionary above it, and objects that refer to it become
// invalid when it leaves the tree.
struct ValueNode {
  using Ptr = std::shared_ptr<ValueNode>;

  ValueNode() = default;
  ValueNode(const ValueNode&) = delete;
  ValueNode& operator=(const ValueNode&) = delete;
  ~ValueNode();

  // Beyond this a list is refused: the index can only be a mistake.
  static constexpr size_t kMaxListSize = size_t{1} << 24;

  static Ptr Make(CefValueType type);
  static Ptr MakeBool(bool value);
  static Ptr MakeInt(int value);
  static Ptr MakeDouble(double value);
  static Ptr MakeString(const CefString& value);
  static Ptr MakeBinary(const void* data, size_t size);

  // A tree of its own with the same content.
  Ptr Copy(bool exclude_empty_children = false) const;
  bool Equals(const ValueNode& other) const;
  bool IsEmptyContainer() const;

  // True when |node| is this one or lies above it.
  bool IsInside(const ValueNode* node) const;

  // What the getters answer: the value, or a zero if the node holds another type.
  bool GetBool() const;
  int GetInt() const;
  // Whole numbers, too.
  double GetDouble() const;
  CefString GetString() const;

  // Hangs |child| below this node. |child| must be a root.
  void SetEntry(const CefString& key, Ptr child);
  void SetItem(size_t index, Ptr child);
  // Cut nodes off, which makes them roots.
  void RemoveEntry(const CefString& key);
  void RemoveItem(size_t index);
  void Resize(size_t size);
  void Clear();

  CefValueType type = VTYPE_NULL;
  bool bool_value = false;
  int int_value = 0;
  double double_value = 0;
  CefString string_value;
  std::vector<uint8_t> binary_value;
  std::map<CefString, Ptr> entries;
  std::vector<Ptr> items;

  ValueNode* parent = nullptr;
  // Set on the root of a tree that nobody may change any more.
  bool read_only = false;

  bool IsReadOnly() const;
};

// Held for every look at a node: trees are shared between threads, and an operation may touch two.
std::recursive_mutex& ValueLock();

// What a value object refers to: a root that it owns, or a node in a tree that somebody else owns.
class ValueReference {
 public:
  ValueReference() = default;

  static ValueReference Own(ValueNode::Ptr root);
  static ValueReference Refer(const ValueNode::Ptr& node);

  // Null when the node has left its tree, or has been handed over.
  ValueNode::Ptr Get() const;
  // Null also when the tree is read-only.
  ValueNode::Ptr GetWritable() const;

  bool IsValid() const { return Get() != nullptr; }
  // By another object than this one's holder.
  bool IsOwned() const;
  bool IsReadOnly() const;

  // For storing under |new_parent|: the node itself if it is an owned root, which leaves this
  // reference invalid; a copy of it if it belongs elsewhere. Null when invalid.
  ValueNode::Ptr Take(const ValueNode* new_parent);

 private:
  // Only for a root.
  ValueNode::Ptr owned_;
  std::weak_ptr<ValueNode> referred_;
};

}  // namespace cefedition

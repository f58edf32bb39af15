#pragma once

#include "include/cef_values.h"
#include "value_node.h"

// Between value objects and the nodes behind them. ValueLock is to be held while a node is used.

namespace cefedition {

// Objects that own |root|.
CefRefPtr<CefValue> OwnValue(ValueNode::Ptr root);
CefRefPtr<CefBinaryValue> OwnBinary(ValueNode::Ptr root);
CefRefPtr<CefDictionaryValue> OwnDictionary(ValueNode::Ptr root);
CefRefPtr<CefListValue> OwnList(ValueNode::Ptr root);

// Objects for a node in a tree that somebody else owns. A simple value is copied. Null for null.
CefRefPtr<CefValue> ReferToValue(const ValueNode::Ptr& node);
CefRefPtr<CefBinaryValue> ReferToBinary(const ValueNode::Ptr& node);
CefRefPtr<CefDictionaryValue> ReferToDictionary(const ValueNode::Ptr& node);
CefRefPtr<CefListValue> ReferToList(const ValueNode::Ptr& node);

// The node behind an object; null when the object is null, invalid, or not of the edition's making.
ValueNode::Ptr NodeOf(CefValue* value);
ValueNode::Ptr NodeOf(CefBinaryValue* value);
ValueNode::Ptr NodeOf(CefDictionaryValue* value);
ValueNode::Ptr NodeOf(CefListValue* value);

// The node to hang below |new_parent|: see ValueReference::Take. Null as for NodeOf. A CefValue
// refers to the hung node afterwards.
ValueNode::Ptr TakeNode(CefValue* value, const ValueNode* new_parent);
ValueNode::Ptr TakeNode(CefBinaryValue* value, const ValueNode* new_parent);
ValueNode::Ptr TakeNode(CefDictionaryValue* value, const ValueNode* new_parent);
ValueNode::Ptr TakeNode(CefListValue* value, const ValueNode* new_parent);

// Forbids further changes, as for the arguments of a message that has arrived.
void MakeReadOnly(CefListValue* value);

}  // namespace cefedition

// include/cef_values.h over the C API.

#include "include/cef_values.h"

#include "binding.h"

namespace cefbinding {
namespace {

class ValueObject final : public LibraryObject<CefValue> {
 public:
  explicit ValueObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  bool IsOwned() override { return Call(&Struct::is_owned); }
  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  bool IsSame(CefRefPtr<CefValue> that) override { return Call(&Struct::is_same, that); }
  bool IsEqual(CefRefPtr<CefValue> that) override { return Call(&Struct::is_equal, that); }
  CefRefPtr<CefValue> Copy() override { return Call(&Struct::copy); }
  CefValueType GetType() override { return Call(&Struct::get_type); }
  bool GetBool() override { return Call(&Struct::get_bool); }
  int GetInt() override { return Call(&Struct::get_int); }
  double GetDouble() override { return Call(&Struct::get_double); }
  CefString GetString() override { return Call(&Struct::get_string); }
  CefRefPtr<CefBinaryValue> GetBinary() override { return Call(&Struct::get_binary); }
  CefRefPtr<CefDictionaryValue> GetDictionary() override { return Call(&Struct::get_dictionary); }
  CefRefPtr<CefListValue> GetList() override { return Call(&Struct::get_list); }
  bool SetNull() override { return Call(&Struct::set_null); }
  bool SetBool(bool value) override { return Call(&Struct::set_bool, value); }
  bool SetInt(int value) override { return Call(&Struct::set_int, value); }
  bool SetDouble(double value) override { return Call(&Struct::set_double, value); }
  bool SetString(const CefString& value) override { return Call(&Struct::set_string, value); }
  bool SetBinary(CefRefPtr<CefBinaryValue> value) override {
    return Call(&Struct::set_binary, value);
  }
  bool SetDictionary(CefRefPtr<CefDictionaryValue> value) override {
    return Call(&Struct::set_dictionary, value);
  }
  bool SetList(CefRefPtr<CefListValue> value) override { return Call(&Struct::set_list, value); }
};

class BinaryValueObject final : public LibraryObject<CefBinaryValue> {
 public:
  explicit BinaryValueObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  bool IsOwned() override { return Call(&Struct::is_owned); }
  bool IsSame(CefRefPtr<CefBinaryValue> that) override { return Call(&Struct::is_same, that); }
  bool IsEqual(CefRefPtr<CefBinaryValue> that) override { return Call(&Struct::is_equal, that); }
  CefRefPtr<CefBinaryValue> Copy() override { return Call(&Struct::copy); }
  const void* GetRawData() override { return Call(&Struct::get_raw_data); }
  size_t GetSize() override { return Call(&Struct::get_size); }
  size_t GetData(void* buffer, size_t buffer_size, size_t data_offset) override {
    return Call(&Struct::get_data, buffer, buffer_size, data_offset);
  }
};

class DictionaryValueObject final : public LibraryObject<CefDictionaryValue> {
 public:
  explicit DictionaryValueObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  bool IsOwned() override { return Call(&Struct::is_owned); }
  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  bool IsSame(CefRefPtr<CefDictionaryValue> that) override { return Call(&Struct::is_same, that); }
  bool IsEqual(CefRefPtr<CefDictionaryValue> that) override {
    return Call(&Struct::is_equal, that);
  }
  CefRefPtr<CefDictionaryValue> Copy(bool exclude_empty_children) override {
    return Call(&Struct::copy, exclude_empty_children);
  }
  size_t GetSize() override { return Call(&Struct::get_size); }
  bool Clear() override { return Call(&Struct::clear); }
  bool HasKey(const CefString& key) override { return Call(&Struct::has_key, Needed(key)); }
  bool GetKeys(KeyList& keys) override { return Call(&Struct::get_keys, &keys); }
  bool Remove(const CefString& key) override { return Call(&Struct::remove, Needed(key)); }
  CefValueType GetType(const CefString& key) override {
    return Call(&Struct::get_type, Needed(key));
  }
  CefRefPtr<CefValue> GetValue(const CefString& key) override {
    return Call(&Struct::get_value, Needed(key));
  }
  bool GetBool(const CefString& key) override { return Call(&Struct::get_bool, Needed(key)); }
  int GetInt(const CefString& key) override { return Call(&Struct::get_int, Needed(key)); }
  double GetDouble(const CefString& key) override { return Call(&Struct::get_double, Needed(key)); }
  CefString GetString(const CefString& key) override {
    return Call(&Struct::get_string, Needed(key));
  }
  CefRefPtr<CefBinaryValue> GetBinary(const CefString& key) override {
    return Call(&Struct::get_binary, Needed(key));
  }
  CefRefPtr<CefDictionaryValue> GetDictionary(const CefString& key) override {
    return Call(&Struct::get_dictionary, Needed(key));
  }
  CefRefPtr<CefListValue> GetList(const CefString& key) override {
    return Call(&Struct::get_list, Needed(key));
  }
  bool SetValue(const CefString& key, CefRefPtr<CefValue> value) override {
    return Call(&Struct::set_value, Needed(key), value);
  }
  bool SetNull(const CefString& key) override { return Call(&Struct::set_null, Needed(key)); }
  bool SetBool(const CefString& key, bool value) override {
    return Call(&Struct::set_bool, Needed(key), value);
  }
  bool SetInt(const CefString& key, int value) override {
    return Call(&Struct::set_int, Needed(key), value);
  }
  bool SetDouble(const CefString& key, double value) override {
    return Call(&Struct::set_double, Needed(key), value);
  }
  bool SetString(const CefString& key, const CefString& value) override {
    return Call(&Struct::set_string, Needed(key), value);
  }
  bool SetBinary(const CefString& key, CefRefPtr<CefBinaryValue> value) override {
    return Call(&Struct::set_binary, Needed(key), value);
  }
  bool SetDictionary(const CefString& key, CefRefPtr<CefDictionaryValue> value) override {
    return Call(&Struct::set_dictionary, Needed(key), value);
  }
  bool SetList(const CefString& key, CefRefPtr<CefListValue> value) override {
    return Call(&Struct::set_list, Needed(key), value);
  }
};

class ListValueObject final : public LibraryObject<CefListValue> {
 public:
  explicit ListValueObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  bool IsOwned() override { return Call(&Struct::is_owned); }
  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  bool IsSame(CefRefPtr<CefListValue> that) override { return Call(&Struct::is_same, that); }
  bool IsEqual(CefRefPtr<CefListValue> that) override { return Call(&Struct::is_equal, that); }
  CefRefPtr<CefListValue> Copy() override { return Call(&Struct::copy); }
  bool SetSize(size_t size) override { return Call(&Struct::set_size, size); }
  size_t GetSize() override { return Call(&Struct::get_size); }
  bool Clear() override { return Call(&Struct::clear); }
  bool Remove(size_t index) override { return Call(&Struct::remove, index); }
  CefValueType GetType(size_t index) override { return Call(&Struct::get_type, index); }
  CefRefPtr<CefValue> GetValue(size_t index) override { return Call(&Struct::get_value, index); }
  bool GetBool(size_t index) override { return Call(&Struct::get_bool, index); }
  int GetInt(size_t index) override { return Call(&Struct::get_int, index); }
  double GetDouble(size_t index) override { return Call(&Struct::get_double, index); }
  CefString GetString(size_t index) override { return Call(&Struct::get_string, index); }
  CefRefPtr<CefBinaryValue> GetBinary(size_t index) override {
    return Call(&Struct::get_binary, index);
  }
  CefRefPtr<CefDictionaryValue> GetDictionary(size_t index) override {
    return Call(&Struct::get_dictionary, index);
  }
  CefRefPtr<CefListValue> GetList(size_t index) override { return Call(&Struct::get_list, index); }
  bool SetValue(size_t index, CefRefPtr<CefValue> value) override {
    return Call(&Struct::set_value, index, value);
  }
  bool SetNull(size_t index) override { return Call(&Struct::set_null, index); }
  bool SetBool(size_t index, bool value) override { return Call(&Struct::set_bool, index, value); }
  bool SetInt(size_t index, int value) override { return Call(&Struct::set_int, index, value); }
  bool SetDouble(size_t index, double value) override {
    return Call(&Struct::set_double, index, value);
  }
  bool SetString(size_t index, const CefString& value) override {
    return Call(&Struct::set_string, index, value);
  }
  bool SetBinary(size_t index, CefRefPtr<CefBinaryValue> value) override {
    return Call(&Struct::set_binary, index, value);
  }
  bool SetDictionary(size_t index, CefRefPtr<CefDictionaryValue> value) override {
    return Call(&Struct::set_dictionary, index, value);
  }
  bool SetList(size_t index, CefRefPtr<CefListValue> value) override {
    return Call(&Struct::set_list, index, value);
  }
};

}  // namespace

template <>
CefRefPtr<CefValue> Counterpart<CefValue>::LibraryClass::Wrap(Struct* object) {
  return new ValueObject(object);
}

template <>
CefRefPtr<CefBinaryValue> Counterpart<CefBinaryValue>::LibraryClass::Wrap(Struct* object) {
  return new BinaryValueObject(object);
}

template <>
CefRefPtr<CefDictionaryValue> Counterpart<CefDictionaryValue>::LibraryClass::Wrap(Struct* object) {
  return new DictionaryValueObject(object);
}

template <>
CefRefPtr<CefListValue> Counterpart<CefListValue>::LibraryClass::Wrap(Struct* object) {
  return new ListValueObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;

CefRefPtr<CefValue> CefValue::Create() {
  return CallEngine(&capi::Functions::cef_value_create);
}

CefRefPtr<CefBinaryValue> CefBinaryValue::Create(const void* data, size_t data_size) {
  return CallEngine(&capi::Functions::cef_binary_value_create, data, data_size);
}

CefRefPtr<CefDictionaryValue> CefDictionaryValue::Create() {
  return CallEngine(&capi::Functions::cef_dictionary_value_create);
}

CefRefPtr<CefListValue> CefListValue::Create() {
  return CallEngine(&capi::Functions::cef_list_value_create);
}

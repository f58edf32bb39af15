// include/cef_values.h of CEF 123, as far as it is used here:
// values, and dictionaries and lists of them.
#pragma once

#include <vector>

#include "include/cef_base.h"

class CefBinaryValue;
class CefDictionaryValue;
class CefListValue;
typedef cef_value_type_t CefValueType;

// One value of any type. When it is put into a container, simple data is copied; bytes,
// dictionaries and lists are then shared by both.
class CefValue : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefValue> Create();
  virtual bool IsValid() = 0;
  virtual bool IsOwned() = 0;
  virtual bool IsReadOnly() = 0;
  virtual bool IsSame(CefRefPtr<CefValue> that) = 0;
  virtual bool IsEqual(CefRefPtr<CefValue> that) = 0;
  virtual CefRefPtr<CefValue> Copy() = 0;
  virtual CefValueType GetType() = 0;
  virtual bool GetBool() = 0;
  virtual int GetInt() = 0;
  virtual double GetDouble() = 0;
  virtual CefString GetString() = 0;
  virtual CefRefPtr<CefBinaryValue> GetBinary() = 0;
  virtual CefRefPtr<CefDictionaryValue> GetDictionary() = 0;
  virtual CefRefPtr<CefListValue> GetList() = 0;
  virtual bool SetNull() = 0;
  virtual bool SetBool(bool value) = 0;
  virtual bool SetInt(int value) = 0;
  virtual bool SetDouble(double value) = 0;
  virtual bool SetString(const CefString& value) = 0;
  virtual bool SetBinary(CefRefPtr<CefBinaryValue> value) = 0;
  virtual bool SetDictionary(CefRefPtr<CefDictionaryValue> value) = 0;
  virtual bool SetList(CefRefPtr<CefListValue> value) = 0;
};

// Bytes.
class CefBinaryValue : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefBinaryValue> Create(const void* data, size_t data_size);
  virtual bool IsValid() = 0;
  virtual bool IsOwned() = 0;
  virtual bool IsSame(CefRefPtr<CefBinaryValue> that) = 0;
  virtual bool IsEqual(CefRefPtr<CefBinaryValue> that) = 0;
  virtual CefRefPtr<CefBinaryValue> Copy() = 0;
  virtual const void* GetRawData() = 0;
  virtual size_t GetSize() = 0;
  virtual size_t GetData(void* buffer, size_t buffer_size, size_t data_offset) = 0;
};

// Values by key. Setters return false on a read-only or invalid object.
class CefDictionaryValue : public virtual CefBaseRefCounted {
 public:
  typedef std::vector<CefString> KeyList;

  static CefRefPtr<CefDictionaryValue> Create();
  virtual bool IsValid() = 0;
  virtual bool IsOwned() = 0;
  virtual bool IsReadOnly() = 0;
  virtual bool IsSame(CefRefPtr<CefDictionaryValue> that) = 0;
  virtual bool IsEqual(CefRefPtr<CefDictionaryValue> that) = 0;
  virtual CefRefPtr<CefDictionaryValue> Copy(bool exclude_empty_children) = 0;
  virtual size_t GetSize() = 0;
  virtual bool Clear() = 0;
  virtual bool HasKey(const CefString& key) = 0;
  virtual bool GetKeys(KeyList& keys) = 0;
  virtual bool Remove(const CefString& key) = 0;
  virtual CefValueType GetType(const CefString& key) = 0;
  virtual CefRefPtr<CefValue> GetValue(const CefString& key) = 0;
  virtual bool GetBool(const CefString& key) = 0;
  virtual int GetInt(const CefString& key) = 0;
  virtual double GetDouble(const CefString& key) = 0;
  virtual CefString GetString(const CefString& key) = 0;
  virtual CefRefPtr<CefBinaryValue> GetBinary(const CefString& key) = 0;
  virtual CefRefPtr<CefDictionaryValue> GetDictionary(const CefString& key) = 0;
  virtual CefRefPtr<CefListValue> GetList(const CefString& key) = 0;
  virtual bool SetValue(const CefString& key, CefRefPtr<CefValue> value) = 0;
  virtual bool SetNull(const CefString& key) = 0;
  virtual bool SetBool(const CefString& key, bool value) = 0;
  virtual bool SetInt(const CefString& key, int value) = 0;
  virtual bool SetDouble(const CefString& key, double value) = 0;
  virtual bool SetString(const CefString& key, const CefString& value) = 0;
  virtual bool SetBinary(const CefString& key, CefRefPtr<CefBinaryValue> value) = 0;
  virtual bool SetDictionary(const CefString& key, CefRefPtr<CefDictionaryValue> value) = 0;
  virtual bool SetList(const CefString& key, CefRefPtr<CefListValue> value) = 0;
};

// Values by position. Setters return false on a read-only or invalid object.
class CefListValue : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefListValue> Create();
  virtual bool IsValid() = 0;
  virtual bool IsOwned() = 0;
  virtual bool IsReadOnly() = 0;
  virtual bool IsSame(CefRefPtr<CefListValue> that) = 0;
  virtual bool IsEqual(CefRefPtr<CefListValue> that) = 0;
  virtual CefRefPtr<CefListValue> Copy() = 0;
  virtual bool SetSize(size_t size) = 0;
  virtual size_t GetSize() = 0;
  virtual bool Clear() = 0;
  virtual bool Remove(size_t index) = 0;
  virtual CefValueType GetType(size_t index) = 0;
  virtual CefRefPtr<CefValue> GetValue(size_t index) = 0;
  virtual bool GetBool(size_t index) = 0;
  virtual int GetInt(size_t index) = 0;
  virtual double GetDouble(size_t index) = 0;
  virtual CefString GetString(size_t index) = 0;
  virtual CefRefPtr<CefBinaryValue> GetBinary(size_t index) = 0;
  virtual CefRefPtr<CefDictionaryValue> GetDictionary(size_t index) = 0;
  virtual CefRefPtr<CefListValue> GetList(size_t index) = 0;
  virtual bool SetValue(size_t index, CefRefPtr<CefValue> value) = 0;
  virtual bool SetNull(size_t index) = 0;
  virtual bool SetBool(size_t index, bool value) = 0;
  virtual bool SetInt(size_t index, int value) = 0;
  virtual bool SetDouble(size_t index, double value) = 0;
  virtual bool SetString(size_t index, const CefString& value) = 0;
  virtual bool SetBinary(size_t index, CefRefPtr<CefBinaryValue> value) = 0;
  virtual bool SetDictionary(size_t index, CefRefPtr<CefDictionaryValue> value) = 0;
  virtual bool SetList(size_t index, CefRefPtr<CefListValue> value) = 0;
};

// include/cef_stream.h of CEF 123, as far as it is used here: streams of bytes to read.
#pragma once

#include "include/cef_base.h"

// A source of bytes that the client implements. The members behave like C's file functions.
class CefReadHandler : public virtual CefBaseRefCounted {
 public:
  virtual size_t Read(void* ptr, size_t size, size_t n) = 0;
  virtual int Seek(int64_t offset, int whence) = 0;
  virtual int64_t Tell() = 0;
  virtual int Eof() = 0;
  virtual bool MayBlock() = 0;
};

// Reads from a file, memory or a CefReadHandler.
class CefStreamReader : public virtual CefBaseRefCounted {
 public:
  static CefRefPtr<CefStreamReader> CreateForFile(const CefString& fileName);
  static CefRefPtr<CefStreamReader> CreateForData(void* data, size_t size);
  static CefRefPtr<CefStreamReader> CreateForHandler(CefRefPtr<CefReadHandler> handler);
  virtual size_t Read(void* ptr, size_t size, size_t n) = 0;
  virtual int Seek(int64_t offset, int whence) = 0;
  virtual int64_t Tell() = 0;
  virtual int Eof() = 0;
  virtual bool MayBlock() = 0;
};

// include/cef_stream.h over the C API.

#include "include/cef_stream.h"

#include "binding.h"

namespace cefbinding {
namespace {

class StreamReaderObject final : public LibraryObject<CefStreamReader> {
 public:
  explicit StreamReaderObject(Struct* object) : LibraryObject(object) {}

  size_t Read(void* ptr, size_t size, size_t n) override {
    return Call(&Struct::read, ptr, size, n);
  }
  int Seek(int64_t offset, int whence) override { return Call(&Struct::seek, offset, whence); }
  int64_t Tell() override { return Call(&Struct::tell); }
  int Eof() override { return Call(&Struct::eof); }
  bool MayBlock() override { return Call(&Struct::may_block); }
};

}  // namespace

template <>
void Counterpart<CefReadHandler>::ClientClass::Bind(Struct& functions) {
  cefbinding::Bind<&CefReadHandler::Read>(functions.read);
  cefbinding::Bind<&CefReadHandler::Seek>(functions.seek);
  cefbinding::Bind<&CefReadHandler::Tell>(functions.tell);
  cefbinding::Bind<&CefReadHandler::Eof>(functions.eof);
  cefbinding::Bind<&CefReadHandler::MayBlock>(functions.may_block);
}

template <>
CefRefPtr<CefStreamReader> Counterpart<CefStreamReader>::LibraryClass::Wrap(Struct* object) {
  return new StreamReaderObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;
using cefbinding::Needed;

CefRefPtr<CefStreamReader> CefStreamReader::CreateForFile(const CefString& fileName) {
  return CallEngine(&capi::Functions::cef_stream_reader_create_for_file, Needed(fileName));
}

CefRefPtr<CefStreamReader> CefStreamReader::CreateForData(void* data, size_t size) {
  return CallEngine(&capi::Functions::cef_stream_reader_create_for_data, data, size);
}

CefRefPtr<CefStreamReader> CefStreamReader::CreateForHandler(CefRefPtr<CefReadHandler> handler) {
  return CallEngine(&capi::Functions::cef_stream_reader_create_for_handler, handler);
}

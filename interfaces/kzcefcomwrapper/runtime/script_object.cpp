// Marshals an object's identity into a stream in memory and sends the bytes along as base64.

#include "runtime/script_object.h"

#include <wrl/client.h>

#include <array>
#include <string>

#include "include/cef_parser.h"

namespace kzcef {
namespace {

using Microsoft::WRL::ComPtr;

bool Rewind(IStream* stream) {
  return SUCCEEDED(stream->Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr));
}

}  // namespace

std::optional<std::vector<uint8_t>> MarshalScriptObject(IUnknown* object) {
  ComPtr<IUnknown> identity;
  ComPtr<IStream> stream;
  if (!object || FAILED(object->QueryInterface(IID_PPV_ARGS(&identity))) ||
      FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) ||
      FAILED(CoMarshalInterface(stream.Get(), IID_IUnknown, identity.Get(), MSHCTX_LOCAL, nullptr,
                                MSHLFLAGS_NORMAL))) {
    return std::nullopt;
  }
  return TakeMarshalled(stream.Get());
}

std::optional<std::vector<uint8_t>> TakeMarshalled(IStream* stream) {
  std::optional<std::vector<uint8_t>> marshalled;
  if (Rewind(stream)) {
    marshalled = ReadInBlocks(stream);
  }
  if (!marshalled && Rewind(stream)) {
    CoReleaseMarshalData(stream);
  }
  return marshalled;
}

std::optional<std::vector<uint8_t>> ReadInBlocks(IStream* stream) {
  std::vector<uint8_t> bytes;
  std::array<uint8_t, 512> block;
  ULONG read = 0;
  do {
    read = 0;
    if (FAILED(stream->Read(block.data(), static_cast<ULONG>(block.size()), &read))) {
      return std::nullopt;
    }
    bytes.insert(bytes.end(), block.begin(), block.begin() + read);
  } while (read == block.size());
  return bytes;
}

CefRefPtr<CefProcessMessage> ScriptObjectMessage(const CefString& message_name,
                                                 const CefString& script_name,
                                                 const std::vector<uint8_t>& marshalled) {
  const std::string text = CefBase64Encode(marshalled.data(), marshalled.size()).ToString();
  CefRefPtr<CefProcessMessage> message = CefProcessMessage::Create(message_name);
  const CefRefPtr<CefListValue> arguments = message->GetArgumentList();
  arguments->SetString(0, script_name);
  arguments->SetBinary(1, CefBinaryValue::Create(text.data(), text.size()));
  return message;
}

}  // namespace kzcef

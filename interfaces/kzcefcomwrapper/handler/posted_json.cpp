// Recognises such a request by type, URL and media type, and reads the bytes of its body.

#include "handler/posted_json.h"

#include <windows.h>

#include <algorithm>
#include <climits>
#include <string_view>
#include <vector>

#include "handler/ascii_case.h"

namespace kzcef {
namespace {

bool IsFederated(const CefString& url) {
  return std::u16string_view(url.c_str(), url.length()).find(u"federated") !=
         std::u16string_view::npos;
}

// Media types are compared without regard to case, and their parameters do not matter.
bool HasJsonBody(const CefRefPtr<CefRequest>& request) {
  return LowerAscii(request->GetHeaderByName("Content-Type").ToString()).find("json") !=
         std::string::npos;
}

// Empty without one.
std::vector<char> FirstBytes(const CefRefPtr<CefPostData>& data) {
  CefPostData::ElementVector elements;
  data->GetElements(elements);
  for (const CefRefPtr<CefPostDataElement>& element : elements) {
    if (element->GetType() == PDE_TYPE_BYTES && element->GetBytesCount() > 0) {
      std::vector<char> bytes(element->GetBytesCount());
      bytes.resize(element->GetBytes(bytes.size(), bytes.data()));
      return bytes;
    }
  }
  return {};
}

std::wstring FromAnsi(std::string_view text) {
  // A body of 2 GiB and more is beyond the conversion.
  const int size = static_cast<int>(std::min<size_t>(text.size(), INT_MAX));
  std::wstring wide(
      static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0)), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

}  // namespace

std::wstring PostedJson(const CefRefPtr<CefRequest>& request) {
  if (request->GetResourceType() != RT_XHR || !IsFederated(request->GetURL()) ||
      !HasJsonBody(request)) {
    return {};
  }
  const CefRefPtr<CefPostData> data = request->GetPostData();
  if (!data) {
    return {};
  }
  const std::vector<char> bytes = FirstBytes(data);
  return FromAnsi(
      {bytes.data(), static_cast<size_t>(std::ranges::find(bytes, '\0') - bytes.begin())});
}

}  // namespace kzcef

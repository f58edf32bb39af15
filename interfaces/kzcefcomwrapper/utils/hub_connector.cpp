// Binds the hub library's exports on demand and applies what it says about a
// URL. What the library hands out goes back to it.

#include "utils/hub_connector.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cwchar>
#include <memory>
#include <optional>
#include <type_traits>

#include "include/cef_parser.h"
#include "utils/header_line.h"
#include "utils/process_settings.h"
#include "utils/tracing.h"

namespace kzcef {
namespace {

// The hub library's exports. What the first hands out goes back through the other two.
using TransformFunction = void (*)(const char** url,
                                   const char*** headers,
                                   int* header_count,
                                   unsigned char* is_transformed);
using DeleteUrlFunction = void (*)(const char** url);
using DeleteHeadersFunction = void (*)(const char*** headers, int header_count);

// Two threads that bind at once find the same values.
struct HubLibrary {
  std::atomic<HMODULE> module{nullptr};
  std::atomic<TransformFunction> transform{nullptr};
  std::atomic<DeleteUrlFunction> delete_url{nullptr};
  std::atomic<DeleteHeadersFunction> delete_headers{nullptr};

  bool Bind() {
    if (transform) {
      return true;
    }
    if (!module) {
      module = LoadLibraryW(GetHubUtilsPath().c_str());
    }
    if (!module) {
      return false;
    }
    delete_url = Find<DeleteUrlFunction>("deleteUrl");
    delete_headers = Find<DeleteHeadersFunction>("deleteHeaders");
    // Last: a thread that finds this one finds the others too.
    transform = Find<TransformFunction>("transformUrlForHub");
    return transform != nullptr;
  }

 private:
  template <typename Function>
  Function Find(const char* name) const {
    return reinterpret_cast<Function>(GetProcAddress(module, name));
  }
};

HubLibrary& Library() {
  static HubLibrary library;
  return library;
}

// One answer of the library, which is given back to it in the end, whatever it says.
class Transformation {
 public:
  Transformation(HubLibrary& library, const std::string& url)
      : library_(library), url_(url.c_str()) {
    library_.transform.load()(&url_, &headers_, &header_count_, &is_transformed_);
  }
  ~Transformation() {
    if (const DeleteUrlFunction give_back = library_.delete_url) {
      give_back(&url_);
    }
    if (const DeleteHeadersFunction give_back = library_.delete_headers) {
      give_back(&headers_, header_count_);
    }
  }
  Transformation(const Transformation&) = delete;
  Transformation& operator=(const Transformation&) = delete;

  bool is_transformed() const { return is_transformed_ != 0; }
  // Null when the URL stays as it is.
  const char* url() const { return url_; }
  int header_count() const { return headers_ ? header_count_ : 0; }
  // Null for a missing line.
  const char* header(int index) const { return headers_[index]; }

 private:
  HubLibrary& library_;
  const char* url_;
  const char** headers_ = nullptr;
  int header_count_ = 0;
  unsigned char is_transformed_ = 0;
};

void SetHeader(CefRequest& request, const HeaderLine& header) {
  request.SetHeaderByName(header.name, header.value, /*overwrite=*/true);
  if (IsTraceEnabled()) {
    Trace2(" Added Header - ", header.name + ": " + header.value);
  }
}

}  // namespace

bool IsHubOn() {
  static const bool is_on = GetHubPort() >= 0;
  return is_on;
}

int GetHubPort() {
  return ConfiguredHubPort();
}

std::wstring GetHubUtilsPath() {
  struct KeyCloser {
    void operator()(HKEY key) const { RegCloseKey(key); }
  };
  HKEY opened = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\Velmora\\Q9_Common\\zMOD_Connectors", 0,
                    KEY_READ, &opened) != ERROR_SUCCESS) {
    return {};
  }
  const std::unique_ptr<std::remove_pointer_t<HKEY>, KeyCloser> key(opened);
  // One more than is read, so that a value without a terminator ends too.
  std::array<wchar_t, MAX_PATH + 1> folder{};
  DWORD size = MAX_PATH * sizeof(wchar_t);
  if (RegQueryValueExW(key.get(), L"Path", nullptr, nullptr, reinterpret_cast<BYTE*>(folder.data()),
                       &size) != ERROR_SUCCESS) {
    return {};
  }
  return std::wstring(folder.data()) + L"\\win_b64\\UKZC\\VLMCommHubUtils.dll";
}

void TransformUrlForHub(CefString& url, CefRefPtr<CefRequest> request) {
  HubLibrary& library = Library();
  if (!library.Bind()) {
    return;
  }
  const std::string text = url.ToString();
  const Transformation transformation(library, text);
  if (!transformation.is_transformed()) {
    return;
  }
  if (const char* transformed = transformation.url()) {
    url.FromASCII(transformed);
  }
  for (int i = 0; i < transformation.header_count(); ++i) {
    const char* const line = transformation.header(i);
    if (const auto header = line ? ParseHeaderLine(line) : std::nullopt) {
      SetHeader(*request, *header);
    }
  }
}

void RewriteRequestForHub(CefRefPtr<CefRequest> request) {
  if (!IsHubOn()) {
    return;
  }
  CefURLParts parts;
  if (!CefParseURL(request->GetURL(), parts)) {
    return;
  }
  // Parsing has dropped the default port of the scheme.
  CefString url;
  if (!CefCreateURL(parts, url)) {
    return;
  }
  TransformUrlForHub(url, request);
  // Also untransformed, so that a default port never reaches the hub.
  request->SetURL(url);
}

}  // namespace kzcef

#include "devtools/image_download.h"

#include "devtools/base64_bytes.h"
#include "devtools/browser_core.h"
#include "devtools/engine_threads.h"
#include "devtools/json_fields.h"
#include "devtools/view/image_codec.h"
#include "include/cef_image.h"

namespace cefedition {
namespace {

// More than any picture for a window's icon or a page's illustration needs.
constexpr size_t kMaxBytes = size_t{64} * 1024 * 1024;

DecodedImage ScaledDown(DecodedImage image, uint32_t max_size) {
  const int limit = static_cast<int>(std::min<uint32_t>(max_size, kMaxImageSide));
  const int side = std::max(image.width, image.height);
  if (limit == 0 || side <= limit) {
    return image;
  }
  DecodedImage small;
  small.width = std::max(1, image.width * limit / side);
  small.height = std::max(1, image.height * limit / side);
  small.bgra.resize(static_cast<size_t>(small.width) * static_cast<size_t>(small.height) * 4);
  for (int y = 0; y < small.height; ++y) {
    for (int x = 0; x < small.width; ++x) {
      const size_t from =
          (static_cast<size_t>(y * image.height / small.height) * static_cast<size_t>(image.width) +
           static_cast<size_t>(x * image.width / small.width)) *
          4;
      const size_t to =
          (static_cast<size_t>(y) * static_cast<size_t>(small.width) + static_cast<size_t>(x)) * 4;
      std::copy_n(image.bgra.begin() + static_cast<ptrdiff_t>(from), 4,
                  small.bgra.begin() + static_cast<ptrdiff_t>(to));
    }
  }
  return small;
}

/// One download: from the command to the callback.
class Download : public std::enable_shared_from_this<Download> {
 public:
  Download(std::shared_ptr<BrowserCore> core,
           const std::string& url,
           uint32_t max_size,
           CefRefPtr<CefDownloadImageCallback> callback)
      : core_(std::move(core)), url_(url), max_size_(max_size), callback_(callback) {}

  void Start(bool bypass_cache) {
    if (url_.starts_with("data:")) {
      DecodeDataUrl();
      return;
    }
    core_->session().Send(
        "Network.loadNetworkResource",
        {{"frameId", core_->frames().main()->id()},
         {"url", url_},
         {"options", {{"disableCache", bypass_cache}, {"includeCredentials", true}}}},
        [self = shared_from_this()](const ProtocolReply& reply) {
          const Json& resource = Field(reply.value, "resource");
          self->status_ = IntField(resource, "httpStatusCode");
          self->stream_ = TextField(resource, "stream");
          if (self->stream_.empty()) {
            self->Finish(nullptr);
          } else {
            self->ReadMore();
          }
        });
  }

 private:
  void ReadMore() {
    core_->session().Send(
        "IO.read", {{"handle", stream_}},
        [self = shared_from_this()](const ProtocolReply& reply) { self->OnRead(reply); });
  }

  void OnRead(const ProtocolReply& reply) {
    const std::string data = TextField(reply.value, "data");
    if (BoolField(reply.value, "base64Encoded")) {
      const std::vector<uint8_t> bytes = DecodeBase64(data);
      bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
    } else {
      bytes_.insert(bytes_.end(), data.begin(), data.end());
    }
    const bool done = !reply.ok || BoolField(reply.value, "eof") || bytes_.size() > kMaxBytes;
    if (!done) {
      ReadMore();
      return;
    }
    core_->session().Send("IO.close", {{"handle", stream_}});
    Decode();
  }

  void DecodeDataUrl() {
    const size_t comma = url_.find(',');
    const std::string head = url_.substr(0, comma);
    if (comma == std::string::npos) {
      PostToUi([self = shared_from_this()] { self->Finish(nullptr); });
      return;
    }
    const std::string body =
        CefURIDecode(url_.substr(comma + 1), false,
                     static_cast<cef_uri_unescape_rule_t>(
                         UU_NORMAL | UU_SPACES | UU_URL_SPECIAL_CHARS_EXCEPT_PATH_SEPARATORS |
                         UU_PATH_SEPARATORS))
            .ToString();
    if (head.ends_with(";base64")) {
      bytes_ = DecodeBase64(body);
    } else {
      bytes_.assign(body.begin(), body.end());
    }
    Decode();
  }

  void Decode() {
    PostToBackground([self = shared_from_this()] {
      CefRefPtr<CefImage> image;
      if (std::optional<DecodedImage> decoded = DecodeImage(self->bytes_)) {
        const DecodedImage small = ScaledDown(std::move(*decoded), self->max_size_);
        image = CefImage::CreateImage();
        if (!image->AddBitmap(1.0f, small.width, small.height, CEF_COLOR_TYPE_BGRA_8888,
                              CEF_ALPHA_TYPE_POSTMULTIPLIED, small.bgra.data(),
                              small.bgra.size())) {
          image = nullptr;
        }
      }
      PostToUi([self, image] { self->Finish(image); });
    });
  }

  void Finish(CefRefPtr<CefImage> image) {
    callback_->OnDownloadImageFinished(url_, status_, image);
  }

  const std::shared_ptr<BrowserCore> core_;
  const std::string url_;
  const uint32_t max_size_;
  const CefRefPtr<CefDownloadImageCallback> callback_;
  int status_ = 0;
  std::string stream_;
  std::vector<uint8_t> bytes_;
};

}  // namespace

void StartImageDownload(std::shared_ptr<BrowserCore> core,
                        const std::string& url,
                        uint32_t max_size,
                        bool bypass_cache,
                        CefRefPtr<CefDownloadImageCallback> callback) {
  std::make_shared<Download>(std::move(core), url, max_size, callback)->Start(bypass_cache);
}

}  // namespace cefedition

#include "devtools/resource_handler_reader.h"

#include <algorithm>
#include <utility>

#include "devtools/engine_threads.h"

namespace cefedition {
namespace {

constexpr size_t kChunk = size_t{64} * 1024;

}  // namespace

/// Answers `Open`, `ProcessRequest` and `ReadResponse`, later and on any thread.
class ResourceHandlerReader::OpenCallback : public CefCallback {
 public:
  using Answer = void (ResourceHandlerReader::*)(int step, bool go_on);

  OpenCallback(std::weak_ptr<ResourceHandlerReader> reader, Answer answer, int step)
      : reader_(std::move(reader)), answer_(answer), step_(step) {}

  void Continue() override { Give(true); }
  void Cancel() override { Give(false); }

 private:
  void Give(bool go_on) {
    PostToBackground([reader = reader_, answer = answer_, step = step_, go_on] {
      if (const auto self = reader.lock()) {
        (self.get()->*answer)(step, go_on);
      }
    });
  }

  const std::weak_ptr<ResourceHandlerReader> reader_;
  const Answer answer_;
  const int step_;

  IMPLEMENT_REFCOUNTING(OpenCallback);
};

/// Answers `Skip` and `Read`, later and on any thread. Keeps the reader, and with it the memory
/// that the handler writes to.
class ResourceHandlerReader::ReadCallback : public CefResourceSkipCallback,
                                            public CefResourceReadCallback {
 public:
  ReadCallback(std::shared_ptr<ResourceHandlerReader> reader, int step)
      : reader_(std::move(reader)), step_(step) {}

  void Continue(int64_t bytes_skipped) override {
    PostToBackground([reader = reader_, step = step_, bytes_skipped] {
      reader->OnSkipped(step, bytes_skipped);
    });
  }
  void Continue(int bytes_read) override {
    PostToBackground(
        [reader = reader_, step = step_, bytes_read] { reader->OnRead(step, bytes_read); });
  }

 private:
  const std::shared_ptr<ResourceHandlerReader> reader_;
  const int step_;

  IMPLEMENT_REFCOUNTING(ReadCallback);
};

ResourceHandlerReader::ResourceHandlerReader(CefRefPtr<CefResourceHandler> handler,
                                             CefRefPtr<CefRequest> request)
    : handler_(handler), request_(request) {}

void ResourceHandlerReader::Open(OnHead on_head) {
  on_head_ = std::move(on_head);
  PostToBackground([self = shared_from_this()] { self->OpenNow(); });
}

void ResourceHandlerReader::Cancel() {
  if (!over_.exchange(true)) {
    handler_->Cancel();
  }
}

void ResourceHandlerReader::OpenNow() {
  if (over_) {
    return;
  }
  const int step = ++step_;
  const CefRefPtr<CefCallback> callback =
      new OpenCallback(weak_from_this(), &ResourceHandlerReader::OnOpened, step);
  bool handle_request = false;
  if (handler_->Open(request_, handle_request, callback)) {
    if (handle_request) {
      OnOpened(step, true);
    }
    return;
  }
  // The older way, for which false means that the request is refused.
  if (handle_request || !handler_->ProcessRequest(request_, callback)) {
    OnOpened(step, false);
  }
}

void ResourceHandlerReader::OnOpened(int step, bool opened) {
  if (step == step_) {
    ++step_;
    PostToIo([self = shared_from_this(), opened] { self->TakeHead(opened); });
  }
}

void ResourceHandlerReader::TakeHead(bool opened) {
  if (over_) {
    return;
  }
  Head head;
  head.error = opened ? ERR_NONE : ERR_ABORTED;
  if (opened) {
    const CefRefPtr<Response> response = new Response;
    response->SetURL(request_->GetURL());
    CefString redirect_url;
    handler_->GetResponseHeaders(response, length_, redirect_url);
    head.error = response->GetError();
    head.redirect_url = redirect_url.ToString();
    head.length = length_;
    head.response = response;
  }
  if (head.error != ERR_NONE) {
    Cancel();
  }
  std::exchange(on_head_, nullptr)(head);
}

void ResourceHandlerReader::Read(int64_t skip, OnBody on_body) {
  on_body_ = std::move(on_body);
  left_to_skip_ = skip;
  if (length_ >= 0) {
    length_ = std::max<int64_t>(length_ - skip, 0);
  }
  PostToBackground([self = shared_from_this()] {
    self->chunk_.resize(kChunk);
    self->Step();
  });
}

void ResourceHandlerReader::Step() {
  for (bool more = true; more && !over_;) {
    if (left_to_skip_ > 0) {
      more = SkipSome();
    } else if (length_ >= 0 && static_cast<int64_t>(body_.size()) >= length_) {
      EndBody(ERR_NONE);
      more = false;
    } else {
      more = old_way_ ? ReadSomeTheOldWay() : ReadSome();
    }
  }
}

bool ResourceHandlerReader::SkipSome() {
  const int step = ++step_;
  int64_t skipped = 0;
  if (!handler_->Skip(left_to_skip_, skipped, new ReadCallback(shared_from_this(), step)) ||
      skipped < 0) {
    EndBody(ERR_REQUEST_RANGE_NOT_SATISFIABLE);
    return false;
  }
  left_to_skip_ -= skipped;
  return skipped > 0;
}

void ResourceHandlerReader::OnSkipped(int step, int64_t count) {
  if (step != step_ || over_) {
    return;
  }
  if (count <= 0) {
    EndBody(ERR_REQUEST_RANGE_NOT_SATISFIABLE);
    return;
  }
  left_to_skip_ -= count;
  Step();
}

bool ResourceHandlerReader::ReadSome() {
  const int step = ++step_;
  int count = 0;
  const bool going_on = handler_->Read(chunk_.data(), static_cast<int>(chunk_.size()), count,
                                       new ReadCallback(shared_from_this(), step));
  if (!going_on && count == -1) {
    old_way_ = true;
    return true;
  }
  if (going_on && count == 0) {
    return false;
  }
  if (!going_on && count <= 0) {
    EndBody(count < 0 ? static_cast<cef_errorcode_t>(count) : ERR_NONE);
    return false;
  }
  ++step_;
  body_.append(chunk_.data(), std::min(static_cast<size_t>(std::max(count, 0)), chunk_.size()));
  return true;
}

void ResourceHandlerReader::OnRead(int step, int count) {
  if (step != step_ || over_) {
    return;
  }
  if (count <= 0) {
    EndBody(count < 0 ? static_cast<cef_errorcode_t>(count) : ERR_NONE);
    return;
  }
  ++step_;
  body_.append(chunk_.data(), std::min(static_cast<size_t>(count), chunk_.size()));
  Step();
}

bool ResourceHandlerReader::ReadSomeTheOldWay() {
  const int step = ++step_;
  int count = 0;
  const bool going_on = handler_->ReadResponse(
      chunk_.data(), static_cast<int>(chunk_.size()), count,
      new OpenCallback(weak_from_this(), &ResourceHandlerReader::OnReadable, step));
  if (!going_on) {
    EndBody(count < 0 ? static_cast<cef_errorcode_t>(count) : ERR_NONE);
    return false;
  }
  if (count <= 0) {
    return false;
  }
  ++step_;
  body_.append(chunk_.data(), std::min(static_cast<size_t>(count), chunk_.size()));
  return true;
}

void ResourceHandlerReader::OnReadable(int step, bool readable) {
  if (step != step_ || over_) {
    return;
  }
  if (readable) {
    Step();
  } else {
    EndBody(ERR_ABORTED);
  }
}

void ResourceHandlerReader::EndBody(cef_errorcode_t error) {
  ++step_;
  PostToIo([self = shared_from_this(), error] {
    if (self->over_.exchange(true)) {
      return;
    }
    if (self->length_ >= 0 && static_cast<int64_t>(self->body_.size()) > self->length_) {
      self->body_.resize(static_cast<size_t>(self->length_));
    }
    std::exchange(self->on_body_, nullptr)(error, self->body_);
  });
}

}  // namespace cefedition

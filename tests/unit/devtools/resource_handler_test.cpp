// Responses that the client gives itself, and what it makes of those of the network.

#include <gmock/gmock.h>

#include <thread>

#include "engine_fixture.h"
#include "include/wrapper/cef_resource_manager.h"
#include "include/wrapper/cef_stream_resource_handler.h"
#include "recording_resources.h"

namespace cefedition {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Answers with a text, a piece at a time and each on a thread of its own.
class LateHandler : public CefResourceHandler {
 public:
  LateHandler(EventLog* log, const std::string& text) : log_(log), text_(text) {}
  ~LateHandler() override {
    for (std::thread& thread : threads_) {
      thread.join();
    }
  }

  bool Open(CefRefPtr<CefRequest>, bool& handle_request, CefRefPtr<CefCallback> callback) override {
    handle_request = false;
    threads_.emplace_back([callback] { callback->Continue(); });
    return true;
  }
  void GetResponseHeaders(CefRefPtr<CefResponse> response, int64_t& length, CefString&) override {
    EXPECT_TRUE(CefCurrentlyOn(TID_IO));
    response->SetStatus(201);
    response->SetMimeType("text/html");
    response->SetHeaderByName("X-Served", "late", true);
    length = -1;
  }
  bool Read(void* data_out,
            int bytes_to_read,
            int& bytes_read,
            CefRefPtr<CefResourceReadCallback> callback) override {
    EXPECT_FALSE(CefCurrentlyOn(TID_IO));
    bytes_read = 0;
    if (given_ == text_.size()) {
      return false;
    }
    EXPECT_GT(bytes_to_read, 0);
    threads_.emplace_back([this, data_out, callback] {
      *static_cast<char*>(data_out) = text_[given_++];
      callback->Continue(1);
    });
    return true;
  }
  void Cancel() override { log_->Add("handler-cancelled"); }

 private:
  EventLog* const log_;
  const std::string text_;
  size_t given_ = 0;
  std::vector<std::thread> threads_;

  IMPLEMENT_REFCOUNTING(LateHandler);
};

/// Answers only by the older members.
class OldHandler : public CefResourceHandler {
 public:
  bool ProcessRequest(CefRefPtr<CefRequest>, CefRefPtr<CefCallback> callback) override {
    callback->Continue();
    return true;
  }
  void GetResponseHeaders(CefRefPtr<CefResponse> response, int64_t& length, CefString&) override {
    response->SetStatus(200);
    response->SetMimeType("text/plain");
    length = 6;
  }
  bool ReadResponse(void* data_out,
                    int,
                    int& bytes_read,
                    CefRefPtr<CefCallback> callback) override {
    bytes_read = 0;
    if (!waited_) {
      waited_ = true;
      callback->Continue();
      return true;
    }
    memcpy(data_out, "served and more", 15);
    bytes_read = 15;
    return true;
  }
  void Cancel() override {}

 private:
  bool waited_ = false;

  IMPLEMENT_REFCOUNTING(OldHandler);
};

/// Never answers, refuses, fails, or redirects.
class OddHandler : public CefResourceHandler {
 public:
  enum class Kind { kSilent, kRefuses, kFails, kRedirects };

  OddHandler(EventLog* log, Kind kind) : log_(log), kind_(kind) {}

  bool Open(CefRefPtr<CefRequest>, bool& handle_request, CefRefPtr<CefCallback>) override {
    handle_request = kind_ != Kind::kSilent;
    log_->Add("opened");
    return kind_ != Kind::kRefuses;
  }
  void GetResponseHeaders(CefRefPtr<CefResponse> response, int64_t&, CefString& redirect) override {
    if (kind_ == Kind::kRedirects) {
      redirect = "/new";
    } else {
      response->SetError(ERR_FILE_NOT_FOUND);
    }
  }
  void Cancel() override { log_->Add("handler-cancelled"); }

 private:
  EventLog* const log_;
  const Kind kind_;

  IMPLEMENT_REFCOUNTING(OddHandler);
};

/// Puts a text at the start.
class PrefixFilter : public CefResponseFilter {
 public:
  bool InitFilter() override { return true; }
  FilterStatus Filter(void* data_in,
                      size_t data_in_size,
                      size_t& data_in_read,
                      void* data_out,
                      size_t data_out_size,
                      size_t& data_out_written) override {
    pending_.append(static_cast<const char*>(data_in), data_in ? data_in_size : 0);
    data_in_read = data_in_size;
    // A few bytes at a time, so that it is called again.
    data_out_written = std::min({pending_.size(), data_out_size, size_t{2}});
    memcpy(data_out, pending_.data(), data_out_written);
    pending_.erase(0, data_out_written);
    return pending_.empty() ? RESPONSE_FILTER_DONE : RESPONSE_FILTER_NEED_MORE_DATA;
  }

 private:
  std::string pending_ = "filtered: ";

  IMPLEMENT_REFCOUNTING(PrefixFilter);
};

class ResourceHandlerTest : public EngineTest {
 protected:
  ResourceHandlerTest() : resources_(new RecordingResources(&log_)) {
    client_->resources = resources_;
  }

  void Load(const std::string& path) {
    if (!EngineRuns()) {
      ASSERT_TRUE(StartEngine());
      CreateBrowser(client_, server_.Url(path));
    } else {
      client_->First()->GetMainFrame()->LoadURL(server_.Url(path));
    }
  }

  void Serve(CefRefPtr<CefResourceHandler> handler) {
    resources_->serve = [handler](CefRefPtr<CefRequest> request) {
      return PathOf(request->GetURL()) == "/served" ? handler : nullptr;
    };
  }

  const CefRefPtr<RecordingResources> resources_;
};

TEST_F(ResourceHandlerTest, StreamServesAPage) {
  std::string text = "<title>Served</title>" + std::string(200'000, 'x');
  Serve(new CefStreamResourceHandler("text/html",
                                     CefStreamReader::CreateForData(text.data(), text.size())));
  Load("/served");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"title", "end", "address"}),
              ElementsAre("address " + server_.Url("/served"), "title Served", "end main 200"));
  EXPECT_TRUE(log_.WaitUntil([&] { return !log_.Only({"complete"}).empty(); }));
  EXPECT_THAT(log_.Only({"handler", "response", "filter", "complete"}),
              ElementsAre("handler /served", "response /served 200", "filter /served",
                          "complete /served success " + std::to_string(text.size())));
  EXPECT_EQ(Evaluate("document.body.innerText.length"), "200000");
  EXPECT_THAT(server_.Requests(), Not(Contains("/served")));
}

TEST_F(ResourceHandlerTest, PiecesMayComeLaterFromOtherThreads) {
  Serve(new LateHandler(&log_, "<title>Late</title>"));
  Load("/served");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"title", "end"}), ElementsAre("title Late", "end main 201"));
  const auto completed = resources_->CompletedFor("/served");
  EXPECT_EQ(completed.response->GetHeaderByName("X-Served").ToString(), "late");
  EXPECT_EQ(completed.response->GetMimeType().ToString(), "text/html");
  EXPECT_THAT(log_.Only({"handler-cancelled"}), testing::IsEmpty());
}

TEST_F(ResourceHandlerTest, OlderMembersServeToo) {
  Serve(new OldHandler);
  Load("/served");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_EQ(Evaluate("document.body.innerText"), "served");
}

TEST_F(ResourceHandlerTest, RefusalAndErrorFailTheLoad) {
  Serve(new OddHandler(&log_, OddHandler::Kind::kRefuses));
  Load("/served");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"complete", "start", "error"}),
              testing::UnorderedElementsAre("complete /served canceled 0",
                                            "error main -3 ERR_ABORTED " + server_.Url("/served")));
  log_.Clear();
  Serve(new OddHandler(&log_, OddHandler::Kind::kFails));
  Load("/served");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_THAT(log_.Only({"complete"}), ElementsAre("complete /served failed 0"));
  EXPECT_EQ(resources_->CompletedFor("/served").response->GetError(), ERR_FILE_NOT_FOUND);
}

TEST_F(ResourceHandlerTest, SilentHandlerIsCancelledWithTheBrowser) {
  Serve(new OddHandler(&log_, OddHandler::Kind::kSilent));
  Load("/served");
  ASSERT_TRUE(log_.WaitFor("opened"));
  client_->First()->GetHost()->CloseBrowser(true);
  ASSERT_TRUE(log_.WaitUntil([&] { return !log_.Only({"complete"}).empty(); }));
  EXPECT_THAT(log_.Only({"handler-cancelled", "complete"}),
              ElementsAre("handler-cancelled", "complete /served canceled 0"));
}

TEST_F(ResourceHandlerTest, HandlerMayRedirect) {
  server_.Add("/new", "new");
  Serve(new OddHandler(&log_, OddHandler::Kind::kRedirects));
  Load("/served");
  ASSERT_TRUE(log_.WaitFor("end main 200"));
  EXPECT_THAT(log_.Only({"redirect", "address"}),
              ElementsAre("redirect /served 307 /new", "address " + server_.Url("/new")));
}

TEST_F(ResourceHandlerTest, ResourceManagerServes) {
  // Its providers are added on the IO thread.
  ASSERT_TRUE(StartEngine());
  const CefRefPtr<CefResourceManager> manager(new CefResourceManager);
  manager->AddContentProvider(server_.Url("/served"), "<title>Managed</title>", "text/html", 0,
                              "test");
  server_.Add("/plain", "<title>Plain</title>");
  resources_->before_load = [&](CefRefPtr<CefRequest> request, CefRefPtr<CefCallback> callback) {
    return manager->OnBeforeResourceLoad(client_->First(), client_->First()->GetMainFrame(),
                                         request, callback);
  };
  resources_->serve = [&](CefRefPtr<CefRequest> request) {
    return manager->GetResourceHandler(client_->First(), client_->First()->GetMainFrame(), request);
  };
  CreateBrowser(client_, server_.Url("/plain"));
  ASSERT_TRUE(log_.WaitFor("title Plain"));
  Load("/served");
  ASSERT_TRUE(log_.WaitFor("title Managed"));
  EXPECT_THAT(server_.Requests(), ElementsAre("/plain"));
}

TEST_F(ResourceHandlerTest, RangeIsSkippedTo) {
  class Skipping : public CefResourceHandler {
   public:
    bool Open(CefRefPtr<CefRequest>, bool& handle_request, CefRefPtr<CefCallback>) override {
      handle_request = true;
      return true;
    }
    void GetResponseHeaders(CefRefPtr<CefResponse> response, int64_t& length, CefString&) override {
      response->SetStatus(200);
      response->SetMimeType("text/plain");
      length = 10;
    }
    bool Skip(int64_t bytes_to_skip,
              int64_t& bytes_skipped,
              CefRefPtr<CefResourceSkipCallback>) override {
      // A part at a time.
      bytes_skipped = std::min<int64_t>(bytes_to_skip, 2);
      position_ += static_cast<size_t>(bytes_skipped);
      return true;
    }
    bool Read(void* data_out, int, int& bytes_read, CefRefPtr<CefResourceReadCallback>) override {
      bytes_read = static_cast<int>(10 - position_);
      memcpy(data_out, &"0123456789"[position_], 10 - position_);
      position_ = 10;
      return bytes_read > 0;
    }
    void Cancel() override {}

   private:
    size_t position_ = 0;
    IMPLEMENT_REFCOUNTING(Skipping);
  };
  server_.Add("/page", "page");
  Load("/page");
  ASSERT_TRUE(log_.WaitFor("idle"));
  Serve(new Skipping);
  Run("fetch('/served', {headers: {Range: 'bytes=7-'}}).then(r => r.text().then(t =>"
      " console.log('got ' + r.status + ' ' + r.headers.get('Content-Range') + ' ' + t)))");
  EXPECT_TRUE(log_.WaitFor("console 2 [got 206 bytes 7-9/10 789]"));
}

TEST_F(ResourceHandlerTest, WithoutDefaultHandlingOnlyHandlersServe) {
  client_->disable_default_handling = true;
  std::string text = "<title>Served</title>";
  Serve(new CefStreamResourceHandler("text/html",
                                     CefStreamReader::CreateForData(text.data(), text.size())));
  Load("/other");
  ASSERT_TRUE(log_.WaitFor("error main -3"));
  EXPECT_THAT(log_.Only({"complete"}), ElementsAre("complete /other canceled 0"));
  EXPECT_THAT(server_.Requests(), testing::IsEmpty());
  Load("/served");
  EXPECT_TRUE(log_.WaitFor("title Served"));
}

TEST_F(ResourceHandlerTest, FilterRewritesABody) {
  PageServer::Page page;
  page.body = "<title>original</title>";
  page.headers = "X-Other: kept\r\n";
  server_.AddPage("/page", page);
  resources_->filter = [](auto) { return new PrefixFilter; };
  Load("/page");
  ASSERT_TRUE(log_.WaitFor("idle"));
  EXPECT_EQ(Evaluate("document.body.innerText"), "filtered:");
  EXPECT_EQ(Evaluate("document.title"), "original");
  EXPECT_THAT(log_.Only({"end"}), ElementsAre("end main 200"));
}

}  // namespace
}  // namespace cefedition

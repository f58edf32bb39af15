// The resource manager: the order of its providers, what they
// serve, and requests that they give up.

#include "include/wrapper/cef_resource_manager.h"

#include <gtest/gtest.h>

#include "recording_cef/fake_browser.h"
#include "recording_cef/fake_request.h"
#include "recording_cef/recording_cef.h"

namespace {

using recording_cef::FakeBrowser;
using recording_cef::FakeRequest;
using recording_cef::RecordingCef;

class CountingCallback final : public CefCallback {
 public:
  void Continue() override { ++continued; }
  void Cancel() override { ++canceled; }

  int continued = 0;
  int canceled = 0;

 private:
  IMPLEMENT_REFCOUNTING(CountingCallback);
};

struct ProviderLog {
  std::vector<std::string> urls;
  std::vector<scoped_refptr<CefResourceManager::Request>> kept;
  int canceled = 0;
  int deleted = 0;
};

class KeepingProvider final : public CefResourceManager::Provider {
 public:
  KeepingProvider(ProviderLog* log, bool takes) : log_(log), takes_(takes) {}
  ~KeepingProvider() override { ++log_->deleted; }

  bool OnRequest(scoped_refptr<CefResourceManager::Request> request) override {
    log_->urls.push_back(request->url());
    if (takes_) {
      log_->kept.push_back(request);
    }
    return takes_;
  }
  void OnRequestCanceled(scoped_refptr<CefResourceManager::Request>) override { ++log_->canceled; }

 private:
  ProviderLog* const log_;
  const bool takes_;
};

class ResourceManagerTest : public testing::Test {
 protected:
  ResourceManagerTest() { RecordingCef::Get().Reset(); }

  static CefRefPtr<CefRequest> MakeRequest(uint64_t id, const char* url) {
    const CefRefPtr<FakeRequest> request = new FakeRequest(url);
    request->identifier = id;
    return request;
  }
  cef_return_value_t Load(const CefRefPtr<CefRequest>& request) {
    return manager_->OnBeforeResourceLoad(browser_, browser_->main_frame, request, callback_);
  }
  CefRefPtr<CefResourceHandler> Handler(const CefRefPtr<CefRequest>& request) {
    return manager_->GetResourceHandler(browser_, browser_->main_frame, request);
  }
  static int RunTasks() { return RecordingCef::Get().RunTasks(); }

  // Outlive the providers, which the manager deletes.
  ProviderLog first_;
  ProviderLog second_;
  CefRefPtr<FakeBrowser> browser_ = new FakeBrowser;
  CefRefPtr<CountingCallback> callback_ = new CountingCallback;
  CefRefPtr<CefResourceManager> manager_ = new CefResourceManager;
};

TEST_F(ResourceManagerTest, WithoutProvidersRequestsGoToTheNetwork) {
  const CefRefPtr<CefRequest> request = MakeRequest(1, "http://x/");
  EXPECT_EQ(Load(request), RV_CONTINUE);
  EXPECT_FALSE(Handler(request));
  EXPECT_EQ(callback_->continued, 0);
}

TEST_F(ResourceManagerTest, ContentIsServedForExactlyItsUrl) {
  manager_->AddContentProvider("http://x/a.html", "content", "", 0, "id");
  const CefRefPtr<CefRequest> other = MakeRequest(1, "http://x/b.html");
  EXPECT_EQ(Load(other), RV_CONTINUE);
  const CefRefPtr<CefRequest> request = MakeRequest(2, "http://x/a.html?query#fragment");
  EXPECT_EQ(Load(request), RV_CONTINUE_ASYNC);
  EXPECT_EQ(callback_->continued, 0);
  RunTasks();
  EXPECT_EQ(callback_->continued, 1);
  EXPECT_FALSE(Handler(other));
  const CefRefPtr<CefResourceHandler> handler = Handler(request);
  ASSERT_TRUE(handler);
  EXPECT_FALSE(Handler(request));
  CefRefPtr<CefResponse> response = CefResponse::Create();
  int64_t length = 0;
  CefString redirect;
  handler->GetResponseHeaders(response, length, redirect);
  EXPECT_EQ(response->GetMimeType().ToString(), "text/html");
}

TEST_F(ResourceManagerTest, ProvidersAreAskedInOrder) {
  manager_->AddProvider(new KeepingProvider(&second_, true), 5, "second");
  manager_->AddProvider(new KeepingProvider(&first_, false), 1, "first");
  const CefRefPtr<CefRequest> request = MakeRequest(1, "http://x/");
  EXPECT_EQ(Load(request), RV_CONTINUE_ASYNC);
  EXPECT_EQ(first_.urls.size(), 1u);
  ASSERT_EQ(second_.kept.size(), 1u);
  second_.kept[0]->Continue(nullptr);
  RunTasks();
  EXPECT_EQ(callback_->continued, 1);
  EXPECT_FALSE(Handler(request));
  second_.kept.clear();
}

TEST_F(ResourceManagerTest, APassedRequestGoesToTheNextProvider) {
  manager_->AddProvider(new KeepingProvider(&first_, true), 0, "a");
  manager_->AddProvider(new KeepingProvider(&second_, true), 0, "b");
  const CefRefPtr<CefRequest> request = MakeRequest(1, "http://x/");
  Load(request);
  EXPECT_TRUE(second_.kept.empty());
  first_.kept.at(0)->Continue(nullptr);
  first_.kept.at(0)->Continue(nullptr);
  RunTasks();
  ASSERT_EQ(second_.kept.size(), 1u);
  EXPECT_EQ(callback_->continued, 0);
  second_.kept[0]->Stop();
  RunTasks();
  EXPECT_EQ(callback_->continued, 1);
}

TEST_F(ResourceManagerTest, StopAsksNobodyElse) {
  manager_->AddProvider(new KeepingProvider(&first_, true), 0, "a");
  manager_->AddProvider(new KeepingProvider(&second_, true), 0, "b");
  Load(MakeRequest(1, "http://x/"));
  first_.kept.at(0)->Stop();
  RunTasks();
  EXPECT_TRUE(second_.urls.empty());
  EXPECT_EQ(callback_->continued, 1);
}

TEST_F(ResourceManagerTest, RemovingAProviderLetsItsRequestsGo) {
  manager_->AddProvider(new KeepingProvider(&first_, true), 0, "id");
  Load(MakeRequest(1, "http://x/"));
  manager_->RemoveProviders("other");
  EXPECT_EQ(first_.deleted, 0);
  manager_->RemoveProviders("id");
  EXPECT_EQ(first_.canceled, 1);
  EXPECT_EQ(first_.deleted, 1);
  EXPECT_EQ(callback_->continued, 1);
  first_.kept.at(0)->Continue(nullptr);
  RunTasks();
  EXPECT_EQ(callback_->continued, 1);
}

TEST_F(ResourceManagerTest, AnAnsweredRequestIsNotCanceled) {
  manager_->AddProvider(new KeepingProvider(&first_, true), 0, "id");
  Load(MakeRequest(1, "http://x/"));
  first_.kept.at(0)->Continue(nullptr);
  manager_->RemoveAllProviders();
  EXPECT_EQ(first_.canceled, 0);
  RunTasks();
  EXPECT_EQ(callback_->continued, 1);
}

TEST_F(ResourceManagerTest, NoRequestIsLeftWaitingWhenTheManagerGoes) {
  manager_->AddProvider(new KeepingProvider(&first_, true), 0, "id");
  Load(MakeRequest(1, "http://x/"));
  Load(MakeRequest(2, "http://y/"));
  first_.kept.at(1)->Continue(nullptr);
  manager_ = nullptr;
  RunTasks();
  EXPECT_EQ(first_.deleted, 1);
  EXPECT_EQ(callback_->continued, 2);
}

TEST_F(ResourceManagerTest, CallsFromOtherThreadsArePosted) {
  RecordingCef::Get().currently_on = [](CefThreadId) { return false; };
  manager_->AddProvider(new KeepingProvider(&first_, true), 0, "id");
  manager_->RemoveAllProviders();
  EXPECT_EQ(first_.deleted, 0);
  RecordingCef::Get().currently_on = nullptr;
  EXPECT_EQ(RunTasks(), 2);
  EXPECT_EQ(first_.deleted, 1);
}

TEST_F(ResourceManagerTest, TheFilterChangesWhatProvidersSee) {
  manager_->AddProvider(new KeepingProvider(&first_, false), 0, "id");
  manager_->SetUrlFilter(
      base::BindRepeating([](const std::string& url) { return url + "index.html"; }));
  Load(MakeRequest(1, "http://x/?q"));
  EXPECT_EQ(first_.urls.at(0), "http://x/index.html");
}

TEST_F(ResourceManagerTest, TheResolverSuppliesMimeTypes) {
  manager_->SetMimeTypeResolver(
      base::BindRepeating([](const std::string&) { return std::string("x/y"); }));
  manager_->AddContentProvider("http://x/", "c", "", 0, "id");
  const CefRefPtr<CefRequest> request = MakeRequest(1, "http://x/");
  Load(request);
  RunTasks();
  CefRefPtr<CefResponse> response = CefResponse::Create();
  int64_t length = 0;
  CefString redirect;
  Handler(request)->GetResponseHeaders(response, length, redirect);
  EXPECT_EQ(response->GetMimeType().ToString(), "x/y");
}

}  // namespace

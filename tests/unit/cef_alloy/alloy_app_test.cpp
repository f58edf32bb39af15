#include "alloy.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <vector>

#include "include/cef_cookie.h"
#include "include/cef_request_context.h"
#include "include/cef_values.h"
#include "recording_cef/recording_cef.h"

namespace cefbinding {
namespace {

using recording_cef::RecordingCef;

// Keeps the visitors that it is given.
class Cookies final : public CefCookieManager {
 public:
  std::vector<CefRefPtr<CefCookieVisitor>> visitors;

  bool VisitAllCookies(CefRefPtr<CefCookieVisitor> visitor) override {
    visitors.push_back(visitor);
    return true;
  }
  bool VisitUrlCookies(const CefString&, bool, CefRefPtr<CefCookieVisitor>) override {
    return false;
  }
  bool SetCookie(const CefString&, const CefCookie&, CefRefPtr<CefSetCookieCallback>) override {
    return false;
  }
  bool DeleteCookies(const CefString&,
                     const CefString&,
                     CefRefPtr<CefDeleteCookiesCallback>) override {
    return false;
  }
  bool FlushStore(CefRefPtr<CefCompletionCallback>) override { return false; }

  IMPLEMENT_REFCOUNTING(Cookies);
};

// Keeps the preferences that it is given.
class Context final : public CefRequestContext {
 public:
  std::map<std::string, CefRefPtr<CefValue>> preferences;
  int cleared_exceptions = 0;
  const CefRefPtr<Cookies> cookies = new Cookies;

  bool HasPreference(const CefString&) override { return true; }
  CefRefPtr<CefValue> GetPreference(const CefString&) override { return nullptr; }
  CefRefPtr<CefDictionaryValue> GetAllPreferences(bool) override { return nullptr; }
  bool CanSetPreference(const CefString&) override { return true; }
  bool SetPreference(const CefString& name, CefRefPtr<CefValue> value, CefString&) override {
    preferences[name.ToString()] = value;
    return true;
  }
  bool IsSame(CefRefPtr<CefRequestContext>) override { return false; }
  bool IsSharingWith(CefRefPtr<CefRequestContext>) override { return false; }
  bool IsGlobal() override { return true; }
  CefString GetCachePath() override { return {}; }
  CefRefPtr<CefCookieManager> GetCookieManager(CefRefPtr<CefCompletionCallback>) override {
    return cookies;
  }
  void ClearCertificateExceptions(CefRefPtr<CefCompletionCallback>) override {
    ++cleared_exceptions;
  }
  void ClearHttpAuthCredentials(CefRefPtr<CefCompletionCallback>) override {}
  void CloseAllConnections(CefRefPtr<CefCompletionCallback>) override {}

  IMPLEMENT_REFCOUNTING(Context);
};

class BrowserProcessHandler final : public CefBrowserProcessHandler {
 public:
  int initialized = 0;
  int relaunched = 0;
  bool throws = false;

  void OnContextInitialized() override { ++initialized; }
  bool OnAlreadyRunningAppRelaunch(CefRefPtr<CefCommandLine>, const CefString&) override {
    ++relaunched;
    if (throws) {
      throw std::runtime_error("on purpose");
    }
    return false;
  }

  IMPLEMENT_REFCOUNTING(BrowserProcessHandler);
};

class HostApp final : public CefApp {
 public:
  explicit HostApp(CefRefPtr<CefBrowserProcessHandler> handler) : handler_(std::move(handler)) {}
  CefRefPtr<CefBrowserProcessHandler> GetBrowserProcessHandler() override { return handler_; }

 private:
  const CefRefPtr<CefBrowserProcessHandler> handler_;

  IMPLEMENT_REFCOUNTING(HostApp);
};

class AlloyAppTest : public testing::Test {
 protected:
  AlloyAppTest() { RecordingCef::Get().request_context = context_; }
  ~AlloyAppTest() override { RecordingCef::Get().Reset(); }

  CefRefPtr<CefBrowserProcessHandler> HandlerInFrontOf(const CefRefPtr<CefApp>& host) {
    return WithAlloyBehaviour(host, AlloyOptions(settings_))->GetBrowserProcessHandler();
  }
  bool IsReset(const char* name) {
    const auto found = context_->preferences.find(name);
    return found != context_->preferences.end() && !found->second;
  }

  CefSettings settings_;
  const CefRefPtr<Context> context_ = new Context;
  const CefRefPtr<BrowserProcessHandler> host_ = new BrowserProcessHandler;
};

TEST_F(AlloyAppTest, ASecondProcessIsTakenCareOfWhateverTheHostSays) {
  EXPECT_TRUE(HandlerInFrontOf(nullptr)->OnAlreadyRunningAppRelaunch(nullptr, CefString()));
  const auto handler = HandlerInFrontOf(new HostApp(host_));
  EXPECT_TRUE(handler->OnAlreadyRunningAppRelaunch(nullptr, CefString()));
  host_->throws = true;
  EXPECT_TRUE(handler->OnAlreadyRunningAppRelaunch(nullptr, CefString()));
  EXPECT_EQ(host_->relaunched, 2);
}

TEST_F(AlloyAppTest, SetsPreferencesBeforeTheHostIsTold) {
  HandlerInFrontOf(new HostApp(host_))->OnContextInitialized();
  EXPECT_EQ(host_->initialized, 1);
  EXPECT_EQ(context_->preferences.at("net.network_prediction_options")->GetInt(), 2);
  const auto services = context_->preferences.at("safebrowsing.enabled");
  EXPECT_EQ(services->GetType(), VTYPE_BOOL);
  EXPECT_FALSE(services->GetBool());
  EXPECT_EQ(context_->cleared_exceptions, 1);
}

TEST_F(AlloyAppTest, ForgetsTheLanguagesOfAnEarlierRun) {
  HandlerInFrontOf(nullptr)->OnContextInitialized();
  EXPECT_TRUE(IsReset("intl.accept_languages"));
  EXPECT_TRUE(IsReset("intl.selected_languages"));
  context_->preferences.clear();
  CefString(&settings_.accept_language_list) = "de";
  HandlerInFrontOf(nullptr)->OnContextInitialized();
  EXPECT_FALSE(context_->preferences.contains("intl.accept_languages"));
}

TEST_F(AlloyAppTest, DeletesSessionCookiesOfAnEarlierRunUnlessTheyAreKept) {
  settings_.persist_session_cookies = 1;
  HandlerInFrontOf(nullptr)->OnContextInitialized();
  EXPECT_TRUE(context_->cookies->visitors.empty());

  settings_.persist_session_cookies = 0;
  HandlerInFrontOf(nullptr)->OnContextInitialized();
  ASSERT_EQ(context_->cookies->visitors.size(), 1u);
  CefCookie cookie;
  bool deletes = false;
  EXPECT_TRUE(context_->cookies->visitors[0]->Visit(cookie, 0, 2, deletes));
  EXPECT_TRUE(deletes);
  cookie.has_expires = 1;
  deletes = false;
  EXPECT_TRUE(context_->cookies->visitors[0]->Visit(cookie, 1, 2, deletes));
  EXPECT_FALSE(deletes);
}

TEST_F(AlloyAppTest, SurvivesAnEngineWithoutAContext) {
  RecordingCef::Get().request_context = nullptr;
  HandlerInFrontOf(new HostApp(host_))->OnContextInitialized();
  EXPECT_EQ(host_->initialized, 1);
}

}  // namespace
}  // namespace cefbinding

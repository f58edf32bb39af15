// Downloads whose callback the client keeps, answers or lets go.
#include <gtest/gtest.h>

#include "counted_struct.h"
#include "include/cef_download_handler.h"

namespace cefbinding {
namespace {

class Client final : public CefDownloadHandler {
 public:
  bool continues = false;
  bool keeps = false;
  CefRefPtr<CefBeforeDownloadCallback> kept;
  int updates = 0;

  void OnBeforeDownload(CefRefPtr<CefBrowser>,
                        CefRefPtr<CefDownloadItem>,
                        const CefString&,
                        CefRefPtr<CefBeforeDownloadCallback> callback) override {
    if (continues) {
      callback->Continue("C:\\file", false);
    }
    if (keeps) {
      kept = callback;
    }
  }
  void OnDownloadUpdated(CefRefPtr<CefBrowser>,
                         CefRefPtr<CefDownloadItem>,
                         CefRefPtr<CefDownloadItemCallback>) override {
    ++updates;
  }

 private:
  IMPLEMENT_REFCOUNTING(Client);
};

class Item final : public CountedStruct<capi::cef_download_item_t> {
 public:
  explicit Item(uint32_t number) : number_(number) {
    get_id = [](capi::cef_download_item_t* self) { return static_cast<Item*>(self)->number_; };
    is_in_progress = [](capi::cef_download_item_t* self) {
      return static_cast<int>(static_cast<Item*>(self)->in_progress);
    };
  }
  bool in_progress = true;

 private:
  const uint32_t number_;
};

class ItemCallback final : public CountedStruct<capi::cef_download_item_callback_t> {
 public:
  ItemCallback() {
    cancel = [](capi::cef_download_item_callback_t* self) {
      ++static_cast<ItemCallback*>(self)->cancels;
    };
  }
  int cancels = 0;
};

class BeforeCallback final : public CountedStruct<capi::cef_before_download_callback_t> {
 public:
  BeforeCallback() {
    cont = [](capi::cef_before_download_callback_t*, cef_string_utf16_t*, int) {};
  }
};

class DroppedDownloadTest : public ::testing::Test {
 protected:
  void SetUp() override { handler_ = ClientObject<CefDownloadHandler>::Wrap(client_); }
  void TearDown() override {
    item_.in_progress = false;
    Update();
    BaseOf(handler_)->release(BaseOf(handler_));
    EXPECT_EQ(item_.references, 0);
    EXPECT_EQ(item_callback_.references, 0);
    EXPECT_EQ(before_callback_.references, 0);
  }

  void Ask() {
    CefString name("file");
    EXPECT_EQ(handler_->on_before_download(handler_, nullptr, item_.Give(),
                                           name.GetWritableStruct(), before_callback_.Give()),
              1);
  }
  void Update() {
    handler_->on_download_updated(handler_, nullptr, item_.Give(), item_callback_.Give());
  }

  const CefRefPtr<Client> client_ = new Client;
  capi::cef_download_handler_t* handler_ = nullptr;
  Item item_{4711};
  ItemCallback item_callback_;
  BeforeCallback before_callback_;
};

TEST_F(DroppedDownloadTest, IsCancelledAtOnceWhenTheEngineHasToldOfItBefore) {
  Update();
  Ask();
  EXPECT_EQ(item_callback_.cancels, 1);
}

TEST_F(DroppedDownloadTest, IsCancelledAtItsFirstNewsOtherwise) {
  Ask();
  EXPECT_EQ(item_callback_.cancels, 0);
  Update();
  EXPECT_EQ(item_callback_.cancels, 1);
  EXPECT_EQ(client_->updates, 1);
}

TEST_F(DroppedDownloadTest, IsNoneWhenTheClientContinuesIt) {
  client_->continues = true;
  Update();
  Ask();
  Update();
  EXPECT_EQ(item_callback_.cancels, 0);
}

TEST_F(DroppedDownloadTest, IsNoneAsLongAsTheClientKeepsItsCallback) {
  client_->keeps = true;
  Update();
  Ask();
  EXPECT_EQ(item_callback_.cancels, 0);
  client_->kept = nullptr;
  EXPECT_EQ(item_callback_.cancels, 1);
}

TEST_F(DroppedDownloadTest, IsForgottenWhenItIsOver) {
  Ask();
  item_.in_progress = false;
  Update();
  item_.in_progress = true;
  Update();
  EXPECT_EQ(item_callback_.cancels, 0);
}

}  // namespace
}  // namespace cefbinding

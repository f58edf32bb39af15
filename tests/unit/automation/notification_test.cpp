// Each notification reaches the handler with its own arguments, directly behind the window that it
// is about.

#include "automation_test.h"

namespace kzcef::testing {
namespace {

using ::testing::DoAll;
using ::testing::InSequence;
using ::testing::Pointee;
using ::testing::Return;
using ::testing::SetArgPointee;
using ::testing::StrictMock;

// The host's way to change an in/out text.
auto Replace(BSTR* text, const wchar_t* by) {
  SysFreeString(*text);
  *text = SysAllocString(by);
  return S_OK;
}

class Notification : public AutomationTest {
 protected:
  Notification() { Register(browser, handler); }

  void ExpectWindowFirst() { EXPECT_CALL(handler, SetOwnerWndHandle(Value(first_window))); }

  StrictMock<MockHandler> handler;
  const ComPtr<IKZCEFComBrowser> browser = StartedBrowser();
  const InSequence in_sequence;
};

TEST_F(Notification, AddressChange) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, AddressChangeNotify(IsBstr(L"http://a/")));
  registry->AddressChangeNotify(first_window, L"http://a/");
}

TEST_F(Notification, BeforeBrowse) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, BeforeBrowseNotify(IsBstr(L"http://a/"), VARIANT_TRUE, VARIANT_FALSE,
                                          Pointee(VARIANT_FALSE)))
      .WillOnce(DoAll(SetArgPointee<3>(VARIANT_BOOL{7}), Return(S_OK)));
  VARIANT_BOOL cancel = VARIANT_FALSE;
  registry->BeforeBrowseNotify(first_window, L"http://a/", VARIANT_TRUE, VARIANT_FALSE, &cancel);
  EXPECT_EQ(cancel, 7);
}

TEST_F(Notification, BeforeContextMenu) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, BeforeContextMenuNotify(Pointee(VARIANT_FALSE)))
      .WillOnce(DoAll(SetArgPointee<0>(VARIANT_TRUE), Return(S_OK)));
  VARIANT_BOOL clear = VARIANT_FALSE;
  registry->BeforeContextMenuNotify(first_window, &clear);
  EXPECT_EQ(clear, VARIANT_TRUE);
}

TEST_F(Notification, BeforeDownload) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, BeforeDownloadNotify(Pointee(IsBstr(L"C:\\a.bin")), Pointee(VARIANT_TRUE),
                                            Pointee(VARIANT_FALSE)))
      .WillOnce([](BSTR* path, VARIANT_BOOL* allowed, VARIANT_BOOL* ask) {
        *allowed = VARIANT_FALSE;
        *ask = VARIANT_TRUE;
        return Replace(path, L"D:\\b.bin");
      });
  _bstr_t path(L"C:\\a.bin");
  VARIANT_BOOL allowed = VARIANT_TRUE;
  VARIANT_BOOL ask = VARIANT_FALSE;
  registry->BeforeDownloadNotify(first_window, &path.GetBSTR(), &allowed, &ask);
  EXPECT_THAT(path.GetBSTR(), IsBstr(L"D:\\b.bin"));
  EXPECT_EQ(allowed, VARIANT_FALSE);
  EXPECT_EQ(ask, VARIANT_TRUE);
}

TEST_F(Notification, BeforePopup) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, BeforePopupNotify(IsBstr(L"http://p/"), Pointee(VARIANT_FALSE),
                                         Pointee(VARIANT_TRUE)))
      .WillOnce(
          DoAll(SetArgPointee<1>(VARIANT_TRUE), SetArgPointee<2>(VARIANT_FALSE), Return(S_OK)));
  VARIANT_BOOL popup = VARIANT_TRUE;
  VARIANT_BOOL proceed = VARIANT_TRUE;
  registry->BeforePopupNotify(first_window, L"http://p/", &popup, &proceed);
  EXPECT_EQ(popup, VARIANT_TRUE);
  EXPECT_EQ(proceed, VARIANT_FALSE);
}

TEST_F(Notification, BeforeResourceLoad) {
  ExpectWindowFirst();
  EXPECT_CALL(handler,
              BeforeResourceLoadNotify(Pointee(IsBstr(L"http://r/")), Pointee(IsBstr(L"script"))))
      .WillOnce([](BSTR* url, BSTR* type) {
        Replace(type, L"image");
        return Replace(url, L"http://s/");
      });
  _bstr_t url(L"http://r/");
  _bstr_t type(L"script");
  registry->BeforeResourceLoadNotify(first_window, &url.GetBSTR(), &type.GetBSTR());
  EXPECT_THAT(url.GetBSTR(), IsBstr(L"http://s/"));
  EXPECT_THAT(type.GetBSTR(), IsBstr(L"image"));
}

TEST_F(Notification, BrowserCreated) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, BrowserCreatedNotify());
  registry->BrowserCreatedNotify(first_window);
}

TEST_F(Notification, DownloadCompleted) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, DownloadCompletedNotify(IsBstr(L"C:\\a.bin")));
  registry->DownloadCompletedNotify(first_window, L"C:\\a.bin");
}

TEST_F(Notification, DownloadUpdated) {
  ExpectWindowFirst();
  EXPECT_CALL(handler,
              DownloadUpdatedNotify(IsBstr(L"C:\\a.bin"), KZCEFDownloadStatus_CANCELLED, 41));
  registry->DownloadUpdatedNotify(first_window, L"C:\\a.bin", KZCEFDownloadStatus_CANCELLED, 41);
}

TEST_F(Notification, EscapeKey) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, EscapeKeyNotify());
  registry->EscapeKeyNotify(first_window);
}

TEST_F(Notification, GetAuthCredentials) {
  ExpectWindowFirst();
  EXPECT_CALL(handler,
              GetAuthCredentialsNotify(Pointee(IsBstr(L"http://o/")), Pointee(VARIANT_TRUE),
                                       Pointee(IsBstr(L"proxy")), 8080, Pointee(IsBstr(L"realm")),
                                       Pointee(IsBstr(L"basic")), Pointee(VARIANT_FALSE),
                                       Pointee(IsBstr(L"user")), Pointee(IsBstr(L"word"))))
      .WillOnce([](BSTR* origin, VARIANT_BOOL* is_proxy, BSTR* host, LONG, BSTR* realm,
                   BSTR* scheme, VARIANT_BOOL* proceed, BSTR* user, BSTR* password) {
        *is_proxy = VARIANT_FALSE;
        *proceed = VARIANT_TRUE;
        for (const auto& [text, by] :
             {std::pair(origin, L"1"), std::pair(host, L"2"), std::pair(realm, L"3"),
              std::pair(scheme, L"4"), std::pair(user, L"5"), std::pair(password, L"6")}) {
          Replace(text, by);
        }
        return S_OK;
      });
  _bstr_t origin(L"http://o/");
  _bstr_t host(L"proxy");
  _bstr_t realm(L"realm");
  _bstr_t scheme(L"basic");
  _bstr_t user(L"user");
  _bstr_t password(L"word");
  VARIANT_BOOL is_proxy = VARIANT_TRUE;
  VARIANT_BOOL proceed = VARIANT_FALSE;
  registry->GetAuthCredentialsNotify(first_window, &origin.GetBSTR(), &is_proxy, &host.GetBSTR(),
                                     8080, &realm.GetBSTR(), &scheme.GetBSTR(), &proceed,
                                     &user.GetBSTR(), &password.GetBSTR());
  EXPECT_EQ(is_proxy, VARIANT_FALSE);
  EXPECT_EQ(proceed, VARIANT_TRUE);
  EXPECT_THAT(origin.GetBSTR(), IsBstr(L"1"));
  EXPECT_THAT(host.GetBSTR(), IsBstr(L"2"));
  EXPECT_THAT(realm.GetBSTR(), IsBstr(L"3"));
  EXPECT_THAT(scheme.GetBSTR(), IsBstr(L"4"));
  EXPECT_THAT(user.GetBSTR(), IsBstr(L"5"));
  EXPECT_THAT(password.GetBSTR(), IsBstr(L"6"));
}

TEST_F(Notification, KeyStroke) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, KeyStrokeNotify(VK_F5, Pointee(VARIANT_FALSE)))
      .WillOnce(DoAll(SetArgPointee<1>(VARIANT_TRUE), Return(S_OK)));
  VARIANT_BOOL handled = VARIANT_FALSE;
  registry->KeyStrokeNotify(first_window, VK_F5, &handled);
  EXPECT_EQ(handled, VARIANT_TRUE);
}

TEST_F(Notification, LoadEnd) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, LoadEndNotify(404));
  registry->LoadEndNotify(first_window, 404);
}

TEST_F(Notification, LoadStart) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, LoadStartNotify(-5));
  registry->LoadStartNotify(first_window, -5);
}

TEST_F(Notification, LoadingStateChange) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, LoadingStateChangeNotify(VARIANT_TRUE, VARIANT_FALSE, VARIANT_TRUE));
  registry->LoadingStateChangeNotify(first_window, VARIANT_TRUE, VARIANT_FALSE, VARIANT_TRUE);
}

TEST_F(Notification, ResourceLoadComplete) {
  ExpectWindowFirst();
  EXPECT_CALL(handler, ResourceLoadCompleteNotify(IsBstr(L"http://r/"), IsBstr(L"{}")));
  registry->ResourceLoadCompleteNotify(first_window, L"http://r/", L"{}");
}

TEST_F(Notification, ResourceRedirect) {
  ExpectWindowFirst();
  EXPECT_CALL(handler,
              ResourceRedirectNotify(IsBstr(L"http://old/"), Pointee(IsBstr(L"http://new/")), 302))
      .WillOnce([](BSTR, BSTR* url, LONG) { return Replace(url, L"http://other/"); });
  _bstr_t url(L"http://new/");
  registry->ResourceRedirectNotify(first_window, L"http://old/", &url.GetBSTR(), 302);
  EXPECT_THAT(url.GetBSTR(), IsBstr(L"http://other/"));
}

TEST_F(Notification, ResourceResponse) {
  ExpectWindowFirst();
  EXPECT_CALL(handler,
              ResourceResponseNotify(Pointee(IsBstr(L"http://r/")), Pointee(VARIANT_FALSE), 6))
      .WillOnce([](BSTR* url, VARIANT_BOOL* modify, LONG) {
        *modify = VARIANT_TRUE;
        return Replace(url, L"http://s/");
      });
  _bstr_t url(L"http://r/");
  VARIANT_BOOL modify = VARIANT_FALSE;
  registry->ResourceResponseNotify(first_window, &url.GetBSTR(), &modify, 6);
  EXPECT_THAT(url.GetBSTR(), IsBstr(L"http://s/"));
  EXPECT_EQ(modify, VARIANT_TRUE);
}

TEST_F(Notification, PassesAnEmptyTextAsAnEmptyOneAndEveryTextWhole) {
  const std::wstring text(L"a\0\"b", 4);
  ExpectWindowFirst();
  EXPECT_CALL(handler, ResourceLoadCompleteNotify(IsBstr(L""), IsBstr(text)));
  registry->ResourceLoadCompleteNotify(first_window, L"", text);
}

TEST_F(Notification, IsRaisedWhateverTheHandlerAnswers) {
  EXPECT_CALL(handler, SetOwnerWndHandle(Value(first_window))).WillOnce(Return(E_FAIL));
  EXPECT_CALL(handler, LoadEndNotify(200)).WillOnce(Return(E_ACCESSDENIED));
  registry->LoadEndNotify(first_window, 200);
}

}  // namespace
}  // namespace kzcef::testing

// The handler coclass, whose members all return E_NOTIMPL.

#include "automation/browser_handler.h"

#include "automation_test.h"

namespace kzcef::testing {
namespace {

TEST(BrowserHandler, ImplementsNothing) {
  ComPtr<IKZCEFComBrowserHandler3> handler;
  ASSERT_EQ(CreateComObject<CKZCEFComBrowserHandler>(nullptr, IID_PPV_ARGS(handler.GetAddressOf())),
            S_OK);
  VARIANT_BOOL flag = 5;
  _bstr_t text(L"as it was");
  BSTR* const in_out = &text.GetBSTR();
  EXPECT_EQ(handler->AddressChangeNotify(text), E_NOTIMPL);
  EXPECT_EQ(handler->BeforePopupNotify(text, &flag, &flag), E_NOTIMPL);
  EXPECT_EQ(handler->LoadEndNotify(1), E_NOTIMPL);
  EXPECT_EQ(handler->LoadStartNotify(1), E_NOTIMPL);
  EXPECT_EQ(handler->LoadingStateChangeNotify(flag, flag, flag), E_NOTIMPL);
  EXPECT_EQ(handler->BrowserCreatedNotify(), E_NOTIMPL);
  EXPECT_EQ(handler->BeforeDownloadNotify(in_out, &flag, &flag), E_NOTIMPL);
  EXPECT_EQ(handler->DownloadCompletedNotify(text), E_NOTIMPL);
  EXPECT_EQ(handler->BeforeBrowseNotify(text, flag, flag, &flag), E_NOTIMPL);
  EXPECT_EQ(handler->ResourceRedirectNotify(text, in_out, 1), E_NOTIMPL);
  EXPECT_EQ(handler->ResourceResponseNotify(in_out, &flag, 1), E_NOTIMPL);
  EXPECT_EQ(handler->BeforeResourceLoadNotify(in_out, in_out), E_NOTIMPL);
  EXPECT_EQ(handler->GetAuthCredentialsNotify(in_out, &flag, in_out, 1, in_out, in_out, &flag,
                                              in_out, in_out),
            E_NOTIMPL);
  EXPECT_EQ(handler->ResourceLoadCompleteNotify(text, text), E_NOTIMPL);
  EXPECT_EQ(handler->EscapeKeyNotify(), E_NOTIMPL);
  EXPECT_EQ(handler->SetOwnerWndHandle(1), E_NOTIMPL);
  EXPECT_EQ(handler->DownloadUpdatedNotify(text, 1, 1), E_NOTIMPL);
  EXPECT_EQ(handler->BeforeContextMenuNotify(&flag), E_NOTIMPL);
  EXPECT_EQ(handler->KeyStrokeNotify(1, &flag), E_NOTIMPL);
  EXPECT_EQ(flag, 5);
  EXPECT_THAT(text.GetBSTR(), IsBstr(L"as it was"));
}

}  // namespace
}  // namespace kzcef::testing

// The members of the handler coclass, none of which does anything.

#include "automation/browser_handler.h"

#include "com/member.h"

namespace kzcef {
namespace {

HRESULT NotImplemented() {
  return ComLeafMember([] { return E_NOTIMPL; });
}

}  // namespace

HRESULT CKZCEFComBrowserHandler::AddressChangeNotify(BSTR) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::BeforePopupNotify(BSTR, VARIANT_BOOL*, VARIANT_BOOL*) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::LoadEndNotify(LONG) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::LoadStartNotify(LONG) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::LoadingStateChangeNotify(VARIANT_BOOL,
                                                          VARIANT_BOOL,
                                                          VARIANT_BOOL) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::BrowserCreatedNotify() {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::BeforeDownloadNotify(BSTR*, VARIANT_BOOL*, VARIANT_BOOL*) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::DownloadCompletedNotify(BSTR) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::BeforeBrowseNotify(BSTR,
                                                    VARIANT_BOOL,
                                                    VARIANT_BOOL,
                                                    VARIANT_BOOL*) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::ResourceRedirectNotify(BSTR, BSTR*, LONG) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::ResourceResponseNotify(BSTR*, VARIANT_BOOL*, LONG) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::BeforeResourceLoadNotify(BSTR*, BSTR*) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::GetAuthCredentialsNotify(BSTR*,
                                                          VARIANT_BOOL*,
                                                          BSTR*,
                                                          LONG,
                                                          BSTR*,
                                                          BSTR*,
                                                          VARIANT_BOOL*,
                                                          BSTR*,
                                                          BSTR*) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::ResourceLoadCompleteNotify(BSTR, BSTR) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::EscapeKeyNotify() {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::SetOwnerWndHandle(INT64) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::DownloadUpdatedNotify(BSTR, LONG, LONG) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::BeforeContextMenuNotify(VARIANT_BOOL*) {
  return NotImplemented();
}

HRESULT CKZCEFComBrowserHandler::KeyStrokeNotify(LONG, VARIANT_BOOL*) {
  return NotImplemented();
}

}  // namespace kzcef

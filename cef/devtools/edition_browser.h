#pragma once

#include <memory>

#include "include/cef_browser.h"

namespace cefedition {

class BrowserCore;

/// The client's `CefBrowser`. Any thread; answers from the core's state.
class EditionBrowser : public CefBrowser {
 public:
  explicit EditionBrowser(std::shared_ptr<BrowserCore> core);
  ~EditionBrowser() override;

  bool IsValid() override;
  CefRefPtr<CefBrowserHost> GetHost() override;
  bool CanGoBack() override;
  void GoBack() override;
  bool CanGoForward() override;
  void GoForward() override;
  bool IsLoading() override;
  void Reload() override;
  void ReloadIgnoreCache() override;
  void StopLoad() override;
  int GetIdentifier() override;
  bool IsSame(CefRefPtr<CefBrowser> that) override;
  bool IsPopup() override;
  bool HasDocument() override;
  CefRefPtr<CefFrame> GetMainFrame() override;
  CefRefPtr<CefFrame> GetFocusedFrame() override;
  CefRefPtr<CefFrame> GetFrameByIdentifier(const CefString& identifier) override;
  CefRefPtr<CefFrame> GetFrameByName(const CefString& name) override;
  size_t GetFrameCount() override;
  void GetFrameIdentifiers(std::vector<CefString>& identifiers) override;
  void GetFrameNames(std::vector<CefString>& names) override;

 private:
  const std::shared_ptr<BrowserCore> core_;

  IMPLEMENT_REFCOUNTING(EditionBrowser);
};

}  // namespace cefedition

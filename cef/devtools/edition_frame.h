#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "include/cef_frame.h"

namespace cefedition {

class BrowserCore;

/// A frame as the client sees it. Any thread; what it is asked for is answered from the state that
/// the UI thread keeps up to date. Once its browser is closed or the frame removed, it is invalid
/// and does nothing.
class EditionFrame : public CefFrame {
 public:
  EditionFrame(std::weak_ptr<BrowserCore> core,
               const std::string& id,
               const std::string& parent_id,
               bool is_main);

  std::string id() const;
  std::string parent_id() const;
  std::string name() const;
  std::string url() const;
  /// The script context of the page in this frame, for `Runtime.evaluate`; empty when none is
  /// known.
  std::string context() const;

  // UI thread.
  void SetId(const std::string& id);
  void SetDocument(const std::string& url, const std::string& name);
  void SetUrl(const std::string& url);
  void SetContext(const std::string& unique_context_id);
  void Invalidate();

  // CefFrame.
  bool IsValid() override;
  void Undo() override;
  void Redo() override;
  void Cut() override;
  void Copy() override;
  void Paste() override;
  void Delete() override;
  void SelectAll() override;
  void ViewSource() override;
  void GetSource(CefRefPtr<CefStringVisitor> visitor) override;
  void GetText(CefRefPtr<CefStringVisitor> visitor) override;
  void LoadRequest(CefRefPtr<CefRequest> request) override;
  void LoadURL(const CefString& url) override;
  void ExecuteJavaScript(const CefString& code,
                         const CefString& script_url,
                         int start_line) override;
  bool IsMain() override;
  bool IsFocused() override;
  CefString GetName() override;
  CefString GetIdentifier() override;
  CefRefPtr<CefFrame> GetParent() override;
  CefString GetURL() override;
  CefRefPtr<CefBrowser> GetBrowser() override;
  void SendProcessMessage(CefProcessId target_process,
                          CefRefPtr<CefProcessMessage> message) override;

 private:
  /// Null once the frame is invalid.
  std::shared_ptr<BrowserCore> core() const;
  void Edit(const char* command);
  /// Evaluates an expression in the page and hands its text to the visitor on the UI thread.
  void VisitText(const char* expression, CefRefPtr<CefStringVisitor> visitor);

  mutable std::mutex lock_;
  std::weak_ptr<BrowserCore> core_;
  bool valid_ = true;
  std::string id_;
  const std::string parent_id_;
  const bool is_main_;
  std::string name_;
  std::string url_;
  std::string context_;

  IMPLEMENT_REFCOUNTING(EditionFrame);
};

}  // namespace cefedition

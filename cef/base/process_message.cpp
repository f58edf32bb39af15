#include "include/cef_process_message.h"

#include "process_message.h"
#include "values.h"

namespace cefedition {
namespace {

class ProcessMessage final : public CefProcessMessage {
 public:
  ProcessMessage(const CefString& name, CefRefPtr<CefListValue> arguments)
      : name_(name), arguments_(std::move(arguments)) {}

  bool IsValid() override { return arguments_ && arguments_->IsValid(); }
  bool IsReadOnly() override { return !arguments_ || arguments_->IsReadOnly(); }
  CefRefPtr<CefProcessMessage> Copy() override {
    return IsValid() ? new ProcessMessage(name_, arguments_->Copy()) : nullptr;
  }
  CefString GetName() override { return name_; }
  CefRefPtr<CefListValue> GetArgumentList() override { return arguments_; }
  // The edition sends all messages as lists.
  CefRefPtr<CefSharedMemoryRegion> GetSharedMemoryRegion() override { return nullptr; }

 private:
  const CefString name_;
  const CefRefPtr<CefListValue> arguments_;

  IMPLEMENT_REFCOUNTING(ProcessMessage);
};

}  // namespace

CefRefPtr<CefProcessMessage> MakeReceivedMessage(const CefString& name,
                                                 CefRefPtr<CefListValue> arguments) {
  MakeReadOnly(arguments.get());
  return new ProcessMessage(name, std::move(arguments));
}

}  // namespace cefedition

CefRefPtr<CefProcessMessage> CefProcessMessage::Create(const CefString& name) {
  return name.empty() ? nullptr : new cefedition::ProcessMessage(name, CefListValue::Create());
}

// Credentials for a proxy from the provider that the kind of host comes with.
#pragma once

#include "handler/auth_answer.h"
#include "include/cef_task.h"

namespace kzcef {

// A task for CEF's UI thread: asks the provider, a COM object in this process, and answers the
// request with the user name and the password that it supplies. The request is cancelled when
// anything fails and when the task never runs. Nothing that the provider says is traced or kept.
class KzAsyncProxyHandler : public CefTask {
 public:
  explicit KzAsyncProxyHandler(AuthAnswer&& answer);
  KzAsyncProxyHandler(const KzAsyncProxyHandler&) = delete;
  KzAsyncProxyHandler& operator=(const KzAsyncProxyHandler&) = delete;

  // Called once.
  void Execute() override;

 private:
  AuthAnswer answer_;

  IMPLEMENT_REFCOUNTING(KzAsyncProxyHandler);
};

}  // namespace kzcef

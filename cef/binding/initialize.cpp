// include/cef_app.h's functions: start and end of the engine, and of its sub-processes.

#include <chrono>
#include <fstream>

#include "alloy.h"
#include "binding.h"
#include "context_start.h"
#include "include/base/cef_bind.h"
#include "include/cef_app.h"
#include "keep_alives.h"
#include "settings.h"
#include "start_settings.h"

using cefbinding::CallEngine;
using cefbinding::Engine;

namespace {

// A start takes about a second, on a busy machine several.
constexpr std::chrono::seconds kLongestStart{20};

// Of the thread that starts and ends the engine.
bool g_runs = false;

// There is no engine that could write its log: one line in its stead, in the file that it would
// have used.
void ReportRefusal(const CefSettings& settings, const std::string& reason) {
  cefbinding::LogError(reason.c_str());
  if (settings.log_severity == LOGSEVERITY_DISABLE) {
    return;
  }
  const std::wstring file = CefString(&settings.log_file).ToWString();
  if (!file.empty()) {
    std::ofstream(std::filesystem::path(file), std::ios::app) << "ERROR: " << reason << "\n";
  }
}

// Never destroyed: a process may end on any thread.
std::filesystem::path& TemporaryRoot() {
  static auto* const root = new std::filesystem::path;
  return *root;
}

void DeleteTemporaryRoot() {
  if (!TemporaryRoot().empty()) {
    // What a sub-process still holds stays behind.
    std::error_code error;
    std::filesystem::remove_all(TemporaryRoot(), error);
    TemporaryRoot().clear();
  }
}

}  // namespace

int CefExecuteProcess(const CefMainArgs& args,
                      CefRefPtr<CefApp> application,
                      void* windows_sandbox_info) {
  const std::string& refusal = Engine().refusal;
  if (!refusal.empty()) {
    cefbinding::LogError(refusal.c_str());
    return -1;
  }
  return CallEngine(&capi::Functions::cef_execute_process, args, application, windows_sandbox_info);
}

bool CefInitialize(const CefMainArgs& args,
                   const CefSettings& settings,
                   CefRefPtr<CefApp> application,
                   void* windows_sandbox_info) {
  const std::string& refusal = Engine().refusal;
  if (!refusal.empty()) {
    ReportRefusal(settings, refusal);
    return false;
  }
  const cefbinding::StartSettings start = cefbinding::CheckedForStart(settings);
  TemporaryRoot() = start.temporary_root;
  g_runs = CallEngine(&capi::Functions::cef_initialize, args, start.settings,
                      cefbinding::WithContextNoted(cefbinding::WithAlloyBehaviour(
                          application, cefbinding::AlloyOptions(start.settings))),
                      windows_sandbox_info);
  if (!g_runs) {
    DeleteTemporaryRoot();
  }
  // Not before: the engine begins its log anew at its start.
  for (const std::string& remark : start.remarks) {
    cefbinding::LogError(remark.c_str());
  }
  return g_runs;
}

void CefShutdown() {
  if (g_runs) {
    cefbinding::RunWithContext(base::BindOnce(&cefbinding::EndKeepAlives), kLongestStart);
  }
  CallEngine(&capi::Functions::cef_shutdown);
  cefbinding::SetEngineHasEnded();
  DeleteTemporaryRoot();
}

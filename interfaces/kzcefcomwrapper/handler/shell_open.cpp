// Calls the shell through a pointer, so that tests can take the shell's place.

#include "handler/shell_open.h"

#include <atomic>

namespace kzcef {
namespace {

std::atomic<ShellExecuteFunction> g_shell_execute = &ShellExecuteW;

}  // namespace

void OpenExternally(const std::wstring& url) {
  const ShellExecuteFunction shell_execute = g_shell_execute;
  shell_execute(nullptr, L"open", url.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

void ReplaceShellExecute(ShellExecuteFunction function) {
  g_shell_execute = function ? function : &ShellExecuteW;
}

}  // namespace kzcef

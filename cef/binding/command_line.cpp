// include/cef_command_line.h over the C API.

#include "include/cef_command_line.h"

#include "binding.h"

namespace cefbinding {
namespace {

class CommandLineObject final : public LibraryObject<CefCommandLine> {
 public:
  explicit CommandLineObject(Struct* object) : LibraryObject(object) {}

  bool IsValid() override { return Call(&Struct::is_valid); }
  bool IsReadOnly() override { return Call(&Struct::is_read_only); }
  CefRefPtr<CefCommandLine> Copy() override { return Call(&Struct::copy); }
  void InitFromString(const CefString& command_line) override {
    Call(&Struct::init_from_string, Needed(command_line));
  }
  void Reset() override { Call(&Struct::reset); }
  void GetArgv(std::vector<CefString>& argv) override { Call(&Struct::get_argv, &argv); }
  CefString GetCommandLineString() override { return Call(&Struct::get_command_line_string); }
  CefString GetProgram() override { return Call(&Struct::get_program); }
  void SetProgram(const CefString& program) override {
    Call(&Struct::set_program, Needed(program));
  }
  bool HasSwitches() override { return Call(&Struct::has_switches); }
  bool HasSwitch(const CefString& name) override { return Call(&Struct::has_switch, Needed(name)); }
  CefString GetSwitchValue(const CefString& name) override {
    return Call(&Struct::get_switch_value, Needed(name));
  }
  void GetSwitches(SwitchMap& switches) override { Call(&Struct::get_switches, &switches); }
  void AppendSwitch(const CefString& name) override { Call(&Struct::append_switch, Needed(name)); }
  void AppendSwitchWithValue(const CefString& name, const CefString& value) override {
    Call(&Struct::append_switch_with_value, Needed(name), Needed(value));
  }
  bool HasArguments() override { return Call(&Struct::has_arguments); }
  void GetArguments(ArgumentList& arguments) override { Call(&Struct::get_arguments, &arguments); }
  void AppendArgument(const CefString& argument) override {
    Call(&Struct::append_argument, Needed(argument));
  }
  void PrependWrapper(const CefString& wrapper) override {
    Call(&Struct::prepend_wrapper, Needed(wrapper));
  }
};

}  // namespace

template <>
CefRefPtr<CefCommandLine> Counterpart<CefCommandLine>::LibraryClass::Wrap(Struct* object) {
  return new CommandLineObject(object);
}

}  // namespace cefbinding

using cefbinding::CallEngine;

CefRefPtr<CefCommandLine> CefCommandLine::CreateCommandLine() {
  return CallEngine(&capi::Functions::cef_command_line_create);
}

CefRefPtr<CefCommandLine> CefCommandLine::GetGlobalCommandLine() {
  return CallEngine(&capi::Functions::cef_command_line_get_global);
}

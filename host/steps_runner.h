// Carries out the steps of a steps file.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "com/variant.h"
#include "host.h"
#include "portable/steps_reader.h"

namespace kzhost {

// Used on the user-interface thread. `host` is activated and outlives the runner.
class StepsRunner {
 public:
  explicit StepsRunner(Host& host) : host_(host) {}

  // Carries the steps out in order until one fails, "quit" comes or the list ends. Returns the
  // failure, if there was one. The browsers stay open.
  std::optional<StepsError> Run(const std::vector<Step>& steps);

 private:
  // What went wrong with a step; nothing when all went well.
  using Failure = std::optional<std::string>;

  Failure RunStep(const Step& step);
  Failure Answer(const Step& step);
  Failure OpenBrowser(const Step& step);
  Failure Call(const Step& step);
  Failure Click(const Step& step);
  Failure Close(const Step& step);
  Failure Cookies(const Step& step);
  Failure Create(const Step& step);
  Failure Get(const Step& step);
  Failure Gone(const Step& step);
  Failure Init(const Step& step);
  Failure Load(const Step& step);
  Failure Mark(const Step& step);
  Failure Pixel(const Step& step);
  Failure Put(const Step& step);
  Failure Refresh(const Step& step);
  Failure Resize(const Step& step);
  Failure Screenshot(const Step& step);
  Failure Script(const Step& step);
  Failure Start(const Step& step);
  Failure Type(const Step& step);
  Failure Wait(const Step& step);
  Failure WaitFile(const Step& step);

  // Returns the browser that the step names, "b1" when it names none; sets `failure` when there is
  // no such browser.
  BrowserSession* Session(const Step& step, Failure& failure) const;
  IDispatch* Object(const Step& step, Failure& failure) const;
  // Makes the arguments of a call; references to the host's objects and windows are resolved.
  Failure Arguments(const Step& step, std::vector<Variant>& arguments) const;
  Failure Argument(const Json& value, Variant& argument) const;

  // Writes the outcome into the events file, then compares it with what the step expects: its
  // "hresult"; without one, `usual`; without that, any success.
  Failure Outcome(const Step& step,
                  HRESULT result,
                  const Json& value = nullptr,
                  std::optional<HRESULT> usual = std::nullopt) const;

  Host& host_;
  bool quit_ = false;
};

}  // namespace kzhost
